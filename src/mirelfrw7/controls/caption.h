#pragma once

#include <mirelfrw7/core/transparent_flavor.h>
#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/layout/layout_flavor.h>

#include <mirel7/text_formatter.h>

#include <string>
#include <vector>

namespace mirelfrw7 {

// A text and image label that docks along any edge, can size itself to its text, and can show HTML-like
// text whose links are found while painting and kept for hit tests until the next paint.
class MIRELFRW7_API CCaption : public CTransparentFlavor<CVisualElement>,
                               public CLayoutFlavor,
                               public mirel7::CHTMLTextFormatter {
public:
    struct Link {
        std::string link;
        rectangle<int> rect;
    };

    // The links of the last paint, in control coordinates; empty and not valid while stale.
    class MIRELFRW7_API LinkHolder {
    public:
        void AddLink(char const* text, int length, rectangle<int> const& rect);
        // Either way it starts a new collection: false empties it, true sorts what was collected.
        void SetValid(bool valid);
        bool IsValid() const { return m_valid; }
        bool IsLink(point<int> const& p) const;
        // The first non-empty link at or after the first one under `p`.
        std::string GetLink(point<int> const& p) const;
        std::vector<Link> const& GetLinks() const { return m_links; }

    private:
        std::vector<Link> m_links;
        bool m_valid = false;
    };

    // A slot sets the bool to claim the link before the control opens it.
    signal_t<std::string const&, bool&> sigLinkClicked;

    CCaption(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    virtual void DrawBackground(IPainter* painter);
    virtual rectangle<int> GetInternalRect() const;
    virtual void RecalculateSize();
    virtual size<int> GetAutoSizeAdditionalExtent() const;
    virtual size<int> GetImageSize() const;
    virtual void OnDrawLink(char const* text, int length, rectangle<int> const& rect);

    void SetPos(rectangle<int> const& newRect, bool force) override;
    void SetAlignment(Alignment alignment) override;
    bool IsCopyToClipboardEnabled() const override { return true; }
    void DrawContent(IPainter* painter) override;
    void AttributeChanged() override;
    bool HandleMouseMove(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonDown(int x, int y, int flags, MouseButton button) override;
    std::string HandleAsString() const override;

    void SetCaption(std::string const& caption);
    void SetAutoSize(bool on);
    void AdjustHeight(bool on);
    void SetMaxTextWidth(int width);
    void SetTextLayout(bool on);
    void SetTextAlign(int flags);
    void SetImageIndex(int index);
    void SetImageSpace(int space);
    void UseHTML(bool on);
    void SetAutoTooltip(bool on) { m_autoTooltip = on; }

    std::string const& GetCaption() const { return m_caption; }
    bool GetAutoSize() const { return m_autoSize; }
    bool GetAdjustHeight() const { return m_adjustHeight; }
    int GetMaxTextWidth() const { return m_maxTextWidth; }
    int GetTextAlign() const { return m_textAlign; }
    int GetImageIndex() const { return m_imageIndex; }
    int GetImageSpace() const { return m_imageSpace; }
    bool IsHTML() const { return m_useHTML; }
    LinkHolder const& GetLinkHolder() const { return m_links; }
    size<int> GetAutoSizeExtent() const;

protected:
    void OwnerDrawLink(char const* link, int length, rectangle<int> const& rect) override;
    // The formatter for DrawStringEx and DrawLabel: this caption with HTML on, none otherwise.
    ITextFormatter* Formatter() { return m_useHTML ? this : nullptr; }

    LinkHolder m_links;
    std::string m_caption;
    int m_textAlign = 36;
    int m_imageIndex = -1;
    bool m_autoSize = false;
    bool m_adjustHeight = false;
    bool m_useHTML = false;
    bool m_autoTooltip = false;
    int m_maxTextWidth = 0;
    int m_imageSpace;
};

} // namespace mirelfrw7
