#include "e2e/sdl_test.h"

#include <chrono>
#include <cstdlib>
#include <future>

namespace mirel_test {

using Clock = std::chrono::steady_clock;

mirel7::sdl::CSdlSystem& SdlSystem() {
    static mirel7::sdl::CSdlSystem system;
    return system;
}

void CSdlTest::OpenWindow(mirel7::size<int> clientSize,
                          std::function<void(mirel7::sdl::CSdlWindow*)> const& attach) {
    if (!std::getenv("DISPLAY")) GTEST_SKIP() << "needs an X display; the test command runs one";
    ASSERT_TRUE(SdlSystem().IsReady());
    window = std::make_unique<mirel7::sdl::CSdlWindow>(SdlSystem(), "e2e", clientSize, nullptr, &Origin);
    attach(window.get());
    // Without a window manager the server may refuse the focus while the window is being mapped. Asked
    // again at once, the answer would be lost: the desktop reports a focus only after it stayed a moment.
    window->SetFocus();
    auto asked = Clock::now();
    ASSERT_TRUE(PumpUntil([&] {
        if (!window->HasFocus() && Clock::now() - asked > std::chrono::seconds(1)) {
            window->SetFocus();
            asked = Clock::now();
        }
        return window->GetPaintCount() > 0 && window->HasFocus();
    }));
    Xdotool("mousemove 0 0");
}

void CSdlTest::TearDown() {
    if (detach) detach();
    window.reset();
}

bool CSdlTest::PumpUntil(std::function<bool()> const& done) {
    auto const end = Clock::now() + std::chrono::seconds(5);
    while (!done()) {
        if (Clock::now() > end) return false;
        SdlSystem().RunOnce(10);
    }
    return true;
}

void CSdlTest::Xdotool(std::string const& arguments) {
    auto run =
        std::async(std::launch::async, [arguments] { return std::system(("xdotool " + arguments).c_str()); });
    PumpUntil([&] { return run.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
    EXPECT_EQ(run.get(), 0) << arguments;
    Settle();
}

void CSdlTest::Settle() {
    auto const end = Clock::now() + std::chrono::milliseconds(150);
    PumpUntil([&] { return Clock::now() > end; });
}

std::string CSdlTest::At(int x, int y) {
    return std::to_string(Origin.x + x) + " " + std::to_string(Origin.y + y);
}

} // namespace mirel_test
