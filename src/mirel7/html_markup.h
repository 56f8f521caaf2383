#pragma once

#include <mirel7/export.h>
#include <mirel7/types.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mirel7 {

// One piece of markup of HTML-like text: a tag the text formatter knows, or an entity.
struct SMarkup {
    enum EKind {
        Entity,
        LinkStart,
        LinkEnd,
        BoldStart,
        BoldEnd,
        ItalicStart,
        ItalicEnd,
        UnderlineStart,
        UnderlineEnd,
        LineBreak,
        FontStart,
        FontEnd,
    };
    EKind kind = Entity;
    // Bytes of the text it stands for.
    std::size_t length = 0;
    // An entity's character in UTF-8, a link's address, with entities decoded.
    std::string text;
    // The colour of a font tag, empty when it gives none that can be read.
    _color color;
};

// Reads the markup of a text front to back. Anything that is not a known tag or entity is plain text: an
// unknown or unclosed tag, a lone '<' or '&'. A tag holds no '<', and the reader remembers where the next
// '<' and '>' are, so that reading a whole text costs time in proportion to its length whatever it holds.
class MIREL7_API CMarkupReader {
public:
    explicit CMarkupReader(std::string_view text) : m_text(text) {}

    // The markup that starts at `pos`, or nothing when the character there is plain text. Positions asked
    // for never go back.
    std::optional<SMarkup> Read(std::size_t pos);

private:
    // Where a character was last found; npos once there is none ahead.
    struct SNext {
        bool known = false;
        std::size_t at = 0;
    };

    std::optional<SMarkup> ReadTag(std::size_t pos);
    std::optional<SMarkup> ReadEntity(std::size_t pos) const;
    std::size_t Next(char c, std::size_t from, SNext& next) const;

    std::string_view m_text;
    SNext m_nextOpen, m_nextClose;
};

// The text with the tags taken out and the entities decoded; a line break tag becomes a line feed.
MIREL7_API std::string RemoveLinks(std::string const& text);

} // namespace mirel7
