#pragma once

#include <mirel7/export.h>
#include <mirel7/html_markup.h>
#include <mirel7/painter.h>
#include <mirel7/types.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mirel7 {

// Lays out the text of DrawStringEx word by word through the painter's own text calls: words are measured
// once each, lines are filled greedily and broken after a delimiter, and each line is drawn as runs of
// words of one style. The default formatter knows one style, the painter's; formatters deriving from it
// read styles out of the text.
//
// Lines stand in device pixels and are aligned as DrawStringEx aligns them. Text turned by the font's
// extra field is left to the painter.
class MIREL7_API CDefTextFormatter : public IPainter::ITextFormatter {
public:
    // The font and colour a word is drawn in. `color` empty takes the painter's text colour; `link` is an
    // index into the addresses of the text, -1 outside links.
    struct SStyle {
        int fontStyle = 0;
        _color color;
        int link = -1;
        friend bool operator==(SStyle const&, SStyle const&) = default;
    };

    // A piece of text of one style that lines break only around.
    struct SWord {
        std::string text;
        // Blanks after the text: drawn between words, left out at the end of a line.
        int blanks = 0;
        int style = 0;
        // A line may end before this word.
        bool breakBefore = false;
        // This word starts a line whatever room is left (a line feed; its text is empty).
        bool newLine = false;
        // Device pixels.
        double width = 0;
        double blankWidth = 0;
    };

    // Forgets the text last formatted.
    virtual void Clear();
    // Remember the painter's font and text colour, and give them back.
    void BeforeFormatting(IPainter* painter) override;
    void AfterFormatting(IPainter* painter) override;
    bool FormatText(IPainter* painter, rectangle<double> const& r, std::string_view text, int flags,
                    char const* delimiters, size<double>* taken) override;

    std::vector<SWord> const& GetWords() const { return m_words; }
    std::vector<SStyle> const& GetStyles() const { return m_styles; }

protected:
    // Reads the word that starts at `pos` into `word` and moves `pos` past it; false at the end of the text.
    virtual bool GetNextWord(std::string_view text, std::size_t& pos, SWord& word);
    // Whether markup may start at `p`, which points into the text being read; such a place goes to
    // TakeMarkup first.
    virtual bool IsSpecial(char const* p) const;
    enum class EMarkup { None, Taken, EndsWord };
    // Takes the markup at `pos` into `word` (moving `pos` past it) or ends the word before it; None when
    // the text there is plain after all.
    virtual EMarkup TakeMarkup(std::string_view text, std::size_t& pos, SWord& word);
    // The end of the line that starts with word `first`: the last break that keeps it within `maxWidth`,
    // or past the first word however wide that is.
    std::size_t GetTextLine(std::size_t first, double maxWidth) const;
    // Draws the words [first, last) as one line with its top left at the device point `at`.
    virtual void DrawTextLine(IPainter* painter, std::size_t first, std::size_t last,
                              point<double> const& at);
    // A run of the line was drawn at `box` (device pixels, right and bottom exclusive) in `style`.
    virtual void RunDrawn(SStyle const& style, rectangle<int> const& box);

    // Makes `style` the style of the words that follow.
    void SetStyle(SStyle const& style);
    int CurrentStyle() const { return static_cast<int>(m_styles.size()) - 1; }
    // Appends text read from the source to `word`: false when the word ended before it.
    bool AddText(SWord& word, std::string_view text);
    // Makes `word` a line feed.
    void MakeLineBreak(SWord& word);
    static bool IsEmpty(SWord const& word) { return word.text.empty() && word.blanks == 0 && !word.newLine; }

private:
    bool AddCharacter(SWord& word, char c);
    bool IsDelimiter(char c) const;
    void Measure(IPainter* painter);
    void UseStyle(IPainter* painter, SStyle const& style);
    double LineWidth(std::size_t first, std::size_t last) const;
    void DrawRun(IPainter* painter, SStyle const& style, std::string const& text,
                 rectangle<double> const& box);

    std::vector<SWord> m_words;
    std::vector<SStyle> m_styles{SStyle{}};
    char const* m_delimiters = nullptr;
    // The word being read reached a delimiter: only blanks join it from here.
    bool m_closed = false;
    bool m_breakPending = false;
    // The painter's state before formatting, and what formatting set on it.
    font m_font;
    _color m_textColor;
    font m_fontSet;
    _color m_colorSet;
    bool m_painterChanged = false;
    // The laid-out block: its device area, line height and the flags of the call.
    rectangle<double> m_area;
    double m_lineHeight = 0;
    int m_flags = 0;
};

// The formatter of HTML-like text: links (<a href="...">), bold, italic, underline, line breaks, font
// colours, and the entities of html_markup.h; markup it does not know is shown as text. Links are
// reported through OwnerDrawLink while the text is drawn, never while it is only measured: one call for
// each line a link spans.
class MIREL7_API CHTMLTextFormatter : public CDefTextFormatter {
public:
    void Clear() override;
    bool FormatText(IPainter* painter, rectangle<double> const& r, std::string_view text, int flags,
                    char const* delimiters, size<double>* taken) override;
    // The addresses of the links of the text last formatted.
    std::vector<std::string> const& GetLinks() const { return m_links; }

protected:
    bool IsSpecial(char const* p) const override;
    EMarkup TakeMarkup(std::string_view text, std::size_t& pos, SWord& word) override;
    void RunDrawn(SStyle const& style, rectangle<int> const& box) override;
    void DrawTextLine(IPainter* painter, std::size_t first, std::size_t last,
                      point<double> const& at) override;
    // A piece of a link was drawn: `length` bytes of `link` are its address, `rect` its box in control
    // (device) pixels, right and bottom exclusive.
    virtual void OwnerDrawLink(char const* link, int length, rectangle<int> const& rect);

private:
    void Apply(SMarkup const& markup);
    void FlushLink();

    CMarkupReader m_reader{{}};
    std::string_view m_text;
    std::vector<std::string> m_links;
    int m_bold = 0, m_italic = 0, m_underline = 0;
    std::vector<_color> m_colors;
    int m_link = -1;
    bool m_tagsBreak = false;
    // The link piece being drawn on the current line.
    int m_pieceLink = -1;
    rectangle<int> m_piece;
};

} // namespace mirel7
