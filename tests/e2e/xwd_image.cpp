#include "e2e/xwd_image.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace mirel_test {

namespace {

std::uint32_t BigEndian(std::vector<std::uint8_t> const& b, std::size_t field) {
    std::size_t const at = field * 4;
    return std::uint32_t(b[at]) << 24 | std::uint32_t(b[at + 1]) << 16 | std::uint32_t(b[at + 2]) << 8 |
           b[at + 3];
}

// The header's fields, in the order of the file.
enum Field {
    HeaderSize = 0,
    PixmapFormat = 2,
    PixmapWidth = 4,
    PixmapHeight = 5,
    ByteOrder = 7,
    BitsPerPixel = 11,
    BytesPerLine = 12,
    RedMask = 14,
    GreenMask = 15,
    BlueMask = 16,
    Colors = 19,
    FieldCount = 25,
};

int Shift(std::uint32_t mask) {
    int shift = 0;
    while (mask && !(mask & 1))
        mask >>= 1, ++shift;
    return shift;
}

} // namespace

CXwdImage CXwdImage::CaptureScreen() {
    // Through a file: a pipe read gets cut short by the signals a process with a window receives.
    std::string const path =
        std::filesystem::temp_directory_path() / ("mirel_screen_" + std::to_string(getpid()) + ".xwd");
    CXwdImage image;
    if (std::system(("xwd -root -silent -out " + path).c_str()) == 0) {
        std::ifstream file(path, std::ios::binary);
        image.Parse({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
    }
    std::filesystem::remove(path);
    return image;
}

bool CXwdImage::Parse(std::vector<std::uint8_t> const& bytes) {
    if (bytes.size() < FieldCount * 4) return false;
    std::size_t const headerSize = BigEndian(bytes, HeaderSize);
    bool const zPixmap = BigEndian(bytes, PixmapFormat) == 2;
    int const width = static_cast<int>(BigEndian(bytes, PixmapWidth));
    int const height = static_cast<int>(BigEndian(bytes, PixmapHeight));
    std::size_t const bytesPerLine = BigEndian(bytes, BytesPerLine);
    // Packed in 3 or 4 bytes, depending on the visual xwd picks.
    std::size_t const bytesPerPixel = BigEndian(bytes, BitsPerPixel) / 8;
    if (!zPixmap || (bytesPerPixel != 3 && bytesPerPixel != 4)) return false;
    bool const msbFirst = BigEndian(bytes, ByteOrder) == 1;
    std::uint32_t const masks[3] = {BigEndian(bytes, RedMask), BigEndian(bytes, GreenMask),
                                    BigEndian(bytes, BlueMask)};
    std::size_t const colors = BigEndian(bytes, Colors);
    std::size_t const data = headerSize + colors * 12;
    if (bytes.size() < data + bytesPerLine * static_cast<std::size_t>(height)) return false;

    m_width = width;
    m_height = height;
    m_pixels.assign(static_cast<std::size_t>(width * height), 0);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            std::uint8_t const* p =
                &bytes[data + static_cast<std::size_t>(y) * bytesPerLine + x * bytesPerPixel];
            std::uint32_t word = 0;
            for (std::size_t i = 0; i < bytesPerPixel; ++i)
                word = word << 8 | p[msbFirst ? i : bytesPerPixel - 1 - i];
            std::uint32_t rgb = 0;
            for (int c = 0; c < 3; ++c)
                rgb = rgb << 8 | ((word & masks[c]) >> Shift(masks[c]) & 0xFF);
            m_pixels[static_cast<std::size_t>(y * width + x)] = rgb;
        }
    return true;
}

} // namespace mirel_test
