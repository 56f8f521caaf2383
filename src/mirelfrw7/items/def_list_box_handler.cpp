#include <mirelfrw7/items/def_list_box_handler.h>

namespace mirelfrw7 {

namespace {

constexpr int LeftHeld = 1;

} // namespace

bool CDefListBoxHandler::ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) {
    if (flags & LeftHeld) return SetCurProcessButtonDown(x, y, flags, button, stop);
    *stop = true;
    return false;
}

bool CDefListBoxHandler::ProcessMouseMove(int x, int y, int flags, MouseButton button, bool* stop) {
    if (flags & LeftHeld) {
        *stop = true;
        return true;
    }
    if ((flags & 0xff) == 0) return HighlightingMouseMove(x, y, flags, button, stop);
    return false;
}

bool CDefListBoxHandler::ProcessMouseLeave(bool* stop) {
    return HighlightingMouseLeave(stop);
}

bool CDefListBoxHandler::ProcessKeyDown(int, int key, bool* stop) {
    *stop = SetCurProcessKeyDown(key);
    return false;
}

} // namespace mirelfrw7
