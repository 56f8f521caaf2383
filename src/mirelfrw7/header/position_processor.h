#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/header/header.h>

#include <vector>

namespace mirelfrw7 {

// Lays the sections out as the walk meets them: one running rectangle per level, each section taking the
// width of its visible leaves from its level's running left edge. A group takes one row and opens the next
// level's rectangle below itself; a leaf reaches down to the foot of the header however high it stands. With
// `lastExpanded`, the last child of each parent (and the last top-level section) stretches to its level's
// right end.
//
// Boundaries: a section covers left..right inclusive; one lies outside the clip only when it ends before the
// clip's left or starts after its right; the walk ends at the first top-level section starting after the
// clip.
class MIRELFRW7_API CPositionProcessor : public BaseVisitor {
public:
    CPositionProcessor(CHeader const& header, double clipLeft, double clipRight);
    bool Visit(IHeaderItem* item, int level) override;
    bool IsFinished() const override { return m_finished; }
    // The top level's running left edge: where the next top-level section would start.
    double GetRunningLeft() const { return m_levels.empty() ? 0 : m_levels[0].left; }
    // Starts the top level at `left` instead of the header's left edge.
    void StartAt(double left);

    double m_rowHeight = 0;
    bool m_lastExpanded;
    double m_clipLeft;
    double m_clipRight;
    std::vector<rectangle<double>> m_levels;

protected:
    // Answers whether to walk the group's children; a leaf's answer is ignored.
    virtual bool ProcessSection(IHeaderItem* item, rectangle<double> const& rect) = 0;
    bool OutsideClip(rectangle<double> const& rect) const {
        return rect.right < m_clipLeft || rect.left > m_clipRight;
    }
    bool IsLastChild(IHeaderItem* item) const;

    CHeader const& m_header;
    bool m_finished = false;
};

// Paints the sections that reach into the clip, skipping the subtrees of the others.
class MIRELFRW7_API CDrawer : public CPositionProcessor {
public:
    CDrawer(CHeader const& header, double clipLeft, double clipRight, IPainter* painter,
            IHeaderItemDrawing* drawing)
        : CPositionProcessor(header, clipLeft, clipRight), m_painter(painter), m_drawing(drawing) {}

protected:
    bool ProcessSection(IHeaderItem* item, rectangle<double> const& rect) override;

private:
    IPainter* m_painter;
    IHeaderItemDrawing* m_drawing;
};

// The section under a point, and which part of it.
class MIRELFRW7_API CHitTester : public CPositionProcessor {
public:
    CHitTester(CHeader const& header, double clipLeft, double clipRight, int x, int y,
               IHeaderItemVisualisation const* visualisation)
        : CPositionProcessor(header, clipLeft, clipRight), m_x(x), m_y(y), m_visualisation(visualisation) {}

    CHeader::HitTestResult m_result;

protected:
    bool ProcessSection(IHeaderItem* item, rectangle<double> const& rect) override;

private:
    int m_x;
    int m_y;
    IHeaderItemVisualisation const* m_visualisation;
};

// The rectangle of one item, clip or not.
class MIRELFRW7_API CRectCalculator : public CPositionProcessor {
public:
    CRectCalculator(CHeader const& header, IHeaderItem const* item);

    rectangle<double> m_rect;

protected:
    bool ProcessSection(IHeaderItem* item, rectangle<double> const& rect) override;

private:
    IHeaderItem const* m_item;
};

} // namespace mirelfrw7
