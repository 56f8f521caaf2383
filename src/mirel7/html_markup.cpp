#include <mirel7/html_markup.h>

#include <algorithm>
#include <charconv>

namespace mirel7 {

namespace {

// The longest entity read: "&#1114111;".
constexpr std::size_t MaxEntityLength = 10;

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return (x | 0x20) == (y | 0x20); });
}

std::string_view SkipBlanks(std::string_view s) {
    while (!s.empty() && IsBlank(s.front()))
        s.remove_prefix(1);
    return s;
}

std::string Utf8(unsigned code) {
    std::string s;
    if (code < 0x80) {
        s += char(code);
    } else if (code < 0x800) {
        s += char(0xC0 | code >> 6);
        s += char(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        s += char(0xE0 | code >> 12);
        s += char(0x80 | (code >> 6 & 0x3F));
        s += char(0x80 | (code & 0x3F));
    } else {
        s += char(0xF0 | code >> 18);
        s += char(0x80 | (code >> 12 & 0x3F));
        s += char(0x80 | (code >> 6 & 0x3F));
        s += char(0x80 | (code & 0x3F));
    }
    return s;
}

std::optional<std::string> EntityText(std::string_view name) {
    static constexpr std::pair<std::string_view, std::string_view> named[] = {
        {"lt", "<"}, {"gt", ">"}, {"amp", "&"}, {"quot", "\""}, {"nbsp", "\xC2\xA0"}};
    for (auto const& [key, text] : named)
        if (name == key) return std::string(text);
    if (name.size() < 2 || name[0] != '#') return std::nullopt;
    unsigned code = 0;
    auto const [end, error] = std::from_chars(name.data() + 1, name.data() + name.size(), code);
    if (error != std::errc() || end != name.data() + name.size() || code == 0 || code > 0x10FFFF ||
        (code >= 0xD800 && code <= 0xDFFF))
        return std::nullopt;
    return Utf8(code);
}

// The entities of an attribute's value decoded, the rest kept.
std::string Decoded(std::string_view value) {
    std::string text;
    CMarkupReader reader(value);
    for (std::size_t i = 0; i < value.size();) {
        std::optional<SMarkup> const entity = value[i] == '&' ? reader.Read(i) : std::nullopt;
        if (entity) {
            text += entity->text;
            i += entity->length;
        } else {
            text += value[i++];
        }
    }
    return text;
}

std::optional<_color> HexColor(std::string_view text) {
    unsigned value = 0;
    if (text.size() != 7 || text[0] != '#') return std::nullopt;
    auto const [end, error] = std::from_chars(text.data() + 1, text.data() + 7, value, 16);
    if (error != std::errc() || end != text.data() + 7) return std::nullopt;
    return _color(std::uint8_t(value >> 16), std::uint8_t(value >> 8), std::uint8_t(value));
}

// The attributes of a link or font tag: `wanted`'s value, empty when it is not there; nothing when the
// attributes cannot be read.
std::optional<std::string_view> Attribute(std::string_view rest, std::string_view wanted) {
    std::string_view found;
    for (rest = SkipBlanks(rest); !rest.empty(); rest = SkipBlanks(rest)) {
        std::size_t nameEnd = 0;
        while (nameEnd < rest.size() && (IsLetter(rest[nameEnd]) || rest[nameEnd] == '-'))
            ++nameEnd;
        if (nameEnd == 0) return std::nullopt;
        std::string_view const name = rest.substr(0, nameEnd);
        rest = SkipBlanks(rest.substr(nameEnd));
        std::string_view value;
        if (!rest.empty() && rest.front() == '=') {
            rest = SkipBlanks(rest.substr(1));
            if (rest.empty()) return std::nullopt;
            if (rest.front() == '"' || rest.front() == '\'') {
                std::size_t const close = rest.find(rest.front(), 1);
                if (close == std::string_view::npos) return std::nullopt;
                value = rest.substr(1, close - 1);
                rest.remove_prefix(close + 1);
            } else {
                std::size_t end = 0;
                while (end < rest.size() && !IsBlank(rest[end]))
                    ++end;
                value = rest.substr(0, end);
                rest.remove_prefix(end);
            }
            if (!rest.empty() && !IsBlank(rest.front())) return std::nullopt;
        }
        if (SameName(name, wanted)) found = value;
    }
    return found;
}

} // namespace

std::size_t CMarkupReader::Next(char c, std::size_t from, SNext& next) const {
    if (!next.known || (next.at != std::string_view::npos && next.at < from)) {
        next.at = m_text.find(c, from);
        next.known = true;
    }
    return next.at;
}

std::optional<SMarkup> CMarkupReader::Read(std::size_t pos) {
    if (pos >= m_text.size()) return std::nullopt;
    if (m_text[pos] == '&') return ReadEntity(pos);
    if (m_text[pos] != '<') return std::nullopt;
    return ReadTag(pos);
}

std::optional<SMarkup> CMarkupReader::ReadEntity(std::size_t pos) const {
    std::string_view const rest = m_text.substr(pos + 1, MaxEntityLength - 1);
    std::size_t const end = rest.find(';');
    if (end == std::string_view::npos) return std::nullopt;
    std::optional<std::string> text = EntityText(rest.substr(0, end));
    if (!text) return std::nullopt;
    SMarkup markup;
    markup.length = end + 2;
    markup.text = std::move(*text);
    return markup;
}

std::optional<SMarkup> CMarkupReader::ReadTag(std::size_t pos) {
    std::size_t const close = Next('>', pos + 1, m_nextClose);
    if (close == std::string_view::npos || Next('<', pos + 1, m_nextOpen) < close) return std::nullopt;
    std::string_view content = m_text.substr(pos + 1, close - pos - 1);
    bool const closing = !content.empty() && content.front() == '/';
    if (closing) content.remove_prefix(1);
    std::size_t nameEnd = 0;
    while (nameEnd < content.size() && IsLetter(content[nameEnd]))
        ++nameEnd;
    std::string_view const name = content.substr(0, nameEnd), rest = content.substr(nameEnd);
    if (!rest.empty() && !IsBlank(rest.front()) && rest.front() != '/') return std::nullopt;
    bool const bare = SkipBlanks(rest).empty();

    SMarkup markup;
    markup.length = close - pos + 1;
    static constexpr std::pair<std::string_view, SMarkup::EKind> simple[] = {
        {"b", SMarkup::BoldStart}, {"i", SMarkup::ItalicStart}, {"u", SMarkup::UnderlineStart}};
    for (auto const& [key, kind] : simple)
        if (SameName(name, key) && bare) {
            markup.kind = closing ? SMarkup::EKind(kind + 1) : kind;
            return markup;
        }
    if (closing) {
        if (!bare) return std::nullopt;
        if (SameName(name, "a"))
            markup.kind = SMarkup::LinkEnd;
        else if (SameName(name, "font"))
            markup.kind = SMarkup::FontEnd;
        else
            return std::nullopt;
        return markup;
    }
    if (SameName(name, "br") && (bare || SkipBlanks(SkipBlanks(rest).substr(1)).empty())) {
        markup.kind = SMarkup::LineBreak;
        return markup;
    }
    bool const link = SameName(name, "a");
    if (!link && !SameName(name, "font")) return std::nullopt;
    std::optional<std::string_view> const value = Attribute(rest, link ? "href" : "color");
    if (!value) return std::nullopt;
    if (link) {
        markup.kind = SMarkup::LinkStart;
        markup.text = Decoded(*value);
    } else {
        markup.kind = SMarkup::FontStart;
        markup.color = HexColor(*value).value_or(_color{});
    }
    return markup;
}

std::string RemoveLinks(std::string const& text) {
    std::string plain;
    plain.reserve(text.size());
    CMarkupReader reader(text);
    for (std::size_t i = 0; i < text.size();) {
        std::optional<SMarkup> const markup = reader.Read(i);
        if (!markup) {
            plain += text[i++];
            continue;
        }
        if (markup->kind == SMarkup::Entity) plain += markup->text;
        if (markup->kind == SMarkup::LineBreak) plain += '\n';
        i += markup->length;
    }
    return plain;
}

} // namespace mirel7
