#pragma once

#include <mirel7/export.h>
#include <mirel7/types.h>

#include <functional>
#include <string>
#include <vector>

namespace mirel7 {

class CSysWindowBase;
class IPainter;
class ISysWindow;

// A context menu an element shows where the user asked for it.
class MIREL7_API IPopupMenu {
public:
    virtual ~IPopupMenu();
    // Shows the menu at `at`, in the window's client coordinates.
    virtual void Popup(ISysWindow* window, point<int> const& at) = 0;
};

// A menu of text items in a popup window of its own. While it is open the window gives it the keys: Up and
// Down move over the enabled items, Return chooses, Escape closes. A click on an enabled item chooses it; a
// press in the window beside the menu, or the window losing the focus, closes it. A menu that dies while
// open closes first, and a window that closes under an open menu leaves it closed.
class MIREL7_API CPopupMenu : public IPopupMenu {
public:
    CPopupMenu() = default;
    CPopupMenu(CPopupMenu const&) = delete;
    CPopupMenu& operator=(CPopupMenu const&) = delete;
    ~CPopupMenu() override;

    // Answers the item's index.
    int AddItem(std::string const& text, bool enabled = true);
    void AddSeparator();
    // Told the chosen item's index once the menu closed.
    void SetChooseHandler(std::function<void(int)> handler) { m_onChoose = std::move(handler); }

    // Opens on a window of this base layer; the menu shows, and takes the keys, until closed.
    void Popup(ISysWindow* window, point<int> const& at) override;
    void Close();
    bool IsOpen() const { return m_window != nullptr; }
    int GetCurrent() const { return m_current; }

    // The backends' part, in the menu's own pixels at the display scale `scale`.
    size<int> Measure(IPainter* painter, double scale) const;
    void Draw(IPainter* painter, size<int> const& menuSize, double scale) const;
    // The enabled item at the point, -1 for none.
    int ItemAt(point<int> const& at, double scale) const;
    void PointerMoved(point<int> const& at, double scale);
    void PointerReleased(point<int> const& at, double scale);
    void KeyPressed(int virtualKey);

private:
    friend class CSysWindowBase;

    struct SItem {
        std::string text;
        bool enabled = true;
        bool separator = false;
    };

    int ItemTop(int index, double scale) const;
    static int ItemHeight(SItem const& item, double scale);
    void SetCurrent(int index);
    void Step(int direction);
    void Choose(int index);

    std::vector<SItem> m_items;
    int m_current = -1;
    CSysWindowBase* m_window = nullptr;
    std::function<void(int)> m_onChoose;
};

} // namespace mirel7
