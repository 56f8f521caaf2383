#pragma once

#include <mirelfrw7/core/base_control.h>

#include <string>
#include <vector>

namespace gallery {

// One page of the gallery: it builds its elements into `host`, which fills the window below the page bar.
struct SPage {
    std::string name;
    void (*build)(mirelfrw7::CVisualElement* host);
};

std::vector<SPage> const& Pages();

// The pages of every capability on one control: a bar of page names on top, the current page below.
// PageUp and PageDown, or a click on a name, switch pages.
class CGallery : public mirelfrw7::CBaseControl {
public:
    explicit CGallery(mirel7::ISysWindow* window, int page = 0);
    ~CGallery() override;

    void ShowPage(int page);
    int GetPage() const { return m_page; }

private:
    class CPageBar;
    struct CKeys;

    CPageBar* m_bar;
    mirelfrw7::CVisualElement* m_host;
    CKeys* m_keys;
    int m_page = -1;
};

} // namespace gallery
