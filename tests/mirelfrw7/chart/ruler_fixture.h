#pragma once

#include <mirelfrw7/scroll/scrollable_element_ex.h>

#include "mirelfrw7/scroll/test_scroll_model.h"
#include "support/control_fixture.h"
#include "support/test_elements.h"

#include <cstdio>
#include <string>
#include <vector>

namespace mirel_test {

using mirelfrw7::AlignBottom;
using mirelfrw7::AlignClient;
using mirelfrw7::AlignLeft;
using mirelfrw7::Alignment;
using mirelfrw7::AlignRight;

// A label as the recording painter wrote it: its text and the box it went to, in pixels.
struct SLabel {
    std::string text;
    double left, top, right, bottom;
};

inline std::vector<SLabel> Labels(mirel7::CRecordingPainter const& painter) {
    std::vector<SLabel> out;
    for (std::string const& line : painter.Lines({"DrawString"})) {
        std::size_t const open = line.find('"'), close = line.find('"', open + 1), at = line.find("at=");
        SLabel l{line.substr(open + 1, close - open - 1), 0, 0, 0, 0};
        std::sscanf(line.c_str() + at, "at=%lf,%lf,%lf,%lf", &l.left, &l.top, &l.right, &l.bottom);
        out.push_back(l);
    }
    return out;
}

inline std::vector<std::string> Texts(std::vector<SLabel> const& labels) {
    std::vector<std::string> out;
    for (SLabel const& l : labels)
        out.push_back(l.text);
    return out;
}

// An axis on one edge of a control around a central pane, following one model.
template <class Axis>
struct TRuler {
    TRuler(int length, Alignment edge, double from, double to, double start, double unitsPerPixel)
        : f({edge == AlignLeft || edge == AlignRight ? 40 : length,
             edge == AlignLeft || edge == AlignRight ? length : 40}),
          model(from, to, start) {
        model.measure = {unitsPerPixel, 1};
        axis.SetAlignment(edge);
        axis.SetCentralPane(&central);
        axis.SetHorzScroll(&model);
        axis.SetVertScroll(&model);
        axis.SetSize({20, 20}, false);
    }
    std::vector<SLabel> Draw() {
        f.control->Rearrange();
        f.Recorder()->Clear();
        f.Root()->Update(mirelfrw7::UpdateLocal);
        f.Paint();
        return Labels(*f.Recorder());
    }
    mirel_test::CControlFixture f;
    CTestScrollModel model;
    Axis axis{f.Root(), {20, 20}, AlignBottom};
    mirel_test::CFilledElement central{f.Root(), {0, 0}, AlignClient};
};

} // namespace mirel_test
