#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/scroll_bar.h>

namespace mirel7::headless {

CHeadlessWindow::CHeadlessWindow(CHeadlessSystem& system, size<int> clientSize,
                                 std::unique_ptr<IWindowPainter> painter)
    : CSysWindowBase(system, clientSize, std::move(painter)) {}

CHeadlessWindow::~CHeadlessWindow() {
    SendDestroy();
}

void CHeadlessWindow::InjectButtonDown(int x, int y, MouseButton button, int modifiers) {
    SendButton(true, x, y, button, modifiers);
}

void CHeadlessWindow::InjectButtonUp(int x, int y, MouseButton button, int modifiers) {
    SendButton(false, x, y, button, modifiers);
}

void CHeadlessWindow::InjectMouseMove(int x, int y, int modifiers) {
    SendMove(x, y, modifiers);
}

void CHeadlessWindow::InjectDoubleClick(int x, int y, MouseButton button, int modifiers) {
    SendButton(true, x, y, button, modifiers);
    SendButton(false, x, y, button, modifiers);
    SendDoubleClick(x, y, button, modifiers);
    SendButton(false, x, y, button, modifiers);
}

void CHeadlessWindow::InjectWheel(int x, int y, int delta, int modifiers) {
    SendWheel(x, y, delta, modifiers);
}

CKeyboardEvent CHeadlessWindow::InjectKeyDown(int virtualKey, int modifiers) {
    return SendKey(true, virtualKey, modifiers);
}

CKeyboardEvent CHeadlessWindow::InjectKeyUp(int virtualKey, int modifiers) {
    return SendKey(false, virtualKey, modifiers);
}

CKeyboardEvent CHeadlessWindow::InjectChar(int characterCode, int modifiers) {
    return SendChar(characterCode, modifiers);
}

int CHeadlessWindow::RunPending() {
    // The desktop grants a focus request at once, and reports it on this turn like any other event.
    if (std::exchange(m_focusRequested, false)) SendFocus(true);
    return RunRunnables();
}

mirel_ptr<IScrollBar> CHeadlessWindow::CreateScrollBar(ScrollType type) {
    return m_scrollBarFactory ? m_scrollBarFactory(type) : CSysWindowBase::CreateScrollBar(type);
}

void CHeadlessWindow::Invalidate(screen_rectangle<int> const& rect) {
    ++m_invalidations;
    CSysWindowBase::Invalidate(rect);
}

bool CHeadlessWindow::ScrollWindow(int dx, int dy, screen_rectangle<int> const& source) {
    ++m_scrolls;
    return CSysWindowBase::ScrollWindow(dx, dy, source);
}

void CHeadlessWindow::ApplyCapture(bool captured) {
    if (captured) ++m_captures;
}

void CHeadlessWindow::RequestFocus() {
    ++m_focusRequests;
    m_focusRequested = true;
}

bool CHeadlessWindow::SavePng(std::string const& path) {
    IWindowPainter* const painter = GetPainter();
    return painter && painter->SavePng(path);
}

} // namespace mirel7::headless
