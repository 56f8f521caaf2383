// The native look: every piece a control asks the painter for, in every state, and bordered boxes in every
// shape and style, XPM pictures normal and greyed, and a paragraph of text with links, at the window's scale.
#include "gallery.h"

#include <mirelfrw7/core/clip_holder.h>

#include <mirel7/border.h>
#include <mirel7/custom_palette.h>
#include <mirel7/system.h>
#include <mirel7/text_formatter.h>
#include <mirel7/xpm.h>

namespace gallery {

namespace {
using mirel7::_color;
using mirel7::IPainter;
using mirel7::rectangle;
using namespace mirelfrw7;

struct SElementRow {
    char const* name;
    IPainter::ControlElement element;
    int width, height; // unscaled; 0 takes the check box size
};

constexpr SElementRow ElementRows[] = {
    {"check box on", IPainter::ControlChecked, 0, 0},
    {"check box off", IPainter::ControlUnchecked, 0, 0},
    {"radio on", IPainter::ControlRadioOn, 0, 0},
    {"radio off", IPainter::ControlRadioOff, 0, 0},
    {"push button", IPainter::ControlPushButton, 50, 20},
    {"header", IPainter::ControlHeaderSection, 52, 20},
    {"header sort up", IPainter::ControlHeaderSortUp, 52, 20},
    {"header sort down", IPainter::ControlHeaderSortDown, 52, 20},
    {"scroll left", IPainter::ControlScrollArrowLeft, 16, 16},
    {"scroll right", IPainter::ControlScrollArrowRight, 16, 16},
    {"scroll up", IPainter::ControlScrollArrowUp, 16, 16},
    {"scroll down", IPainter::ControlScrollArrowDown, 16, 16},
    {"track horizontal", IPainter::ControlScrollTrackHorz, 50, 16},
    {"track vertical", IPainter::ControlScrollTrackVert, 16, 20},
    {"thumb horizontal", IPainter::ControlScrollThumbHorz, 50, 16},
    {"thumb vertical", IPainter::ControlScrollThumbVert, 16, 20},
    {"drop-down", IPainter::ControlDropDownArrow, 18, 18},
    {"roll up", IPainter::ControlRollUp, 18, 18},
    {"roll down", IPainter::ControlRollDown, 18, 18},
    {"close", IPainter::ControlCloseCross, 16, 16},
};

struct SStateColumn {
    char const* name;
    int state;
    bool painterDisabled;
};

constexpr SStateColumn StateColumns[] = {
    {"normal", 0, false},
    {"hot", IPainter::StateHot, false},
    {"pressed", IPainter::StateHot | IPainter::StatePressed, false},
    {"focused", IPainter::StateFocused, false},
    {"checked", IPainter::StateChecked, false},
    {"disabled", IPainter::StateDisabled, false},
    {"greyed", 0, true},
};

// A folder and a note, as small pictures are built into programs.
char const* const FolderPicture[] = {
    "16 16 4 1",        ". c None",         "o c #9A6A10",      "y c #F2C14E",      "l c #FBE3A0",
    "................", "................", ".oooo...........", "oyyyyo..........", "oyyyyyoooooooo..",
    "olllllllllllllo.", "oyyyyyyyyyyyyyo.", "oyyyyyyyyyyyyyo.", "oyyyyyyyyyyyyyo.", "oyyyyyyyyyyyyyo.",
    "oyyyyyyyyyyyyyo.", "oyyyyyyyyyyyyyo.", "oyyyyyyyyyyyyyo.", ".ooooooooooooo..", "................",
    "................",
};
char const* const NotePicture[] = {
    "16 16 5 1",        ". c None",         "k c #3B4A5A",      "w c #FFFFFF",      "b c #4C8ED9",
    "r c #D9534F",      "..kkkkkkkkkk....", "..kwwwwwwwwkk...", "..kwbbbbwwwkwk..", "..kwwwwwwwwkkkk.",
    "..kwbbbbbbbbwwk.", "..kwwwwwwwwwwwk.", "..kwbbbbbbbbbwk.", "..kwwwwwwwwwwwk.", "..kwbbbbbbbbbwk.",
    "..kwwwwwwwwwwwk.", "..kwbbbbbbwwwwk.", "..kwwwwwwwwwrwk.", "..kwwwwwwwwrwwk.", "..kwwwwwwwrwwwk.",
    "..kwwwwwwwwwwwk.", "..kkkkkkkkkkkkk.",
};

constexpr char const* Paragraph =
    "Text with <b>bold</b>, <i>italic</i> and <u>underlined</u> words, "
    "<font color=\"#C0392B\">coloured runs</font>, entities such as &lt;tag&gt; &amp; &quot;quotes&quot;, "
    "and links: <a href=\"https://example.org/grid\">the grid</a> or "
    "<a href=\"https://example.org/headers\">multi-level headers</a>.<br>A line break starts a new line.";

constexpr char const* ShapeNames[] = {"box", "soft box", "bottom", "top", "left", "right", "bottom right"};
constexpr char const* StyleNames[] = {"flat", "raised", "sunken"};

class CLookSheet : public CVisualElement {
public:
    explicit CLookSheet(CVisualElement* parent) : CVisualElement(parent, {0, 0}, AlignClient) {}

    void DrawContent(IPainter* painter) override {
        m_scale = painter->GetDPIScale();
        rectangle<int> const b = GetBounds();
        painter->SetTextColor(_color(40, 40, 40));
        DrawElements(painter, b.left + U(12), b.top + U(10));
        DrawBorders(painter, b.left + U(560), b.top + U(10));
        DrawPictures(painter, b.left + U(560), b.top + U(330));
        DrawParagraph(painter, b.left + U(560), b.top + U(385), b.right - U(10));
    }

private:
    static constexpr int LabelWidth = 110, CellWidth = 60, RowHeight = 24, TitleHeight = 22;

    int U(double v) const { return static_cast<int>(v * m_scale); }

    void Label(IPainter* painter, int x, int y, int w, int h, char const* text, int align) const {
        painter->DrawString(rectangle<double>(x, y, x + w, y + h), text, align | IPainter::AlignVCenter, -1);
    }

    void DrawElements(IPainter* painter, int x, int y) const {
        Label(painter, x, y, U(300), U(TitleHeight), "Control elements by state", IPainter::AlignLeft);
        y += U(TitleHeight);
        int column = 0;
        for (SStateColumn const& c : StateColumns)
            Label(painter, x + U(LabelWidth + column++ * CellWidth), y, U(CellWidth), U(RowHeight), c.name,
                  IPainter::AlignHCenter);
        y += U(RowHeight);
        mirel7::ISystem* const system = mirel7::GetCurrentSystem();
        int const check = system ? system->GetMetric(mirel7::ISystem::MetricCheckSize) : U(13);
        for (SElementRow const& row : ElementRows) {
            Label(painter, x, y, U(LabelWidth), U(RowHeight), row.name, IPainter::AlignLeft);
            int const w = row.width ? U(row.width) : check, h = row.height ? U(row.height) : check;
            column = 0;
            for (SStateColumn const& c : StateColumns) {
                int const left = x + U(LabelWidth + column++ * CellWidth) + (U(CellWidth) - w) / 2;
                int const top = y + (U(RowHeight) - h) / 2;
                painter->SetDisabled(c.painterDisabled);
                painter->DrawControlElement(row.element, left, top, left + w - 1, top + h - 1, c.state);
                painter->SetDisabled(false);
            }
            y += U(RowHeight);
        }
        DrawHeaderStrip(painter, x, y + U(4));
    }

    // Sections side by side as a header draws them: each 4 pixels wider on either side than its place and
    // clipped to it, so that only the divider between neighbours shows.
    void DrawHeaderStrip(IPainter* painter, int x, int y) const {
        Label(painter, x, y, U(LabelWidth), U(20), "header strip", IPainter::AlignLeft);
        constexpr IPainter::ControlElement sections[] = {
            IPainter::ControlHeaderSection, IPainter::ControlHeaderSortUp, IPainter::ControlHeaderSection};
        constexpr int states[] = {0, IPainter::StateChecked, IPainter::StateHot};
        int left = x + U(LabelWidth);
        for (int i = 0; i < 3; ++i) {
            int const right = left + U(CellWidth * 2) - 1, bottom = y + U(20) - 1;
            CClipHolder const clip(painter, rectangle<double>(left, y, right, bottom));
            painter->DrawControlElement(sections[i], left - 4, y, right + 4, bottom, states[i]);
            left = right + 1;
        }
    }

    void DrawBorders(IPainter* painter, int x, int y) const {
        constexpr int NameWidth = 80, BoxCell = 52;
        Label(painter, x, y, U(240), U(TitleHeight), "Borders by shape and style", IPainter::AlignLeft);
        y += U(TitleHeight);
        for (int style = 0; style < 3; ++style)
            Label(painter, x + U(NameWidth + style * BoxCell), y, U(BoxCell), U(RowHeight), StyleNames[style],
                  IPainter::AlignHCenter);
        y += U(RowHeight);
        auto const row = [&](char const* name, int shape) {
            Label(painter, x, y, U(NameWidth), U(30), name, IPainter::AlignLeft);
            for (int style = 0; style < 3; ++style) {
                int const left = x + U(NameWidth + style * BoxCell + 6);
                mirel7::DrawBorder(
                    painter, rectangle<double>(left, y + U(4), left + U(40) - 1, y + U(26) - 1),
                    static_cast<mirel7::BorderShape>(shape), static_cast<mirel7::BorderStyle>(style), true);
            }
            y += U(30);
        };
        int shape = 0;
        for (char const* name : ShapeNames)
            row(name, shape++);
        // Boxes on a palette derived from one colour, as an element of its own colour gets them.
        painter->SetCustomPalette(mirel7::CreateCustomPalette(_color(110, 160, 220)));
        row("own colour", mirel7::BorderBox);
        row("", mirel7::BorderSoftBox);
        painter->SetCustomPalette(nullptr);
    }

    void DrawPictures(IPainter* painter, int x, int y) const {
        Label(painter, x, y, U(240), U(TitleHeight), "XPM pictures, normal and greyed", IPainter::AlignLeft);
        y += U(TitleHeight) + U(4);
        int left = x;
        for (mirel7::XPMImage const* picture : {&m_folder, &m_note}) {
            for (bool greyed : {false, true}) {
                painter->SetDisabled(greyed);
                painter->DrawXPM(*picture, left, y, 0, 0, -1, -1);
                painter->SetDisabled(false);
                left += U(28);
            }
        }
        // The greyed look as a picture of its own, as an element keeps one for its disabled state.
        painter->DrawXPM(m_folderDisabled, left, y, 0, 0, -1, -1);
    }

    void DrawParagraph(IPainter* painter, int x, int y, int right) const {
        Label(painter, x, y, U(240), U(TitleHeight), "Text with links", IPainter::AlignLeft);
        y += U(TitleHeight);
        mirel7::CHTMLTextFormatter formatter;
        painter->DrawStringEx(rectangle<double>(x, y, right, y + U(160)), Paragraph,
                              IPainter::AlignLeft | IPainter::AlignTop, -1, " ", &formatter);
    }

    template <std::size_t N>
    static mirel7::XPMImage Decoded(char const* const (&lines)[N]) {
        mirel7::XPMImage picture{mirel7::XPMBuf(lines)};
        picture.Init();
        return picture;
    }

    double m_scale = 1.0;
    mirel7::XPMImage m_folder = Decoded(FolderPicture);
    mirel7::XPMImage m_note = Decoded(NotePicture);
    mirel7::XPMImage m_folderDisabled = m_folder.GetDisabled(nullptr);
};

void BuildLookPage(CVisualElement* host) {
    new CLookSheet(host);
}

} // namespace

GALLERY_PAGE(60, "look", BuildLookPage)

} // namespace gallery
