#include <mirelfrw7/items/editor_event_handler.h>

#include <cmath>

namespace mirelfrw7 {

namespace {

// An editor narrower or lower than this, in unscaled pixels, is of no use and is hidden.
constexpr int MinEditorSize = 18;

} // namespace

void CEditorEventHandler::ProcessResize(rectangle<int> const&, rectangle<int> const& newRect, bool) {
    m_clip = newRect;
}

void CEditorEventHandler::UpdateEditor() {
    if (!m_editor) return;
    m_editorRect = m_editor->GetPosition();
    m_editorVisible = m_editor->IsVisible();
}

void CEditorEventHandler::ProcessScroll(int dx, int dy) {
    if (!m_editor) return;
    m_editorRect = {m_editorRect.left + dx, m_editorRect.top + dy, m_editorRect.right + dx,
                    m_editorRect.bottom + dy};
    rectangle<int> shown = m_editorRect.Intersect(m_clip);
    int const least = int(MinEditorSize * m_editor->GetSizeScale());
    if (shown.Width() < least || shown.Height() < least) shown = {};
    if (shown.IsAllZero()) {
        if (!m_editor->IsVisible()) return;
        m_editorVisible = true;
        m_editor->SetVisible(false);
        m_editor->SetPos({-10000, -10000, -10000, -10000}, false);
        if (m_notify) m_notify->OnEditorHidden();
        return;
    }
    m_editor->SetPos(shown, false);
    m_editor->SetVisible(m_editorVisible);
}

} // namespace mirelfrw7
