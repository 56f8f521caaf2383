#pragma once

#include <mirelfrw7/core/visual_element.h>

#include <string>

namespace gallery {

// A coloured block with its name written in it: the plain brick of the gallery's pages.
class CSwatch : public mirelfrw7::CVisualElement {
public:
    CSwatch(mirelfrw7::CVisualElement* parent, mirelfrw7::Alignment alignment, mirel7::size<int> swatchSize,
            mirel7::_color color, std::string name);

    void DrawContent(mirel7::IPainter* painter) override;
    std::string HandleAsString() const override { return m_name; }

private:
    std::string m_name;
};

// A line at the bottom of a page telling what happened last.
class CReport : public mirelfrw7::CVisualElement {
public:
    CReport(mirelfrw7::CVisualElement* parent, std::string text);

    void Say(std::string text);
    void DrawContent(mirel7::IPainter* painter) override;

private:
    std::string m_text;
};

// A readable text colour on `background`.
mirel7::_color ContrastingText(mirel7::_color const& background);

} // namespace gallery
