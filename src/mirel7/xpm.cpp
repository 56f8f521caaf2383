#include <mirel7/assert.h>
#include <mirel7/palette.h>
#include <mirel7/system.h>
#include <mirel7/xpm.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>
#include <unordered_map>

namespace mirel7 {

namespace {

// Bounds that keep a hostile header from asking for more memory than any picture of a control needs.
constexpr long MaxSide = 8192;
constexpr long MaxPixels = 1L << 24;
constexpr long MaxColors = 1L << 16;
// Keys of up to four characters fit in one word.
constexpr long MaxCharsPerPixel = 4;

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::vector<std::string_view> Tokens(std::string_view line) {
    std::vector<std::string_view> tokens;
    for (std::size_t i = 0; i < line.size();) {
        while (i < line.size() && IsBlank(line[i]))
            ++i;
        std::size_t const start = i;
        while (i < line.size() && !IsBlank(line[i]))
            ++i;
        if (i > start) tokens.push_back(line.substr(start, i - start));
    }
    return tokens;
}

std::string Lowered(std::string_view s) {
    std::string lowered(s);
    for (char& c : lowered)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lowered;
}

std::optional<long> Count(std::string_view token) {
    long value = 0;
    auto const [end, error] = std::from_chars(token.data(), token.data() + token.size(), value);
    if (error != std::errc() || end != token.data() + token.size() || value < 0) return std::nullopt;
    return value;
}

std::uint32_t Opaque(_color const& c) {
    return 0xFF000000u | std::uint32_t(c.r) << 16 | std::uint32_t(c.g) << 8 | c.b;
}

// A colour of the table: "None" (transparent, answered as the empty colour) or #RRGGBB.
std::optional<_color> ParseColor(std::string_view text) {
    if (Lowered(text) == "none") return _color{};
    if (text.size() != 7 || text[0] != '#') return std::nullopt;
    unsigned value = 0;
    auto const [end, error] = std::from_chars(text.data() + 1, text.data() + 7, value, 16);
    if (error != std::errc() || end != text.data() + 7) return std::nullopt;
    return _color(std::uint8_t(value >> 16), std::uint8_t(value >> 8), std::uint8_t(value));
}

std::uint32_t KeyWord(std::string_view key) {
    std::uint32_t word = 0;
    for (char c : key)
        word = word << 8 | static_cast<unsigned char>(c);
    return word;
}

struct SEntry {
    std::string_view key;
    _color color; // empty: transparent
};

// A decoded picture, or the reason it could not be.
struct SDecoded {
    std::shared_ptr<XPMImage::SPixels> pixels;
    std::vector<SEntry> table;
    char const* failure = nullptr;
};

class CDecoder {
public:
    CDecoder(XPMBuf const& buf, XpmColorConvMap const& colors, XpmMaskKeysSet const& mask)
        : m_buf(buf), m_colors(colors), m_mask(mask) {}

    SDecoded Run() {
        SDecoded result;
        result.failure = Decode(result);
        if (result.failure) result.pixels.reset();
        return result;
    }

private:
    char const* Decode(SDecoded& result) {
        if (m_buf.GetLineCount() == 0) return "XPM picture without a header";
        std::vector<std::string_view> const header = Tokens(m_buf.GetLine(0));
        bool const extensions = header.size() == 5 || header.size() == 7;
        if (header.size() < 4 || header.size() > 7 || (extensions && header.back() != "XPMEXT"))
            return "XPM header without four or six counts";
        std::array<long, 4> counts{};
        for (std::size_t i = 0; i < header.size() - (extensions ? 1 : 0); ++i) {
            std::optional<long> const value = Count(header[i]);
            if (!value) return "XPM header count that is not a number";
            if (i < 4) counts[i] = *value;
        }
        auto const [width, height, colors, charsPerPixel] = counts;
        if (width < 1 || height < 1 || width > MaxSide || height > MaxSide || width * height > MaxPixels)
            return "XPM picture size out of range";
        if (colors < 1 || colors > MaxColors) return "XPM colour count out of range";
        if (charsPerPixel < 1 || charsPerPixel > MaxCharsPerPixel)
            return "XPM characters per pixel out of range";
        if (m_buf.GetLineCount() < std::size_t(1 + colors + height))
            return "XPM picture shorter than its header";

        m_charsPerPixel = std::size_t(charsPerPixel);
        if (m_charsPerPixel <= 2) m_direct.assign(std::size_t(1) << (8 * m_charsPerPixel), -1);
        for (long i = 0; i < colors; ++i)
            if (char const* failure = ReadEntry(m_buf.GetLine(std::size_t(1 + i)), result.table))
                return failure;

        // The rows are measured before the pixels are made, so that a header claiming a large picture over
        // a few short lines costs no memory.
        for (long y = 0; y < height; ++y)
            if (m_buf.GetLine(std::size_t(1 + colors + y)).size() != std::size_t(width) * m_charsPerPixel)
                return "XPM row of the wrong length";
        auto pixels = std::make_shared<XPMImage::SPixels>();
        pixels->width = int(width);
        pixels->height = int(height);
        pixels->words.resize(std::size_t(width * height));
        std::vector<std::uint32_t> words(result.table.size());
        for (std::size_t i = 0; i < words.size(); ++i)
            words[i] = result.table[i].color.empty ? 0 : Opaque(result.table[i].color);
        for (long y = 0; y < height; ++y) {
            std::string_view const row = m_buf.GetLine(std::size_t(1 + colors + y));
            std::uint32_t* const out = pixels->words.data() + y * width;
            for (long x = 0; x < width; ++x) {
                int const index = Find(row.substr(std::size_t(x) * m_charsPerPixel, m_charsPerPixel));
                if (index < 0) return "XPM pixel key missing from the colour table";
                out[x] = words[std::size_t(index)];
            }
        }
        result.pixels = std::move(pixels);
        return nullptr;
    }

    char const* ReadEntry(std::string_view line, std::vector<SEntry>& table) {
        if (line.size() < m_charsPerPixel) return "XPM colour line shorter than its key";
        std::string_view const key = line.substr(0, m_charsPerPixel);
        std::vector<std::string_view> const tokens = Tokens(line.substr(m_charsPerPixel));
        if (tokens.empty() || tokens.size() % 2) return "XPM colour line without key and value pairs";
        // The colour visual first, then the grey ones, then the monochrome one.
        static constexpr std::string_view order[] = {"c", "g", "g4", "m"};
        std::string_view symbol, visuals[std::size(order)];
        for (std::size_t i = 0; i < tokens.size(); i += 2) {
            std::string_view const kind = tokens[i];
            auto const known = std::find(std::begin(order), std::end(order), kind);
            if (known != std::end(order))
                visuals[known - std::begin(order)] = tokens[i + 1];
            else if (kind == "s")
                symbol = tokens[i + 1];
            else
                return "XPM colour of an unknown key";
        }

        std::optional<_color> color;
        if (_color const* converted = symbol.empty() ? nullptr : m_colors.Find(symbol)) color = *converted;
        for (std::string_view const value : visuals) {
            if (color || value.empty()) continue;
            _color const* converted = m_colors.Find(value);
            color = converted ? std::optional<_color>(*converted) : ParseColor(value);
            if (!color) return "XPM colour that cannot be read";
        }
        if (!color) return "XPM colour line without a colour";
        if (m_mask.contains(key)) color = _color{};

        int const index = static_cast<int>(table.size());
        if (m_charsPerPixel <= 2) {
            int& slot = m_direct[KeyWord(key)];
            if (slot >= 0) return "XPM colour table with a key twice";
            slot = index;
        } else if (!m_keyed.emplace(KeyWord(key), index).second) {
            return "XPM colour table with a key twice";
        }
        table.push_back({key, *color});
        return nullptr;
    }

    int Find(std::string_view key) const {
        if (m_charsPerPixel <= 2) return m_direct[KeyWord(key)];
        auto const found = m_keyed.find(KeyWord(key));
        return found == m_keyed.end() ? -1 : found->second;
    }

    XPMBuf const& m_buf;
    XpmColorConvMap const& m_colors;
    XpmMaskKeysSet const& m_mask;
    std::size_t m_charsPerPixel = 1;
    // Table index by key: directly for keys of one or two characters, hashed for longer ones.
    std::vector<int> m_direct;
    std::unordered_map<std::uint32_t, int> m_keyed;
};

std::string ColorText(_color const& c) {
    if (c.empty) return "None";
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", c.r, c.g, c.b);
    return text;
}

} // namespace

XPMBuf::XPMBuf(char const** lines, bool copy) {
    std::size_t count = 0;
    while (lines && lines[count])
        ++count;
    if (copy)
        *this = XPMBuf(std::vector<std::string>(lines, lines + count));
    else
        *this = XPMBuf(lines, count, Counted{});
}

XPMBuf::XPMBuf(char const* const* lines, std::size_t count, Counted) {
    m_lines.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        m_lines.emplace_back(lines[i] ? std::string_view(lines[i]) : std::string_view());
}

XPMBuf::XPMBuf(std::vector<std::string> lines)
    : m_owned(std::make_shared<std::vector<std::string> const>(std::move(lines))) {
    m_lines.assign(m_owned->begin(), m_owned->end());
}

void XpmColorConvMap::Set(std::string_view key, _color const& color) {
    m_colors[Lowered(key)] = color;
}

_color const* XpmColorConvMap::Find(std::string_view key) const {
    if (m_colors.empty()) return nullptr;
    auto const found = m_colors.find(Lowered(key));
    return found == m_colors.end() ? nullptr : &found->second;
}

XPMImage::XPMImage(XPMBuf buf, XpmColorConvMap colors, XpmMaskKeysSet mask)
    : m_buf(std::move(buf)), m_colors(std::move(colors)), m_mask(std::move(mask)) {}

bool XPMImage::Init() {
    if (m_initialised) return IsValid();
    m_initialised = true;
    SDecoded decoded = CDecoder(m_buf, m_colors, m_mask).Run();
    if (decoded.failure)
        QUILL_2_18::debug::_private::____________________ASSERT____________________(
            decoded.failure, __FILE__, __LINE__, __PRETTY_FUNCTION__);
    m_pixels = std::move(decoded.pixels);
    return IsValid();
}

XPMImage XPMImage::GetDisabled(ICustomPalette* palette) const {
    if (!m_pixels) return {};
    SDecoded const decoded = CDecoder(m_buf, m_colors, m_mask).Run();
    ISysPalette* const system = GetSysPalette();
    _color const background =
        palette ? palette->GetColor(ISysPalette::ColorElementBackground)
                : (system ? system : GetDefaultPalette())->GetColor(ISysPalette::ColorElementBackground);
    std::vector<std::string> lines;
    lines.reserve(1 + decoded.table.size() + std::size_t(m_pixels->height));
    lines.push_back(std::to_string(m_pixels->width) + " " + std::to_string(m_pixels->height) + " " +
                    std::to_string(decoded.table.size()) + " " +
                    std::to_string(decoded.table.front().key.size()));
    for (SEntry const& entry : decoded.table) {
        _color grey;
        if (!entry.color.empty) {
            _color const c = entry.color;
            int const luminance = (c.r * 77 + c.g * 150 + c.b * 29) >> 8;
            auto const half = [&](std::uint8_t channel) { return std::uint8_t((luminance + channel) / 2); };
            grey = _color(half(background.r), half(background.g), half(background.b));
        }
        lines.push_back(std::string(entry.key) + " c " + ColorText(grey));
    }
    std::size_t const firstRow = 1 + decoded.table.size();
    for (std::size_t y = 0; y < std::size_t(m_pixels->height); ++y)
        lines.emplace_back(m_buf.GetLine(firstRow + y));
    XPMImage disabled{XPMBuf(std::move(lines))};
    disabled.Init();
    return disabled;
}

std::optional<SXpmPlacement> PlaceXPM(XPMImage const& image, point<double> const& at, double dpiScale,
                                      int srcX, int srcY, int width, int height) {
    XPMImage::SPixels const* const pixels = image.GetPixels();
    if (!pixels) return std::nullopt;
    // In 64 bits: a part given as far as an int goes stops at the picture's edge instead of wrapping.
    auto const end = [](int start, int extent, int side) {
        return extent < 0 ? side : static_cast<int>(std::clamp<long long>(0LL + start + extent, 0, side));
    };
    rectangle<int> const part{std::clamp(srcX, 0, pixels->width), std::clamp(srcY, 0, pixels->height),
                              end(srcX, width, pixels->width), end(srcY, height, pixels->height)};
    if (part.right <= part.left || part.bottom <= part.top) return std::nullopt;
    double const scale = (GetDPIAutoScale() & 1) && dpiScale > 1.0 ? dpiScale : 1.0;
    int const left = static_cast<int>(std::floor(at.x + 1e-7)),
              top = static_cast<int>(std::floor(at.y + 1e-7));
    return SXpmPlacement{part,
                         {left, top, left + static_cast<int>(part.Width() * scale),
                          top + static_cast<int>(part.Height() * scale)}};
}

} // namespace mirel7
