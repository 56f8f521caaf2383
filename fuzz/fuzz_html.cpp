// The HTML-like text formatter on any text, laid out on the recording painter with flags and a width
// taken from the first byte, and the markup remover.
#include <mirel7/recording_painter.h>
#include <mirel7/text_formatter.h>

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) return 0;
    std::uint8_t const options = data[0];
    std::string const text(reinterpret_cast<char const*>(data) + 1, size - 1);
    (void)mirel7::RemoveLinks(text);

    mirel7::CRecordingPainter painter({400, 400});
    if (options & 8) {
        mirel7::font turned;
        turned.extra = 900;
        painter.SetFont(turned);
    }
    int const flags = (options & 1 ? mirel7::IPainter::ClipToRect : 0) |
                      (options & 2 ? mirel7::IPainter::MeasureOnly : 0) |
                      (options & 4 ? mirel7::IPainter::AlignHCenter : mirel7::IPainter::AlignLeft);
    double const width = 8 + (options >> 4) * 12;
    mirel7::CHTMLTextFormatter formatter;
    painter.DrawStringEx({2, 3, 2 + width, 120}, text.c_str(), flags, static_cast<int>(text.size()),
                         options & 16 ? " .\n<>" : " \n", &formatter);
    return 0;
}
