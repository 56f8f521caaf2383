#pragma once

#include <mirel7/export.h>
#include <mirel7/types.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace mirel7 {

class ICustomPalette;

// The lines of an XPM picture as a C source holds them: the header "width height colours
// characters-per-pixel", the colour table, then one line a row.
class MIREL7_API XPMBuf {
public:
    XPMBuf() = default;
    // The lines up to a null pointer. `copy` false keeps pointing at them (data that lives as long as the
    // program, as a picture built into the code does); true takes a copy.
    XPMBuf(char const** lines, bool copy);
    // The lines of a C array, which knows its own length.
    template <std::size_t N>
    explicit XPMBuf(char const* const (&lines)[N]) : XPMBuf(lines, N, Counted{}) {}
    // Copies of the lines.
    explicit XPMBuf(std::vector<std::string> lines);

    std::size_t GetLineCount() const { return m_lines.size(); }
    std::string_view GetLine(std::size_t index) const { return m_lines[index]; }

private:
    struct Counted {};
    XPMBuf(char const* const* lines, std::size_t count, Counted);

    // Owned lines are shared between copies, so copying a picture copies no pixels and the views stay valid.
    std::shared_ptr<std::vector<std::string> const> m_owned;
    std::vector<std::string_view> m_lines;
};

// Colours given instead of those a picture names: by a symbolic name of its colour table ("s background")
// or by the colour text itself ("#FFFFFF"), compared without regard to case.
class MIREL7_API XpmColorConvMap {
public:
    void Set(std::string_view key, _color const& color);
    // The colour for `key`, or null.
    _color const* Find(std::string_view key) const;
    bool IsEmpty() const { return m_colors.empty(); }

private:
    std::map<std::string, _color, std::less<>> m_colors;
};

// Pixel keys (the characters that stand for a colour in the rows) drawn transparent, whatever colour the
// table gives them.
using XpmMaskKeysSet = std::set<std::string, std::less<>>;

// An XPM picture: its lines, and once Init ran, its pixels. Copies share the pixels.
class MIREL7_API XPMImage {
public:
    // The decoded picture: premultiplied 32-bit words, alpha in the top byte, as image surfaces hold them.
    struct SPixels {
        int width = 0;
        int height = 0;
        std::vector<std::uint32_t> words;
        // What a drawing backend made of the pixels once, in the normal and in the greyed look.
        mutable std::shared_ptr<void> rendered[2];
    };

    XPMImage() = default;
    explicit XPMImage(XPMBuf buf, XpmColorConvMap colors = {}, XpmMaskKeysSet mask = {});

    // Decodes the lines. A malformed picture (a header without four or six counts, a colour table or rows
    // shorter than it says, a colour it cannot read, rows of the wrong length, keys that are not in the
    // table) is reported to the assertion routine once and stays empty. Answers whether there are pixels;
    // a second call only answers.
    bool Init();
    bool IsValid() const { return m_pixels != nullptr; }
    // Zero until Init made pixels.
    int GetWidth() const { return m_pixels ? m_pixels->width : 0; }
    int GetHeight() const { return m_pixels ? m_pixels->height : 0; }
    // Null until Init made pixels.
    SPixels const* GetPixels() const { return m_pixels.get(); }
    XPMBuf const& GetBuf() const { return m_buf; }

    // The greyed look of a disabled element as a picture of its own, decoded: every colour turns to its
    // brightness, halfway to the element background of `palette` (of the system without one); transparent
    // pixels stay so. Empty for a picture without pixels.
    XPMImage GetDisabled(ICustomPalette* palette) const;

private:
    XPMBuf m_buf;
    XpmColorConvMap m_colors;
    XpmMaskKeysSet m_mask;
    bool m_initialised = false;
    std::shared_ptr<SPixels const> m_pixels;
};

// Where DrawXPM puts the part (srcX, srcY, width, height) of a picture whose top left lands on the device
// point `at`: the part clipped to the picture (a width or height of -1 reaching its end), and the device
// pixels it covers, the part's size times the display scale when sizes follow it (truncated). Right and
// bottom exclusive. Nothing without pixels or when the part is empty.
struct SXpmPlacement {
    rectangle<int> part;
    rectangle<int> destination;
};
MIREL7_API std::optional<SXpmPlacement> PlaceXPM(XPMImage const& image, point<double> const& at,
                                                 double dpiScale, int srcX, int srcY, int width, int height);

} // namespace mirel7
