// The native look of controls: flat, softly rounded shapes in the system palette's colours, an accent for
// what is on, a tint of the accent under the mouse, a deeper one while pressed, and an inner ring for the
// focus. Everything scales with the painter's display scale.
#include <mirel7/cairo/cairo_painter.h>

#include <algorithm>
#include <cmath>

namespace mirel7::cairo {

namespace {

using P = ISysPalette;

// The colours the look is made of, taken from the system palette.
struct SLook {
    _color face, window, border, strongBorder, text, grey, accent, accentText, track, dark;

    static SLook Current() {
        ISysPalette* const system = GetSysPalette();
        ISysPalette const& p = system ? *system : *GetDefaultPalette();
        SLook look;
        look.face = p.GetColor(P::ColorElementBackground);
        look.window = p.GetColor(P::ColorWindowBackground);
        look.border = p.GetColor(P::ColorShadow);
        look.dark = p.GetColor(P::ColorDarkShadow);
        look.strongBorder = MixColors(look.border, look.dark, 0.5);
        look.text = p.GetColor(P::ColorElementForeground);
        look.grey = p.GetColor(P::ColorGrayText);
        look.accent = p.GetColor(P::ColorHighlight);
        look.accentText = p.GetColor(P::ColorHighlightText);
        look.track = look.face;
        return look;
    }

    // Every colour replaced by one, for colour substitution.
    void SubstituteAll(_color const& c) {
        for (_color* each :
             {&face, &window, &border, &strongBorder, &text, &grey, &accent, &accentText, &track, &dark})
            *each = c;
    }
};

struct SState {
    bool disabled, focused, hot, pressed, checked;

    explicit SState(int word, bool painterDisabled)
        : disabled(painterDisabled || (word & IPainter::StateDisabled)),
          focused(!disabled && (word & IPainter::StateFocused)),
          hot(!disabled && (word & IPainter::StateHot)),
          pressed(!disabled && (word & IPainter::StatePressed)), checked(word & IPainter::StateChecked) {}
};

// The element's pixels, the display scale and the width of a hairline at that scale.
struct SArea {
    double x, y, w, h, scale, line;

    double cx() const { return x + w / 2; }
    double cy() const { return y + h / 2; }
    double Short() const { return std::min(w, h); }
};

enum Direction { Left, Up, Right, Down };

void Source(cairo_t* cr, _color const& c) {
    cairo_set_source_rgba(cr, c.r / 255.0, c.g / 255.0, c.b / 255.0, c.a / 255.0);
}

void RoundedPath(cairo_t* cr, double x, double y, double w, double h, double radius) {
    radius = std::max(0.0, std::min({radius, w / 2, h / 2}));
    constexpr double quarter = 1.5707963267948966;
    cairo_new_sub_path(cr);
    cairo_arc(cr, x + w - radius, y + radius, radius, -quarter, 0);
    cairo_arc(cr, x + w - radius, y + h - radius, radius, 0, quarter);
    cairo_arc(cr, x + radius, y + h - radius, radius, quarter, 2 * quarter);
    cairo_arc(cr, x + radius, y + radius, radius, 2 * quarter, 3 * quarter);
    cairo_close_path(cr);
}

// A shape of the area inset by `inset`: rounded by `radius`, or a circle when `round`.
void ShapePath(cairo_t* cr, SArea const& a, double inset, double radius, bool round) {
    if (round) {
        cairo_new_sub_path(cr);
        cairo_arc(cr, a.cx(), a.cy(), std::max(0.0, a.Short() / 2 - inset), 0, 2 * 3.141592653589793);
    } else {
        RoundedPath(cr, a.x + inset, a.y + inset, a.w - 2 * inset, a.h - 2 * inset, radius - inset);
    }
}

// A filled shape with a hairline border inside its edge.
void Plate(cairo_t* cr, SArea const& a, double radius, bool round, _color const& fill, _color const& border) {
    ShapePath(cr, a, 0, radius, round);
    Source(cr, fill);
    cairo_fill(cr);
    if (border == fill) return;
    ShapePath(cr, a, a.line / 2, radius, round);
    Source(cr, border);
    cairo_set_line_width(cr, a.line);
    cairo_stroke(cr);
}

void FocusRing(cairo_t* cr, SArea const& a, double inset, double radius, bool round, _color const& c) {
    ShapePath(cr, a, inset + a.line / 2, radius, round);
    Source(cr, c);
    cairo_set_line_width(cr, a.line);
    cairo_stroke(cr);
}

// An open chevron or a filled triangle pointing in `d`, `half` wide on either side of its axis.
void Arrow(cairo_t* cr, double cx, double cy, double half, Direction d, bool filled, double width,
           _color const& c) {
    double const depth = half / 2;
    double const pts[4][6] = {
        {cx + depth, cy - half, cx - depth, cy, cx + depth, cy + half},
        {cx - half, cy + depth, cx, cy - depth, cx + half, cy + depth},
        {cx - depth, cy - half, cx + depth, cy, cx - depth, cy + half},
        {cx - half, cy - depth, cx, cy + depth, cx + half, cy - depth},
    };
    double const* p = pts[d];
    cairo_move_to(cr, p[0], p[1]);
    cairo_line_to(cr, p[2], p[3]);
    cairo_line_to(cr, p[4], p[5]);
    Source(cr, c);
    if (filled) {
        cairo_close_path(cr);
        cairo_fill(cr);
    } else {
        cairo_set_line_width(cr, width);
        cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
        cairo_stroke(cr);
    }
}

// A check box or a radio button: white and framed when off, filled with the accent when on.
void DrawMarkBox(cairo_t* cr, SArea const& a, SLook const& k, SState const& s, bool on, bool radio) {
    double const radius = 2 * a.scale;
    _color fill, border;
    if (on) {
        fill = s.disabled  ? MixColors(k.face, k.grey, 0.45)
               : s.pressed ? MixColors(k.accent, k.dark, 0.35)
               : s.hot     ? MixColors(k.accent, k.window, 0.18)
                           : k.accent;
        border = fill;
    } else {
        fill = s.disabled  ? k.face
               : s.pressed ? MixColors(k.window, k.accent, 0.2)
               : s.hot     ? MixColors(k.window, k.accent, 0.08)
                           : k.window;
        border = s.disabled ? k.border : s.hot || s.pressed ? k.accent : k.strongBorder;
    }
    Plate(cr, a, radius, radio, fill, border);
    _color const mark = s.disabled ? k.face : k.accentText;
    if (on && radio) {
        cairo_new_sub_path(cr);
        cairo_arc(cr, a.cx(), a.cy(), a.Short() * 0.2, 0, 2 * 3.141592653589793);
        Source(cr, mark);
        cairo_fill(cr);
    } else if (on) {
        cairo_move_to(cr, a.x + a.w * 0.24, a.y + a.h * 0.52);
        cairo_line_to(cr, a.x + a.w * 0.42, a.y + a.h * 0.70);
        cairo_line_to(cr, a.x + a.w * 0.76, a.y + a.h * 0.32);
        Source(cr, mark);
        cairo_set_line_width(cr, std::max(1.5 * a.scale, a.w / 8));
        cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
        cairo_stroke(cr);
    }
    if (s.focused) FocusRing(cr, a, a.line, radius, radio, on ? k.accentText : k.accent);
}

void DrawPushButton(cairo_t* cr, SArea const& a, SLook const& k, SState const& s) {
    double const radius = 3 * a.scale;
    _color const rest = MixColors(k.face, k.window, 0.5);
    _color const fill = s.disabled  ? k.face
                        : s.pressed ? MixColors(rest, k.accent, 0.25)
                        : s.checked ? MixColors(rest, k.accent, 0.16)
                        : s.hot     ? MixColors(rest, k.accent, 0.08)
                                    : rest;
    _color const border = s.disabled                        ? MixColors(k.border, k.face, 0.4)
                          : s.pressed || s.hot || s.checked ? k.accent
                                                            : k.border;
    Plate(cr, a, radius, false, fill, border);
    if (s.focused) FocusRing(cr, a, 2 * a.line, radius, false, k.accent);
}

// A header section: a flat band with a hairline under it and a divider near its right end. Headers draw
// their sections 4 pixels wider on either side than they are, to hide the ends; the divider stands that
// far in, so that it shows at the section's own edge there.
constexpr double HeaderOverlap = 4;

void DrawHeaderSection(cairo_t* cr, SArea const& a, SLook const& k, SState const& s, int sort) {
    _color const fill = s.pressed   ? MixColors(k.face, k.accent, 0.2)
                        : s.hot     ? MixColors(k.face, k.accent, 0.08)
                        : s.checked ? MixColors(k.face, k.accent, 0.12)
                                    : k.face;
    Source(cr, fill);
    cairo_rectangle(cr, a.x, a.y, a.w, a.h);
    cairo_fill(cr);
    Source(cr, k.border);
    cairo_rectangle(cr, a.x, a.y + a.h - a.line, a.w, a.line);
    double const divider = a.x + a.w - HeaderOverlap - a.line;
    cairo_rectangle(cr, divider, a.y, a.line, a.h);
    cairo_fill(cr);
    if (sort) {
        double const half = 4 * a.scale;
        Arrow(cr, divider - 4 * a.scale - half, a.cy(), half, sort > 0 ? Up : Down, true, 0,
              s.disabled ? k.grey : k.text);
    }
    if (s.focused) FocusRing(cr, a, 2 * a.line, 0, false, k.accent);
}

// The track, darker where it is pressed to page.
void DrawTrack(cairo_t* cr, SArea const& a, SLook const& k, bool pressed) {
    Source(cr, pressed ? MixColors(k.track, k.dark, 0.12) : k.track);
    cairo_rectangle(cr, a.x, a.y, a.w, a.h);
    cairo_fill(cr);
}

void DrawScrollArrow(cairo_t* cr, SArea const& a, SLook const& k, SState const& s, Direction d) {
    DrawTrack(cr, a, k, false);
    if (s.hot || s.pressed) {
        RoundedPath(cr, a.x + a.line, a.y + a.line, a.w - 2 * a.line, a.h - 2 * a.line, 2 * a.scale);
        Source(cr, MixColors(k.track, k.dark, s.pressed ? 0.3 : 0.15));
        cairo_fill(cr);
    }
    _color const glyph = s.disabled ? k.border : s.pressed ? k.text : k.dark;
    Arrow(cr, a.cx(), a.cy(), a.Short() * 0.22, d, true, 0, glyph);
}

void DrawThumb(cairo_t* cr, SArea const& a, SLook const& k, SState const& s, bool horizontal) {
    DrawTrack(cr, a, k, false);
    double const across = 2 * a.scale, along = a.line;
    double const w = a.w - 2 * (horizontal ? along : across), h = a.h - 2 * (horizontal ? across : along);
    RoundedPath(cr, a.x + (a.w - w) / 2, a.y + (a.h - h) / 2, w, h, std::min(w, h) / 2);
    double const depth = s.disabled ? 0.15 : s.pressed ? 0.75 : s.hot ? 0.55 : 0.35;
    Source(cr, MixColors(k.track, k.dark, depth));
    cairo_fill(cr);
}

// The small glyph buttons (drop-down, roll up and down, close): a rounded tint under the mouse and while
// pressed, the glyph in the text colour.
void DrawGlyphButton(cairo_t* cr, SArea const& a, SLook const& k, SState const& s,
                     IPainter::ControlElement e) {
    double const radius = 3 * a.scale;
    if (s.hot || s.pressed) {
        _color const tint = e == IPainter::ControlCloseCross ? k.text : k.accent;
        ShapePath(cr, a, 0, radius, false);
        Source(cr, MixColors(k.face, tint, s.pressed ? 0.25 : 0.12));
        cairo_fill(cr);
    }
    _color const glyph = s.disabled ? k.grey : k.text;
    double const stroke = 1.5 * a.scale, half = a.Short() * 0.2;
    switch (e) {
    case IPainter::ControlRollUp:
    case IPainter::ControlRollDown:
        cairo_new_sub_path(cr);
        cairo_arc(cr, a.cx(), a.cy(), a.Short() / 2 - a.line / 2 - a.line, 0, 2 * 3.141592653589793);
        Source(cr, s.disabled ? k.border : s.hot || s.pressed ? k.accent : k.border);
        cairo_set_line_width(cr, a.line);
        cairo_stroke(cr);
        Arrow(cr, a.cx(), a.cy(), half, e == IPainter::ControlRollUp ? Up : Down, false, stroke, glyph);
        break;
    case IPainter::ControlCloseCross:
        cairo_move_to(cr, a.cx() - half, a.cy() - half);
        cairo_line_to(cr, a.cx() + half, a.cy() + half);
        cairo_move_to(cr, a.cx() + half, a.cy() - half);
        cairo_line_to(cr, a.cx() - half, a.cy() + half);
        Source(cr, glyph);
        cairo_set_line_width(cr, stroke);
        cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
        cairo_stroke(cr);
        break;
    default:
        Arrow(cr, a.cx(), a.cy(), half, Down, false, stroke, glyph);
        break;
    }
    if (s.focused) FocusRing(cr, a, a.line, radius, false, k.accent);
}

} // namespace

void CCairoPainter::DrawControlElement(ControlElement element, double left, double top, double right,
                                       double bottom, int state) {
    SLook look = SLook::Current();
    if (IsSubstitutingColor()) {
        std::optional<_color> const c = Effective(look.face);
        if (!c) return;
        look.SubstituteAll(*c);
    }
    rectangle<int> const px = DevicePixels(left, top, right, bottom);
    double const scale = GetDPIScale() > 0 ? GetDPIScale() : 1.0;
    SArea const a{double(px.left),   double(px.top), px.Width() + 1.0,
                  px.Height() + 1.0, scale,          std::max(1.0, std::floor(scale))};
    SState const s(state, IsDisabled());

    cairo_t* const cr = m_surface.Context();
    cairo_save(cr);
    cairo_rectangle(cr, a.x, a.y, a.w, a.h);
    cairo_clip(cr);
    cairo_new_path(cr);
    cairo_set_dash(cr, nullptr, 0, 0);
    switch (element) {
    case ControlChecked:
    case ControlUnchecked:
        DrawMarkBox(cr, a, look, s, element == ControlChecked, false);
        break;
    case ControlRadioOn:
    case ControlRadioOff:
        DrawMarkBox(cr, a, look, s, element == ControlRadioOn, true);
        break;
    case ControlPushButton:
        DrawPushButton(cr, a, look, s);
        break;
    case ControlHeaderSection:
    case ControlHeaderSortUp:
    case ControlHeaderSortDown:
        DrawHeaderSection(cr, a, look, s,
                          element == ControlHeaderSortUp     ? 1
                          : element == ControlHeaderSortDown ? -1
                                                             : 0);
        break;
    case ControlScrollArrowLeft:
    case ControlScrollArrowRight:
    case ControlScrollArrowUp:
    case ControlScrollArrowDown: {
        static constexpr Direction directions[] = {Left, Right, Up, Down};
        DrawScrollArrow(cr, a, look, s, directions[element - ControlScrollArrowLeft]);
        break;
    }
    case ControlScrollTrackHorz:
    case ControlScrollTrackVert:
        DrawTrack(cr, a, look, s.pressed);
        break;
    case ControlScrollThumbHorz:
    case ControlScrollThumbVert:
        DrawThumb(cr, a, look, s, element == ControlScrollThumbHorz);
        break;
    case ControlDropDownArrow:
    case ControlRollUp:
    case ControlRollDown:
    case ControlCloseCross:
        DrawGlyphButton(cr, a, look, s, element);
        break;
    }
    cairo_restore(cr);
}

} // namespace mirel7::cairo
