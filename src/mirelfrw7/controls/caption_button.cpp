#include <mirelfrw7/controls/caption_button.h>

#include <string>
#include <vector>

namespace mirelfrw7 {

namespace {

// The question mark: an outline of a, lit inside by the other keys.
char const* const HelpNormal[] = {
    "16 16 7 1",        ". c None",         "a c #000000",      "b c #ECECEC",      "c c #FBFBFB",
    "d c #E3E3E3",      "e c #F4F4F4",      "f c #FFFFFF",      "................", "................",
    "................", "......aaaa......", ".....affffa.....", "....affaafba....", "....aaa.acda....",
    ".......afea.....", "......affa......", "......afba......", "......aaaa......", "......aeba......",
    "......aaaa......", "................", "................", "................",
};

// The same outline filled with f alone, in the colour given.
std::vector<std::string> HelpLit(char const* fill) {
    return {"16 16 3 1",        ". c None",         "a c #000000",      std::string("f c ") + fill,
            "................", "................", "................", "......aaaa......",
            ".....affffa.....", "....affaaffa....", "....aaa.affa....", ".......affa.....",
            "......affa......", "......affa......", "......aaaa......", "......affa......",
            "......aaaa......", "................", "................", "................"};
}

CPictureButton::ImageInfo XpmInfo(mirel7::XPMBuf buf) {
    CPictureButton::ImageInfo info;
    info.xpm = mirel7::XPMImage(std::move(buf));
    info.xpm.Init();
    return info;
}

} // namespace

CCaptionButton::CCaptionButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CPictureButton(parent, elementSize, alignment) {
    m_transparent = true;
    SetFocusable(false);
}

void CCaptionButton::DrawHighlightedContent(IPainter* painter) {
    DrawBk(painter, 160);
    CPictureButton::DrawHighlightedContent(painter);
}

void CCaptionButton::DrawPressedContent(IPainter* painter) {
    DrawBk(painter, 40);
    CPictureButton::DrawPressedContent(painter);
}

void CCaptionButton::DrawBk(IPainter* painter, int alpha) {
    rectangle<int> const r = GetContentRect();
    if (!m_parent) return;
    _color const parentBk = m_parent->GetBkColor();
    brush b;
    if (DrawBkImage(painter, r, {})) {
        b.color = parentBk;
        DrawBlendBk(painter, r, b, alpha);
        return;
    }
    b.color = mirel7::MixColors(LightOnPictureColor, parentBk, (255 - alpha) / 255.0);
    painter->SetBrush(b);
    painter->FillRect(r.left, r.top, r.right, r.bottom);
}

CHelpButton::CHelpButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CCaptionButton(parent, elementSize, alignment) {
    SetImage(LookNormal, XpmInfo(mirel7::XPMBuf(HelpNormal)));
    SetImage(LookHighlighted, XpmInfo(mirel7::XPMBuf(HelpLit("#FFFF00"))));
    SetImage(LookPressed, XpmInfo(mirel7::XPMBuf(HelpLit("#D2D200"))));
}

} // namespace mirelfrw7
