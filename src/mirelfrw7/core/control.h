#pragma once

#include <mirelfrw7/core/drag_drop.h>
#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

#include <string>

namespace mirel7 {
class ISysWindow;
class IImageList;
} // namespace mirel7

namespace mirelfrw7 {

// All that an element sees of its control: the queues of updates and rearrangements, the pointers of the
// mouse and focus state, and the drag in progress.
class MIRELFRW7_API IControl {
public:
    tarnkit2::signal_t<> sigBeforeArrange;
    tarnkit2::signal_t<> sigAfterArrange;
    tarnkit2::signal_t<> sigBeforePaint;
    tarnkit2::signal_t<> sigAfterPaint;
    tarnkit2::signal_t<CVisualElement*, int, int> sigDragMove;
    tarnkit2::signal_t<CVisualElement*> sigDragEnd;
    tarnkit2::signal_t<> sigControlDestroyed;

    virtual void SetCapture(CVisualElement* element) = 0;
    virtual CVisualElement* GetCapture() = 0;
    virtual mirel7::ISysWindow* GetWindow() = 0;
    virtual mirel7::IImageList* GetImageList() = 0;
    virtual void SetImageList(mirel7::IImageList* images) = 0;
    virtual int GetUpdatesLastPos() const = 0;
    virtual void ClearUpdates(int keep) = 0;
    virtual void StartDragging(CVisualElement* element, DragInfo const& info) = 0;
    virtual size<int> GetDragStartSensitivity() const = 0;
    virtual void SetDragStartSensitivity(size<int> const& sensitivity) = 0;
    virtual bool IsClicked() const = 0;
    virtual bool ScrollContent(int dx, int dy, screen_rectangle<int> const& rect) = 0;
    virtual void ForceRearrange() = 0;
    virtual bool IsRearrangeNeeded() const = 0;
    virtual void LockRearrange(bool lock) = 0;
    virtual CVisualElement* GetMouseElement() = 0;
    virtual CVisualElement* GetFocusedElement() = 0;
    virtual CVisualElement* GetFocussingElement() = 0;
    virtual void SetFocusedElement(CVisualElement* element, bool setSystemFocus) = 0;
    virtual void SetTabHandler(CVisualElement* element) = 0;
    virtual void UpdateElement(CVisualElement* element, UpdateType type) = 0;
    virtual void RearrangeElement(CVisualElement* element) = 0;
    virtual bool IsTabKeyProcessing() const = 0;
    virtual void ActivateHelp(std::string const& id) const = 0;
    virtual void SetMouseElement(CVisualElement* element) = 0;
    virtual CVisualElement* GetDraggedElement() const = 0;
    virtual void SetDragTarget(CVisualElement* element) = 0;
    virtual CVisualElement* GetDragTarget() const = 0;
    // Offers the link to the control's open-link slots; when none takes it, the desktop opens it.
    virtual void OpenLink(std::string const& link) const = 0;
    virtual ~IControl();
};

} // namespace mirelfrw7
