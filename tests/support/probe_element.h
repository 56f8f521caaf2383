#pragma once

#include <mirelfrw7/core/visual_element.h>

#include <functional>
#include <string>
#include <vector>

namespace mirel_test {

// One sequence of everything the probes of a test saw, in order.
using Journal = std::vector<std::string>;

// An element that writes every input handler and signal it sees into a shared journal, as "name:What", and
// answers the handlers as a test sets it up. `filter` (a list of "What" names) keeps the journal short.
class CProbe : public mirelfrw7::CVisualElement {
public:
    CProbe(mirelfrw7::CVisualElement* parent, Journal& journal, std::string name,
           mirelfrw7::Alignment alignment = mirelfrw7::AlignNone, mirel7::size<int> probeSize = {});
    ~CProbe() override;

    bool HandleButtonDown(int x, int y, int flags, mirel7::MouseButton button) override;
    bool HandleButtonUp(int x, int y, int flags, mirel7::MouseButton button) override;
    bool HandleClick(int x, int y, int flags, mirel7::MouseButton button) override;
    bool HandleDoubleClick(int x, int y, int flags, mirel7::MouseButton button) override;
    bool HandleMouseMove(int x, int y, int flags, mirel7::MouseButton button) override;
    bool HandleWheel(int x, int y, int flags, mirel7::MouseButton button, int delta) override;
    void HandleMouseHover(mirelfrw7::CVisualElement* previous) override;
    void HandleMouseLeave(mirelfrw7::CVisualElement* next) override;
    bool HandleKeyDown(int flags, int key) override;
    bool HandleKeyUp(int flags, int key) override;
    bool HandleChar(char c) override;
    void HandleGetFocus(mirelfrw7::CVisualElement* previous, bool direct) override;
    void HandleLostFocus(mirelfrw7::CVisualElement* next) override;
    bool HandleStartDragging(int x, int y, mirelfrw7::DragInfo& info) override;
    void HandleDragFinished(mirelfrw7::CVisualElement* target, mirelfrw7::DragInfo& info) override;
    bool HandleDragOver(mirelfrw7::CVisualElement* source, int x, int y, mirelfrw7::DragInfo& info) override;
    void HandleDropDone(mirelfrw7::CVisualElement* source, int x, int y, mirelfrw7::DragInfo& info) override;
    std::string HandleAsString() const override { return text; }
    bool IsCopyToClipboardEnabled() const override { return copyEnabled; }

    void Log(std::string const& what);

    Journal& journal;
    std::string name;
    std::vector<std::string> filter;
    // What the handlers answer.
    bool handleMouse = false;
    bool handleWheel = false;
    bool handleKeys = false;
    bool startDrag = false;
    bool acceptDrop = false;
    bool copyEnabled = false;
    std::string text;
    // Runs inside HandleGetFocus and HandleLostFocus, for tests that move the focus from there.
    std::function<void(std::string const& what)> onFocus;

private:
    struct CSignals;
    CSignals* m_signals;
};

} // namespace mirel_test
