// Labels: an image and a text placed together in a rectangle by the text's alignment, on horizontal strips
// and along the left and right edges. The images come from the control's image list.
#include "gallery.h"

#include <mirelfrw7/core/label.h>
#include <mirelfrw7/header/delimiters.h>
#include <mirelfrw7/layout/layout_flavor.h>

#include <mirel7/image_list.h>
#include <mirel7/window_painter.h>

namespace gallery {

namespace {
using mirel7::_color;
using mirel7::IPainter;
using namespace mirelfrw7;

enum Icon { IconInfo, IconDone, IconWarning, IconStop, IconCount };

void Stroke(IPainter* p, _color color, std::initializer_list<mirel7::point<double>> points) {
    p->SetPen({color, 2});
    auto it = points.begin();
    p->MoveTo(it->x, it->y);
    while (++it != points.end())
        p->LineTo(it->x, it->y);
}

// Four icons of 16 by 16, drawn once: a disc, a check, a warning triangle, a cross.
mirel7::mirel_ptr<mirel7::IImageList> MakeIcons() {
    mirel7::mirel_ptr<mirel7::CImageList> icons(new mirel7::CImageList({16, 16}));
    mirel7::mirel_ptr<mirel7::IRasterPicture> strip = mirel7::NewRasterPicture(16 * IconCount, 16);
    if (!strip) return icons;
    IPainter* const p = strip->GetPainter();
    p->BeginPaint(IPainter::PaintPlain);
    p->SetPen({_color(20, 70, 140)});
    p->SetBrush({_color(60, 130, 220)});
    p->RoundRect(0, 0, 15, 15, 8, 8);
    p->SetBrush({_color(255, 255, 255)});
    p->FillRect(7, 7, 8, 12);
    p->FillRect(7, 3, 8, 4);

    p->SetPen({_color(20, 110, 40)});
    p->SetBrush({_color(50, 170, 80)});
    p->RoundRect(16, 0, 31, 15, 4, 4);
    Stroke(p, _color(255, 255, 255), {{19.5, 8}, {22.5, 11.5}, {28, 4.5}});

    p->SetPen({_color(150, 90, 0)});
    p->SetBrush({_color(240, 170, 30)});
    mirel7::point<double> const triangle[] = {{40, 0.5}, {47.5, 15}, {32.5, 15}};
    p->Polygon(triangle, 3);
    p->SetBrush({_color(60, 40, 0)});
    p->FillRect(39, 5, 40, 10);
    p->FillRect(39, 12, 40, 13);

    p->SetPen({_color(140, 20, 20)});
    p->SetBrush({_color(210, 50, 50)});
    p->RoundRect(48, 0, 63, 15, 8, 8);
    Stroke(p, _color(255, 255, 255), {{52.5, 4.5}, {59.5, 11.5}});
    Stroke(p, _color(255, 255, 255), {{59.5, 4.5}, {52.5, 11.5}});
    p->EndPaint();
    icons->AddPicture(strip.get());
    return icons;
}

// One label in a framed cell. It lies along its docking edge; on a vertical edge its text turns with it.
class CLabelSample : public CVisualElement, public CLayoutFlavor {
public:
    CLabelSample(CVisualElement* parent, Alignment alignment, int extent, std::string text, int flags,
                 int image)
        : CVisualElement(parent, {extent, extent}, alignment), m_text(std::move(text)), m_flags(flags),
          m_image(image) {
        ChangeLayout(alignment);
        SetTextConversion(alignment == AlignLeft || alignment == AlignRight);
        SetBkColor(_color(250, 250, 252));
    }

    void DrawContent(IPainter* painter) override {
        mirel7::rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->SetPen({_color(205, 210, 220)});
        painter->MoveTo(b.left, b.bottom);
        painter->LineTo(b.right, b.bottom);
        painter->LineTo(b.right, b.top);
        mirel7::IImageList* const images = GetControl() ? GetControl()->GetImageList() : nullptr;
        int const flags = m_flags | (IsEnabled() ? 0 : LabelDisabledImage);
        DrawLabel(painter, {b.left + 8, b.top + 4, b.right - 8, b.bottom - 4}, m_text, flags, 6, images,
                  m_image, this, GetDelimiters(false), nullptr);
    }

private:
    std::string m_text;
    int m_flags;
    int m_image;
};
} // namespace

void BuildLabelsPage(CVisualElement* host) {
    // Made once and kept for the life of the program, since the control only points at it.
    static mirel7::mirel_ptr<mirel7::IImageList> const icons = MakeIcons();
    if (IControl* const control = host->GetControl()) control->SetImageList(icons.get());

    constexpr int left = IPainter::AlignLeft, right = IPainter::AlignRight, centre = IPainter::AlignHCenter;
    constexpr int top = IPainter::AlignTop, middle = IPainter::AlignVCenter;
    new CLabelSample(host, AlignLeft, 44, "A caption along the left edge", centre | middle, IconInfo);
    new CLabelSample(host, AlignRight, 44, "A caption along the right edge", centre | middle, IconDone);

    new CLabelSample(host, AlignTop, 40, "The image stands left of left-aligned text", left | middle,
                     IconInfo);
    new CLabelSample(host, AlignTop, 40, "The image stands before centred text", centre | middle, IconDone);
    new CLabelSample(host, AlignTop, 40, "The image stands before right-aligned text", right | middle,
                     IconWarning);
    new CLabelSample(host, AlignTop, 72,
                     "Several lines of text, aligned to the top:\nthe image stays with the first line\nand "
                     "does not move to the middle",
                     left | top, IconStop);
    new CLabelSample(
        host, AlignTop, 72,
        "Several lines, centred both ways:\nthe image follows the first line\nof the centred block",
        centre | middle, IconInfo);
    new CLabelSample(host, AlignTop, 40, "A disabled image, drawn greyed", left | middle | LabelDisabledImage,
                     IconWarning);
    auto* const disabled = new CLabelSample(host, AlignTop, 40, "A disabled element: greyed image, grey text",
                                            left | middle, IconDone);
    disabled->SetEnabled(false);
    new CLabelSample(host, AlignTop, 40, "", centre | middle, IconStop);
    new CLabelSample(host, AlignTop, 40, "Text alone, without an image", centre | middle, -1);
}

GALLERY_PAGE(40, "labels", BuildLabelsPage)

} // namespace gallery
