#pragma once

#include <mirelfrw7/core/visual_element.h>

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace mirel_test {

// Makes one element of the control under test as a child of `parent`, drawing whatever it chooses from
// `random`; the storm builds its random trees from these and hands them to every kind of input and tree
// change. An element may make children of its own.
using StormFactory =
    std::function<mirelfrw7::CVisualElement*(mirelfrw7::CVisualElement* parent, std::mt19937& random)>;

// A storm over a headless control: random trees from `factory`, and `actions` random actions drawn from
// `seed`: injected input of every kind (mouse, wheel, double clicks, keys with Tab and Ctrl+C, focus,
// hover, tooltips, resizes to 0x0, 1x1 and huge, the virtual clock, runnables, paints) mixed with tree
// changes (delete, reparent, hide, SetContent, LockRearrange, sizes, delegates) aimed at the captured,
// dragged, focused, hovered, clicked and queued elements, and slots that delete during a click.
//
// After every action the control must point at and queue only live elements of its own tree, and a paint
// must settle. At checkpoints (after every action, or every MIREL_STORM_CHECK_EVERY) the incremental
// repaint must equal a full repaint pixel for pixel and, at every 16th, the layout a full layout of the same
// tree: a checkpoint after every action finds a stale pixel at the action that left it. MIREL_STORM_SEEDS
// runs that many storms, from `seed` on. The failure names the seed, the action and the last actions.
testing::AssertionResult SurvivesStorm(StormFactory const& factory, unsigned seed, long actions);

// The number of actions of one storm: MIREL_STORM_ACTIONS when set, else `sanitized` in a sanitizer
// build (where the storm finds use after free) and `plain` otherwise.
long StormActions(long plain, long sanitized);

} // namespace mirel_test
