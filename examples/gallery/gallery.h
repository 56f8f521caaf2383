#pragma once

#include <mirelfrw7/core/base_control.h>

#include <string>
#include <vector>

namespace gallery {

// One page of the gallery: it builds its elements into `host`, which fills the window below the page bar.
struct SPage {
    int order;
    std::string name;
    void (*build)(mirelfrw7::CVisualElement* host);
};

// The pages, by their order.
std::vector<SPage> const& Pages();

// A page file registers itself with one of these at namespace scope, so that adding a page touches no list:
//   GALLERY_PAGE(30, "layouts", BuildLayoutsPage)
struct CPageRegistration {
    explicit CPageRegistration(SPage page);
};
#define GALLERY_PAGE(order, name, build)                                                                     \
    static ::gallery::CPageRegistration const s_page{{order, name, &build}};

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
