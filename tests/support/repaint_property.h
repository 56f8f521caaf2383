#pragma once

#include <mirelfrw7/core/base_control.h>

#include <mirel7/headless/headless_window.h>

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace mirel_test {

// One tree of elements and the random actions on it that a repaint property runs.
struct SRepaintScenario {
    mirel7::size<int> clientSize{160, 120};
    // Builds the tree on the control; the same call must build the same tree every time.
    std::function<void(mirelfrw7::CBaseControl& control)> build;
    // One action, drawn from `random`: the same generator state must give the same action on an equal tree.
    std::function<void(mirelfrw7::CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                       std::mt19937& random)>
        act;
    int steps = 30;
};

// Draws for random scenarios: an int in [low, high], and an opaque colour.
int Uniform(std::mt19937& random, int low, int high);
mirel7::_color RandomColor(std::mt19937& random);

// The retained back buffer after the actions, each followed by the partial paint it caused, must equal a
// fresh full paint of the same tree after the same actions, pixel for pixel. On a mismatch both images and
// their difference are written beside the test logs.
testing::AssertionResult IncrementalPaintEqualsFullPaint(SRepaintScenario const& scenario, unsigned seed);

} // namespace mirel_test
