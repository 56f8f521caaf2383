#pragma once

#include <mirel7/sdl/sdl_system.h>
#include <mirel7/sdl/sdl_window.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace mirel_test {

// One SDL system for all cases, as in a program: SDL is not made to start over for each.
mirel7::sdl::CSdlSystem& SdlSystem();

// A real window on the X server of the test run, driven by xdotool while the event loop turns.
class CSdlTest : public testing::Test {
protected:
    static constexpr mirel7::point<int> Origin{60, 40};

    // Opens the window at Origin, lets `attach` put a control on it, and waits until it painted and has the
    // keyboard focus. Skips the test without a display.
    void OpenWindow(mirel7::size<int> clientSize,
                    std::function<void(mirel7::sdl::CSdlWindow*)> const& attach);
    void TearDown() override;

    // Turns the loop until `done` answers true; false after five seconds.
    bool PumpUntil(std::function<bool()> const& done);
    // Runs xdotool while the loop turns, then lets the events it made arrive.
    void Xdotool(std::string const& arguments);
    // Turns the loop a while, for what the desktop still has on its way.
    void Settle();
    // A client point as xdotool's screen coordinates.
    static std::string At(int x, int y);

    std::unique_ptr<mirel7::sdl::CSdlWindow> window;
    // Destroyed before the window.
    std::function<void()> detach;
};

} // namespace mirel_test
