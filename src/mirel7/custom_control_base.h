#pragma once

#include <mirel7/custom_control.h>
#include <mirel7/event_sender.h>
#include <mirel7/events.h>
#include <mirel7/export.h>

namespace mirel7 {

class CSysWindowBase;
class IPainter;

// A native control as a region of one system window, shared by every backend: the window draws it after
// each paint pass, over what the window's own control painted, and gives it the pointer and, while it has
// the focus, the keys before anyone else. A window that closes first leaves its controls detached: they
// keep their state and do nothing.
class MIREL7_API CCustomControlBase : public virtual ICustomControl {
public:
    ~CCustomControlBase() override;

    void Move(int left, int top, int right, int bottom) override;
    screen_rectangle<int> GetRect() const override { return m_rect; }
    void SetVisible(bool visible) override;
    bool IsVisible() const override { return m_visible; }
    void SetEnabled(bool enabled) override;
    bool IsEnabled() const override { return m_enabled; }
    void SetFocus() override;
    bool HasFocus() const override;
    void Measure() override;
    std::string AsString() const override { return {}; }
    IEventSender* GetEventSender() override { return &m_sender; }

    // Null once the window is gone.
    CSysWindowBase* GetWindow() const { return m_window; }
    // Visible and over the client point.
    bool HitTest(point<int> const& at) const;

protected:
    explicit CCustomControlBase(CSysWindowBase& window);

    // Asks for a repaint of the control's region.
    void Invalidate();
    // For subclasses that send interfaces of their own.
    CImplEventSender<IEventSender>& Sender() { return m_sender; }

    // The window's part. Points are client pixels; the painter maps device pixels and has no clip.
    virtual void Draw(IPainter* painter) = 0;
    // The size Measure() takes.
    virtual size<int> NaturalSize() const = 0;
    virtual void OnButtonDown(point<int> const&, MouseButton) {}
    virtual void OnButtonUp(point<int> const&, MouseButton) {}
    virtual void OnMouseMove(point<int> const&) {}
    virtual void OnWheel(point<int> const&, int /*delta*/) {}
    // True when the key was used.
    virtual bool OnKeyDown(int /*virtualKey*/, int /*modifiers*/) { return false; }
    // The pointer came over the control or went away from it.
    virtual void OnHot(bool) {}
    // Hidden, disabled or moved: a gesture under way ends.
    virtual void OnCancel() {}

private:
    friend class CSysWindowBase;
    void Detach() { m_window = nullptr; }

    CSysWindowBase* m_window;
    CImplEventSender<IEventSender> m_sender;
    // Empty until placed.
    screen_rectangle<int> m_rect{0, 0, -1, -1};
    bool m_visible = true;
    bool m_enabled = true;
};

} // namespace mirel7
