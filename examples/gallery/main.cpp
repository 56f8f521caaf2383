// The gallery shows every finished capability of the framework in a real window; with --screenshot DIR it
// renders each page into DIR/<page>.png without a display, with --scale S at the display scale S (the
// window growing with it).
#include "gallery.h"

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/sdl/sdl_system.h>
#include <mirel7/sdl/sdl_window.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

namespace {

constexpr mirel7::size<int> WindowSize{960, 600};

int WriteScreenshots(std::filesystem::path const& directory, double scale) {
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    mirel7::headless::CHeadlessSystem system;
    system.SetDPIScale(scale);
    mirel7::size<int> const windowSize{static_cast<int>(WindowSize.cx * scale),
                                       static_cast<int>(WindowSize.cy * scale)};
    int failures = 0;
    for (int page = 0; page < static_cast<int>(gallery::Pages().size()); ++page) {
        mirel7::headless::CHeadlessWindow window(system, windowSize);
        {
            gallery::CGallery control(&window, page);
            window.Paint();
            std::string const path =
                (directory / (gallery::Pages()[std::size_t(page)].name + ".png")).string();
            if (window.SavePng(path)) {
                std::printf("%s\n", path.c_str());
            } else {
                std::fprintf(stderr, "gallery: could not write %s\n", path.c_str());
                ++failures;
            }
        }
    }
    return failures == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if ((argc == 3 || argc == 5) && std::strcmp(argv[1], "--screenshot") == 0) {
        double const scale = argc == 5 && std::strcmp(argv[3], "--scale") == 0 ? std::atof(argv[4]) : 1.0;
        if (scale >= 0.5 && scale <= 4) return WriteScreenshots(argv[2], scale);
    }
    if (argc != 1) {
        std::fprintf(stderr, "usage: gallery [--screenshot DIR [--scale S]], with S from 0.5 to 4\n");
        return 2;
    }
    mirel7::sdl::CSdlSystem system;
    if (!system.IsReady()) {
        std::fprintf(stderr,
                     "gallery: no display; run `gallery --screenshot DIR` to render the pages to files\n");
        return 1;
    }
    auto window = std::make_unique<mirel7::sdl::CSdlWindow>(system, "mirelfrw7 gallery", WindowSize);
    auto control = std::make_unique<gallery::CGallery>(window.get());
    mirel7::RunEventLoop();
    control.reset();
    window.reset();
    return 0;
}
