#include "gallery.h"

#include "swatch.h"

#include <algorithm>

namespace gallery {

namespace {
std::vector<SPage>& Registered() {
    static std::vector<SPage> pages;
    return pages;
}
} // namespace

CPageRegistration::CPageRegistration(SPage page) {
    auto& pages = Registered();
    pages.insert(std::upper_bound(pages.begin(), pages.end(), page,
                                  [](SPage const& a, SPage const& b) { return a.order < b.order; }),
                 std::move(page));
}

std::vector<SPage> const& Pages() {
    return Registered();
}

// The names of the pages side by side; the current one highlighted.
class CGallery::CPageBar : public mirelfrw7::CVisualElement {
public:
    CPageBar(CVisualElement* parent, CGallery& gallery)
        : CVisualElement(parent, {0, 22}, mirelfrw7::AlignTop), m_gallery(gallery) {
        SetBkColor(mirel7::_color(40, 44, 52));
        mirelfrw7::ApplyDPIScale(m_tabWidth);
    }

    void DrawContent(mirel7::IPainter* painter) override {
        mirel7::rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        auto const& pages = Pages();
        int const width = TabWidth();
        for (int i = 0; i < static_cast<int>(pages.size()); ++i) {
            mirel7::rectangle<double> const tab(i * width, b.top, (i + 1) * width - 2, b.bottom);
            bool const current = i == m_gallery.GetPage();
            mirel7::brush fill;
            fill.color = current ? mirel7::_color(86, 156, 214) : mirel7::_color(60, 64, 72);
            painter->SetBrush(fill);
            painter->FillRect(tab);
            painter->SetTextColor(mirel7::_color(255, 255, 255));
            painter->DrawString(tab, pages[std::size_t(i)].name,
                                mirel7::IPainter::AlignHCenter | mirel7::IPainter::AlignVCenter |
                                    mirel7::IPainter::ClipToRect);
        }
    }

    bool HandleButtonDown(int x, int, int, mirel7::MouseButton button) override {
        int const page = x / TabWidth();
        if (button != mirel7::ButtonLeft || page >= static_cast<int>(Pages().size())) return false;
        m_gallery.ShowPage(page);
        return true;
    }

private:
    // Tabs narrow when the pages outgrow the window, so that every page stays reachable by the mouse.
    int TabWidth() const {
        int const count = std::max(1, static_cast<int>(Pages().size()));
        return std::max(1, std::min(m_tabWidth, (GetBounds().Width() + 1) / count));
    }

    CGallery& m_gallery;
    int m_tabWidth = 110;
};

// Page keys on the root, which sees every key nobody else took.
struct CGallery::CKeys : tarnkit2::subscriber_base_t {
    explicit CKeys(CGallery& gallery) : gallery(gallery) {}
    void OnKey(mirelfrw7::CVisualElement*, int, int key) {
        int const count = static_cast<int>(Pages().size());
        if (key == mirel7::KeyPageDown)
            gallery.ShowPage((gallery.GetPage() + 1) % count);
        else if (key == mirel7::KeyPageUp)
            gallery.ShowPage((gallery.GetPage() + count - 1) % count);
    }
    CGallery& gallery;
};

CGallery::CGallery(mirel7::ISysWindow* window, int page) : CBaseControl(window) {
    m_bar = new CPageBar(GetContent(), *this);
    m_host = new CSwatch(GetContent(), mirelfrw7::AlignClient, {}, mirel7::_color(250, 250, 250), "");
    m_keys = new CKeys(*this);
    GetContent()->sigKeyDown.connect(m_keys, &CKeys::OnKey);
    ShowPage(page);
}

CGallery::~CGallery() {
    delete m_keys;
}

void CGallery::ShowPage(int page) {
    if (page == m_page || page < 0 || page >= static_cast<int>(Pages().size())) return;
    m_page = page;
    m_host->GetChildren()->Clear();
    Pages()[std::size_t(page)].build(m_host);
    m_bar->Update(mirelfrw7::UpdateLocal);
    Rearrange();
}

} // namespace gallery
