#include <mirel7/palette.h>
#include <mirel7/text_flow.h>
#include <mirel7/text_formatter.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace mirel7 {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// Colours compare by their four bytes; here "no colour" must differ from a transparent black as well.
bool Same(_color const& a, _color const& b) {
    return a == b && a.empty == b.empty;
}

bool Turned(IPainter* painter) {
    return !STurn::FromTenths(painter->GetFont().extra).IsNone();
}

_color LinkColor() {
    ISysPalette* const system = GetSysPalette();
    return (system ? system : GetDefaultPalette())->GetColor(ISysPalette::ColorHotLight);
}

} // namespace

void CDefTextFormatter::Clear() {
    m_words.clear();
    m_styles.assign(1, SStyle{});
    m_closed = false;
    m_breakPending = false;
}

void CDefTextFormatter::BeforeFormatting(IPainter* painter) {
    if (!painter) return;
    m_font = m_fontSet = painter->GetFont();
    m_textColor = m_colorSet = painter->GetTextColor();
}

void CDefTextFormatter::AfterFormatting(IPainter* painter) {
    if (!painter) return;
    if (!(m_fontSet == m_font)) painter->SetFont(m_font);
    if (!Same(m_colorSet, m_textColor)) painter->SetTextColor(m_textColor);
    m_fontSet = m_font;
    m_colorSet = m_textColor;
}

bool CDefTextFormatter::FormatText(IPainter* painter, rectangle<double> const& r, std::string_view text,
                                   int flags, char const* delimiters, size<double>* taken) {
    if (!painter || !taken || Turned(painter)) return false;
    CDefTextFormatter::Clear();
    m_delimiters = delimiters && *delimiters ? delimiters : nullptr;
    m_flags = flags;
    SWord word;
    for (std::size_t pos = 0; GetNextWord(text, pos, word);)
        m_words.push_back(std::move(word));
    Measure(painter);

    rectangle<double> area = r;
    painter->ConvertCoord2(&area, false);
    m_area = area.Normalized();
    double const maxWidth = m_delimiters ? m_area.Width() : std::numeric_limits<double>::infinity();
    struct SLine {
        std::size_t first, last;
        double width;
    };
    std::vector<SLine> lines;
    size<double> block;
    for (std::size_t first = 0; first < m_words.size();) {
        std::size_t const last = GetTextLine(first, maxWidth);
        lines.push_back({first, last, LineWidth(first, last)});
        block.cx = std::max(block.cx, lines.back().width);
        first = last;
    }
    block.cy = m_lineHeight * static_cast<double>(lines.size());

    rectangle<double> const aligned = AlignBox(m_area, block, flags);
    double const left = std::round(aligned.left), top = std::round(aligned.top);
    constexpr double tolerance = 0.01;
    bool const fits = block.cx <= m_area.Width() + tolerance && block.cy <= m_area.Height() + tolerance;
    if ((flags & IPainter::ClipToRect) && !fits) painter->SetElementFlag(1);
    if (!(flags & IPainter::MeasureOnly)) {
        int const horizontal = flags & (IPainter::AlignLeft | IPainter::AlignRight | IPainter::AlignHCenter);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            double const lineLeft =
                std::round(AlignBox({left, top, left + block.cx, top}, {lines[i].width, 0}, horizontal).left);
            DrawTextLine(painter, lines[i].first, lines[i].last,
                         {lineLeft, top + m_lineHeight * static_cast<double>(i)});
        }
    }
    point<double> answer{block.cx, block.cy};
    painter->DeconvertCoord1(&answer, true);
    *taken = {std::abs(answer.x), std::abs(answer.y)};
    return true;
}

bool CDefTextFormatter::GetNextWord(std::string_view text, std::size_t& pos, SWord& word) {
    word = SWord{};
    word.style = CurrentStyle();
    word.breakBefore = m_breakPending;
    m_closed = false;
    while (pos < text.size()) {
        if (IsSpecial(text.data() + pos)) {
            EMarkup const markup = TakeMarkup(text, pos, word);
            if (markup == EMarkup::EndsWord) break;
            if (markup == EMarkup::Taken) continue;
        }
        char const c = text[pos];
        if (c == '\r') {
            ++pos;
            continue;
        }
        if (c == '\n') {
            if (IsEmpty(word)) {
                ++pos;
                MakeLineBreak(word);
            }
            break;
        }
        if (!AddCharacter(word, c)) break;
        ++pos;
    }
    m_breakPending = m_closed;
    return !IsEmpty(word);
}

bool CDefTextFormatter::IsSpecial(char const* /*p*/) const {
    return false;
}

CDefTextFormatter::EMarkup CDefTextFormatter::TakeMarkup(std::string_view /*text*/, std::size_t& /*pos*/,
                                                         SWord& /*word*/) {
    return EMarkup::None;
}

bool CDefTextFormatter::IsDelimiter(char c) const {
    return m_delimiters && c != '\0' && std::strchr(m_delimiters, c);
}

bool CDefTextFormatter::AddCharacter(SWord& word, char c) {
    bool const blank = IsBlank(c);
    if (m_closed) {
        if (!blank) return false;
        ++word.blanks;
        return true;
    }
    if (blank && IsDelimiter(c)) {
        ++word.blanks;
        m_closed = true;
        return true;
    }
    word.text += c;
    m_closed = IsDelimiter(c);
    return true;
}

bool CDefTextFormatter::AddText(SWord& word, std::string_view text) {
    if (m_closed) return false;
    word.text += text;
    return true;
}

void CDefTextFormatter::MakeLineBreak(SWord& word) {
    word.newLine = true;
    word.breakBefore = true;
}

void CDefTextFormatter::SetStyle(SStyle const& style) {
    if (!(m_styles.back() == style)) m_styles.push_back(style);
}

void CDefTextFormatter::UseStyle(IPainter* painter, SStyle const& style) {
    font f = m_font;
    f.style |= style.fontStyle;
    if (!(f == m_fontSet)) {
        painter->SetFont(f);
        m_fontSet = f;
    }
}

void CDefTextFormatter::Measure(IPainter* painter) {
    m_lineHeight = painter->GetTextSize("W", 0, -1, false, false).cy;
    // The width of a blank in each font style met, measured once.
    std::vector<std::pair<int, double>> blankWidths;
    for (SWord& word : m_words) {
        SStyle const& style = m_styles[std::size_t(word.style)];
        if (!word.text.empty() || word.blanks) UseStyle(painter, style);
        if (!word.text.empty()) word.width = painter->GetTextSize(word.text, 0, -1, false, false).cx;
        if (!word.blanks) continue;
        auto found = std::find_if(blankWidths.begin(), blankWidths.end(),
                                  [&](auto const& known) { return known.first == style.fontStyle; });
        if (found == blankWidths.end())
            found = blankWidths.insert(blankWidths.end(),
                                       {style.fontStyle, painter->GetTextSize(" ", 0, -1, false, false).cx});
        word.blankWidth = found->second * word.blanks;
    }
}

std::size_t CDefTextFormatter::GetTextLine(std::size_t first, double maxWidth) const {
    double x = m_words[first].width + m_words[first].blankWidth;
    std::size_t lastBreak = first;
    std::size_t k = first + 1;
    for (; k < m_words.size(); ++k) {
        SWord const& word = m_words[k];
        if (word.newLine) break;
        if (word.breakBefore) lastBreak = k;
        if (x + word.width > maxWidth && lastBreak > first) return lastBreak;
        x += word.width + word.blankWidth;
    }
    return k;
}

double CDefTextFormatter::LineWidth(std::size_t first, std::size_t last) const {
    double width = 0;
    for (std::size_t k = first; k < last; ++k)
        width += m_words[k].width + (k + 1 < last ? m_words[k].blankWidth : 0);
    return width;
}

void CDefTextFormatter::DrawTextLine(IPainter* painter, std::size_t first, std::size_t last,
                                     point<double> const& at) {
    std::string run;
    std::size_t runStyle = 0;
    double runLeft = at.x, x = at.x;
    auto const flush = [&] {
        if (!run.empty()) DrawRun(painter, m_styles[runStyle], run, {runLeft, at.y, x, at.y + m_lineHeight});
        run.clear();
    };
    for (std::size_t k = first; k < last; ++k) {
        SWord const& word = m_words[k];
        if (!run.empty() && !(m_styles[std::size_t(word.style)] == m_styles[runStyle])) flush();
        if (run.empty()) {
            runStyle = std::size_t(word.style);
            runLeft = x;
        }
        run += word.text;
        x += word.width;
        if (k + 1 < last) {
            run.append(std::size_t(word.blanks), ' ');
            x += word.blankWidth;
        }
    }
    flush();
}

void CDefTextFormatter::DrawRun(IPainter* painter, SStyle const& style, std::string const& text,
                                rectangle<double> const& box) {
    int flags = IPainter::AlignLeft | IPainter::AlignTop;
    rectangle<double> place = box;
    if (m_flags & IPainter::ClipToRect) {
        rectangle<double> const& a = m_area;
        if (box.right <= a.left || box.left >= a.right || box.bottom <= a.top || box.top >= a.bottom) return;
        if (box.left < a.left || box.right > a.right || box.top < a.top || box.bottom > a.bottom) {
            // The part inside, with the text held at the side that is not cut so that it stays in place.
            place = {std::max(box.left, a.left), std::max(box.top, a.top), std::min(box.right, a.right),
                     std::min(box.bottom, a.bottom)};
            flags = IPainter::ClipToRect |
                    (box.left < a.left && box.right <= a.right ? IPainter::AlignRight : IPainter::AlignLeft) |
                    (box.top < a.top && box.bottom <= a.bottom ? IPainter::AlignBottom : IPainter::AlignTop);
        }
    }
    UseStyle(painter, style);
    _color const color = style.color.empty || painter->IsDisabled() ? m_textColor : style.color;
    if (!Same(color, m_colorSet)) {
        painter->SetTextColor(color);
        m_colorSet = color;
    }
    painter->DeconvertCoord2(&place, false);
    painter->DrawString(place, text.c_str(), flags, static_cast<int>(text.size()));
    RunDrawn(style, {static_cast<int>(std::round(box.left)), static_cast<int>(std::round(box.top)),
                     static_cast<int>(std::round(box.right)), static_cast<int>(std::round(box.bottom))});
}

void CDefTextFormatter::RunDrawn(SStyle const& /*style*/, rectangle<int> const& /*box*/) {}

void CHTMLTextFormatter::Clear() {
    CDefTextFormatter::Clear();
    m_links.clear();
    m_bold = m_italic = m_underline = 0;
    m_colors.clear();
    m_link = -1;
    m_pieceLink = -1;
}

bool CHTMLTextFormatter::FormatText(IPainter* painter, rectangle<double> const& r, std::string_view text,
                                    int flags, char const* delimiters, size<double>* taken) {
    if (!painter || !taken) return false;
    if (Turned(painter)) {
        // Turned text has no place for styles and links: it shows what the markup says as plain text.
        std::string const plain = RemoveLinks(std::string(text));
        *taken = painter->DrawStringEx(r, plain.c_str(), flags, static_cast<int>(plain.size()), delimiters,
                                       nullptr);
        return true;
    }
    Clear();
    m_reader = CMarkupReader(text);
    m_tagsBreak = delimiters && (std::strchr(delimiters, '<') || std::strchr(delimiters, '>'));
    return CDefTextFormatter::FormatText(painter, r, text, flags, delimiters, taken);
}

bool CHTMLTextFormatter::IsSpecial(char const* p) const {
    return *p == '<' || *p == '&';
}

CDefTextFormatter::EMarkup CHTMLTextFormatter::TakeMarkup(std::string_view /*text*/, std::size_t& pos,
                                                          SWord& word) {
    std::optional<SMarkup> const markup = m_reader.Read(pos);
    if (!markup) return EMarkup::None;
    if (markup->kind == SMarkup::Entity) {
        if (!AddText(word, markup->text)) return EMarkup::EndsWord;
        pos += markup->length;
        return EMarkup::Taken;
    }
    if (!IsEmpty(word)) return EMarkup::EndsWord;
    pos += markup->length;
    if (markup->kind == SMarkup::LineBreak) {
        MakeLineBreak(word);
        return EMarkup::EndsWord;
    }
    Apply(*markup);
    word.style = CurrentStyle();
    if (m_tagsBreak) word.breakBefore = true;
    return EMarkup::Taken;
}

void CHTMLTextFormatter::Apply(SMarkup const& markup) {
    auto const down = [](int& count) { count = std::max(count - 1, 0); };
    switch (markup.kind) {
    case SMarkup::LinkStart:
        // Links do not nest: a link opened inside another takes its place until the next end of a link.
        m_links.push_back(markup.text);
        m_link = static_cast<int>(m_links.size()) - 1;
        break;
    case SMarkup::LinkEnd:
        m_link = -1;
        break;
    case SMarkup::BoldStart:
        ++m_bold;
        break;
    case SMarkup::BoldEnd:
        down(m_bold);
        break;
    case SMarkup::ItalicStart:
        ++m_italic;
        break;
    case SMarkup::ItalicEnd:
        down(m_italic);
        break;
    case SMarkup::UnderlineStart:
        ++m_underline;
        break;
    case SMarkup::UnderlineEnd:
        down(m_underline);
        break;
    case SMarkup::FontStart:
        // A colour that cannot be read keeps the one in force, so that the end tag still pairs.
        m_colors.push_back(markup.color.empty && !m_colors.empty() ? m_colors.back() : markup.color);
        break;
    case SMarkup::FontEnd:
        if (!m_colors.empty()) m_colors.pop_back();
        break;
    case SMarkup::Entity:
    case SMarkup::LineBreak:
        break;
    }
    SStyle style;
    style.fontStyle = (m_bold ? font::StyleBold : 0) | (m_italic ? font::StyleItalic : 0) |
                      (m_underline || m_link >= 0 ? font::StyleUnderline : 0);
    style.color = m_link >= 0 ? LinkColor() : m_colors.empty() ? _color{} : m_colors.back();
    style.link = m_link;
    SetStyle(style);
}

void CHTMLTextFormatter::DrawTextLine(IPainter* painter, std::size_t first, std::size_t last,
                                      point<double> const& at) {
    CDefTextFormatter::DrawTextLine(painter, first, last, at);
    FlushLink();
}

void CHTMLTextFormatter::RunDrawn(SStyle const& style, rectangle<int> const& box) {
    if (style.link == m_pieceLink && m_pieceLink >= 0) {
        m_piece.right = box.right;
        return;
    }
    FlushLink();
    m_pieceLink = style.link;
    m_piece = box;
}

void CHTMLTextFormatter::FlushLink() {
    if (m_pieceLink >= 0) {
        std::string const& link = m_links[std::size_t(m_pieceLink)];
        OwnerDrawLink(link.c_str(), static_cast<int>(link.size()), m_piece);
    }
    m_pieceLink = -1;
}

void CHTMLTextFormatter::OwnerDrawLink(char const* /*link*/, int /*length*/, rectangle<int> const& /*rect*/) {
}

} // namespace mirel7
