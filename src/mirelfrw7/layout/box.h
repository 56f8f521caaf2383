#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/layout/scrolled.h>

#include <cstdint>

namespace mirelfrw7 {

// A holder that sizes itself to its children along one axis: the sum of the sizes of the visible children
// docked along that axis, one pixel apart, and a pad after them. It measures itself whenever a child is
// added or asks for a rearrangement, and once when its tree is attached to a control; while the control is
// being attached it stays put, so that a tree built beforehand is measured once.
class MIRELFRW7_API CBoxBase : public CScrolled {
public:
    CBoxBase(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    virtual void RecalculateSize() = 0;
    bool IsScrollableOnSetPos() const override;
    void ProcessSetControl(IControl* control) override;
    void AfterSetControl() override;
    void AddNewChild(CVisualElement* child) override;
    void ProcessRearrange(CVisualElement** target) override;
    bool BeforeProcessChange(CVisualElement* sender, UpdateType type) override;

    bool GetAutoSize() const { return m_autoSize; }
    int GetPadSize() const { return m_padSize; }

protected:
    // The measured size along the axis of `vertical`, the other dimension kept.
    void Recalculate(bool vertical);
    // A new pad grows or shrinks the box by the difference at once, without measuring the children.
    void SetPadSize(int pad, bool vertical);
    // After the base placing: measures again when the other dimension changed, and repaints whole when the
    // box moved.
    void PlaceAndMeasure(rectangle<int> const& newRect, bool force, bool vertical);

    bool m_autoSize;
    int m_padSize = 0;
    // What one child adds to the measure along `vertical`: its size and the pixel after it, or nothing.
    std::int64_t Term(CVisualElement const* child, bool vertical) const;
    // Measures after a change of `child` alone, whose term was `oldTerm` before it.
    void MeasureFor(CVisualElement const* child, std::int64_t oldTerm);
    // The sum of the children's terms as the last measure found it, -1 from the attaching of a control to
    // the measure after it, while changes go by unmeasured; with it the term of the last child measured for,
    // which may have died since. A run of changes to one child (added, then asking
    // for its rearrangement) is measured from these without a walk over all children, which filling a
    // box one child after another would otherwise make quadratic.
    std::int64_t m_sum = -1;
    CVisualElement const* m_known = nullptr;
    std::int64_t m_knownTerm = 0;
    // The child whose change the running measure is for, with its term before the change.
    CVisualElement const* m_changed = nullptr;
    std::int64_t m_changedTerm = 0;
    // A child on its way out: it is told to leave, and asks its parent to rearrange, while still in the
    // list, so the measure must skip it. Compared by address only; cleared when a child is added, should
    // one come back or another take its address.
    CVisualElement const* m_leaving = nullptr;
};

// Stacks its top, bottom and client children and takes their height.
class MIRELFRW7_API CVertBox : public CBoxBase {
public:
    using CBoxBase::CBoxBase;
    void SetPos(rectangle<int> const& newRect, bool force) override;
    void RecalculateSize() override;
    void SetBottomPadSize(int pad);
};

// Lines up its left, right and client children and takes their width.
class MIRELFRW7_API CHorzBox : public CBoxBase {
public:
    using CBoxBase::CBoxBase;
    void SetPos(rectangle<int> const& newRect, bool force) override;
    void RecalculateSize() override;
    void SetRightPadSize(int pad);
};

} // namespace mirelfrw7
