#include <mirelfrw7/controls/deferred_delete.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/core/visual_element.h>

#include <mirel7/runnable.h>
#include <mirel7/sys_window.h>

namespace mirelfrw7 {

namespace {

class CDeleteElement : public mirel7::IRunnable {
public:
    explicit CDeleteElement(CVisualElement* element) : m_element(element) {}
    bool Run() override {
        delete m_element;
        return false;
    }

private:
    CVisualElement* m_element;
};

} // namespace

void DeleteLater(CVisualElement* element) {
    if (!element) return;
    IControl* const control = element->GetControl();
    mirel7::ISysWindow* const window = control ? control->GetWindow() : nullptr;
    if (window)
        window->PostRunnable(new CDeleteElement(element));
    else
        delete element;
}

} // namespace mirelfrw7
