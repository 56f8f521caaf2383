#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/event_handler.h>

namespace mirelfrw7 {

// Keeps an in-place editor on its cell while the viewer scrolls, and hides it once too little of it would
// show.
class MIRELFRW7_API CEditorEventHandler : public CEventHandler {
public:
    class MIRELFRW7_API INotify {
    public:
        virtual ~INotify() = default;
        // The scroll took the editor out of sight.
        virtual void OnEditorHidden() = 0;
    };

    void ProcessResize(rectangle<int> const& oldRect, rectangle<int> const& newRect, bool force) override;
    void ProcessScroll(int dx, int dy) override;

    // Neither is owned.
    void SetEditor(CVisualElement* editor) { m_editor = editor; }
    void SetNotify(INotify* notify) { m_notify = notify; }
    // Takes the editor's place and visibility as they are now.
    void UpdateEditor();

protected:
    INotify* m_notify = nullptr;
    CVisualElement* m_editor = nullptr;
    rectangle<int> m_clip;
    rectangle<int> m_editorRect;
    bool m_editorVisible = false;
};

} // namespace mirelfrw7
