#pragma once

#include <mirelfrw7/core/base.h>
#include <mirelfrw7/core/children.h>
#include <mirelfrw7/core/drag_drop.h>
#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>

#include <mirel7/events.h>
#include <mirel7/painter.h>
#include <mirel7/palette.h>
#include <mirel7/types.h>

#include <string>
#include <vector>

namespace mirel7 {
class IPopupMenu;
class ICustomPalette;
} // namespace mirel7

namespace mirelfrw7 {

using mirel7::_color;
using mirel7::brush;
using mirel7::font;
using mirel7::IPainter;
using mirel7::IRasterPicture;
using mirel7::ISysPalette;
using mirel7::mirel_ptr;
using mirel7::MouseButton;
using mirel7::pen;
using mirel7::point;
using mirel7::rectangle;
using mirel7::screen_rectangle;
using mirel7::size;

class IControl;

// How a child docks into its parent; the numbers are compared and switched on throughout.
enum Alignment {
    AlignNone = 0,
    AlignLeft = 1,
    AlignRight = 2,
    AlignTop = 3,
    AlignBottom = 4,
    AlignClient = 5
};

// A bit word: what an update asks of the control.
enum UpdateType { UpdateGlobal = 1, UpdateLocal = 2, UpdateLeaving = 16 };

// The base of everything visible: a rectangle in its parent, a child list, docking, colours and font, and
// the dispatch of input down and up the tree. Elements never paint on their own: they queue updates and
// rearrangements with their control, whose paint pass works them off.
//
// Rectangles are (left, top, right, bottom) with right and bottom inclusive in the arranging arithmetic; the
// bounds are kept in the parent's coordinates.
class MIRELFRW7_API CVisualElement : public CBase,
                                     public CDragSource,
                                     public CDropTarget,
                                     public tarnkit2::subscriber_base_t {
protected:
    // What a layout or update pass reads of every element, together at the front: a pass over more elements
    // than the caches hold then fetches two lines of each (with the signal a pass emits), not five spread
    // over an element whose signals, colours, font and texts lie between.
    rectangle<int> m_bounds;
    rectangle<int> m_validRect;
    size<int> m_size;
    Alignment m_alignment;
    bool m_visible = true;
    bool m_enabled = true;
    IControl* m_control = nullptr;
    CVisualElement* m_parent = nullptr;
    IChildren* m_children;

private:
    // The element's own child list, inside it rather than allocated apart: one allocation less per element
    // and no line of its own to fetch.
    CChildren m_ownChildren;

public:
    template <class... A>
    using signal_t = tarnkit2::signal_t<A...>;
    using MouseSignal = signal_t<CVisualElement*, int, int, int, MouseButton>;

    signal_t<CVisualElement*> sigPosChanged;
    MouseSignal sigButtonDown;
    MouseSignal sigButtonUp;
    MouseSignal sigMouseMove;
    MouseSignal sigClick;
    MouseSignal sigDoubleClick;
    signal_t<CVisualElement*, int, int, int, MouseButton, int> sigWheel;
    signal_t<CVisualElement*> sigMouseHover;
    signal_t<CVisualElement*> sigMouseLeave;
    signal_t<CVisualElement*, int, int> sigKeyDown;
    signal_t<CVisualElement*, int, int> sigKeyUp;
    signal_t<CVisualElement*, char> sigChar;
    signal_t<CVisualElement*, mirel7::CTooltipEvent*> sigTooltip;
    signal_t<CVisualElement*, mirel7::CTooltipEvent*> sigTooltipTrack;
    signal_t<CVisualElement*, int, int> sigContextMenu;
    signal_t<CVisualElement*> sigGetFocus;
    signal_t<CVisualElement*> sigLostFocus;
    signal_t<CVisualElement*, CVisualElement*> sigChildGetFocus;
    signal_t<CVisualElement*, CVisualElement*> sigChildLostFocus;
    signal_t<CVisualElement*, IPainter*> sigPaint;
    signal_t<CVisualElement*, bool> sigVisibleChanged;
    signal_t<CVisualElement*> sigControlDestroy;
    signal_t<CVisualElement*, std::string&> sigAsString;
    signal_t<CVisualElement*, bool&> sigCopyToClipboard;
    signal_t<CVisualElement*> sigDestroy;

    // `elementSize` is scaled for the display; the element joins `parent` last, after its own members.
    CVisualElement(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);
    ~CVisualElement() override;
    CVisualElement(CVisualElement const&) = delete;
    CVisualElement& operator=(CVisualElement const&) = delete;

    // --- Virtual operations -----------------------------------------------------------------------------

    // Stores the wanted size (scaled when `scale`); negative parts become 0; a change rearranges.
    virtual void SetSize(size<int> const& newSize, bool scale);
    // Places the element and, when it arranges, docks its children.
    virtual void SetPos(rectangle<int> const& newRect, bool force);
    // The rectangle the children dock into, in the element's own coordinates.
    virtual rectangle<int> GetContentRect() const;
    virtual void SetAlignment(Alignment alignment);
    virtual void SetEnabled(bool enabled);
    virtual _color GetBkColor() const;
    virtual _color GetFgColor() const;
    virtual CVisualElement* GetFirstTabElement();
    virtual CVisualElement* GetLastTabElement();
    virtual CVisualElement* GetNextTabElement(CVisualElement* from);
    virtual CVisualElement* GetPrevTabElement(CVisualElement* from);
    // Draws the element and its children; the painter's coordinate system is set to the element.
    virtual void OnDraw(IPainter* painter);
    // False when a visible child is not: such an element cannot simply move its pixels.
    virtual bool IsFullRepainted() const;
    virtual bool IsTransparent() const;
    virtual void SetHelpId(std::string const& id);
    // A clip for the drawing of the children, in the element's coordinates; all zero for none.
    virtual rectangle<int> GetDrawBounds() const;
    virtual bool IsCopyToClipboardEnabled() const;
    virtual void DrawContent(IPainter* painter);
    virtual mirel7::ICustomPalette* GetCustomPalette() const;
    virtual bool HandleGetBkImage(mirel_ptr<IRasterPicture>& picture, _color& color, rectangle<int>& place);
    virtual void UpdateElement();
    // Moves what the element shows inside itself; true when it did.
    virtual bool ScrollContent(int dx, int dy);
    virtual bool IsScrollableOnSetPos() const;
    virtual void ProcessSetControl(IControl* control);
    virtual void AfterSetControl();
    virtual void SetCoordSystem(IPainter* painter);
    virtual void SysColorsChanged();
    virtual void AttributeChanged();
    virtual void ProcessSetVisible(bool visible);
    virtual void ProcessSetParentVisible(bool visible);
    virtual void AddNewChild(CVisualElement* child);
    virtual void ChangeParent(CVisualElement* oldParent);

    virtual bool HandleMouseMove(int x, int y, int flags, MouseButton button);
    virtual bool HandleButtonDown(int x, int y, int flags, MouseButton button);
    virtual bool HandleButtonUp(int x, int y, int flags, MouseButton button);
    virtual bool HandleClick(int x, int y, int flags, MouseButton button);
    virtual bool HandleDoubleClick(int x, int y, int flags, MouseButton button);
    virtual bool HandleWheel(int x, int y, int flags, MouseButton button, int delta);
    virtual void HandleMouseHover(CVisualElement* previous);
    virtual void HandleMouseLeave(CVisualElement* next);
    virtual void HandleChildrenMouseHover(CVisualElement* previous);
    virtual void HandleChildrenMouseLeave(CVisualElement* next);
    virtual bool HandleKeyDown(int flags, int key);
    virtual bool HandleKeyUp(int flags, int key);
    virtual bool HandleChar(char c);
    virtual bool HandleOnTooltip(mirel7::CTooltipEvent* ev);
    virtual bool HandleOnTooltipTrack(mirel7::CTooltipEvent* ev);
    virtual bool HandleContextMenu(int x, int y);
    // `direct` false: the element was asked to take the focus it cannot have; it passes it to its delegate.
    virtual void HandleGetFocus(CVisualElement* previous, bool direct);
    virtual void HandleLostFocus(CVisualElement* next);
    virtual void HandleChildFocusChanged(CVisualElement* element, CVisualElement* other, bool gotFocus);
    virtual void HandleControlChangeFocus(bool gotFocus);
    virtual void HandleControlDestroy();
    virtual void HandleRefreshPos();

    // Ancestors may redirect a rearrangement or an update to another element, or stop it (null).
    virtual void ProcessRearrange(CVisualElement** sender);
    virtual void ProcessChange(CVisualElement** sender);
    virtual bool BeforeProcessChange(CVisualElement* sender, UpdateType type);
    virtual bool IsControlFocused() const;
    virtual std::string HandleAsString() const;
    virtual bool HandleCopyToClipboard() const;

    // --- Geometry -----------------------------------------------------------------------------------------

    // Both scale the other dimension again when `scale` is set.
    void SetWidth(int width, bool scale);
    void SetHeight(int height, bool scale);
    size<int> GetSize() const { return m_size; }
    Alignment GetAlignment() const { return m_alignment; }
    // The element's own rectangle at its own origin.
    rectangle<int> GetBounds() const;
    // The bounds in the parent's coordinates.
    rectangle<int> const& GetPosition() const { return m_bounds; }
    // The part known to be correct on the screen, relative to the element's origin.
    rectangle<int> GetValidRect() const;
    void Invalidate();
    bool GetDisplayableRect(rectangle<int>* rect) const;
    void ControlToElement(point<int>* p) const;
    void ControlToElement(rectangle<int>* r) const;
    void ElementToControl(point<int>* p) const;
    void ElementToControl(rectangle<int>* r) const;
    void DP2LP(point<double>* p);
    void LP2DP(point<double>* p);
    rectangle<double> GetDrawRect(IPainter* painter) const;
    rectangle<double> GetDrawValidRect(IPainter* painter) const;
    void Scroll(int dx, int dy, bool force);
    void ForceRearrange();
    void RefreshPos();
    point<int> GetMousePos() const;
    int GetTextLineHeight();
    double GetSizeScale() const;

    // --- Tree ---------------------------------------------------------------------------------------------

    void ReParent(CVisualElement* newParent, bool rearrange);
    void SetControl(IControl* control);
    IControl* GetControl() const { return m_control; }
    CVisualElement* GetParent() const { return m_parent; }
    IChildren* GetChildren() const { return m_children; }
    bool IsDisplayable() const;
    // Also answers for no element at all: a null element counts as displayable.
    static bool IsDisplayable(CVisualElement const* element);
    bool IsChildrenAvailable(int count) const;
    // The deepest visible child at (x, y), in this element's coordinates; never this element.
    CVisualElement* FindVisualElement(int x, int y);
    CVisualElement* FindVisualElement(unsigned long const& id, bool displayableOnly);

    // --- State --------------------------------------------------------------------------------------------

    void SetVisible(bool visible);
    bool IsVisible() const { return m_visible; }
    void SetParentVisible(bool visible);
    bool IsEnabled() const { return m_enabled; }
    void SetCursor(int cursor);
    int GetCursor() const { return m_cursor; }
    void SetBkColor(_color const& color);
    void SetBkColor(ISysPalette::SysColor color);
    void SetFgColor(_color const& color);
    void SetFgColor(ISysPalette::SysColor color);
    ISysPalette::SysColor GetBkSysColor() const { return m_bkSysColor; }
    ISysPalette::SysColor GetFgSysColor() const { return m_fgSysColor; }
    void SetFont(font const& f);
    // The stored font when it has a size, else the default GUI font adjusted by the stored fields.
    font GetFont() const;
    font const& GetStoredFont() const { return m_font; }
    std::string const& GetHelpId() const { return m_helpId; }
    void SetTooltip(std::string const& text, bool flag = false);
    std::string const& GetTooltip() const { return m_tooltip; }
    void SetContextMenu(mirel7::IPopupMenu* menu) { m_contextMenu = menu; }
    void SetFocusable(bool focusable) { m_focusable = focusable; }
    bool IsFocusable() const { return m_focusable; }
    void SetId(unsigned long id) { m_id = id; }
    unsigned long GetId() const { return m_id; }
    CVisualElement* GetFocusDelegate() const { return m_focusDelegate; }
    void SetFocusDelegate(CVisualElement* delegate) { m_focusDelegate = delegate; }
    bool IsPressed() const { return m_pressed; }

    // --- Updates ------------------------------------------------------------------------------------------

    void Update(UpdateType type);
    void OnChange(CVisualElement* sender, UpdateType type);
    void OnRearrange(CVisualElement* sender);
    bool OnGlobalUpdate();

    // --- Background image ---------------------------------------------------------------------------------

    bool IsBkImagePresented();
    bool GetBkImage(mirel_ptr<IRasterPicture>& picture, _color& color, rectangle<int>& place);
    rectangle<int> GetBkImageRect(rectangle<int>& dst);
    rectangle<int> GetBkImageRectEx(rectangle<int>& dst, IRasterPicture* picture,
                                    rectangle<int> const& place);
    bool DrawBkImage(IPainter* painter, rectangle<int> const& rect, size<int> const& scaleTo);
    bool DrawBkImageEx(IPainter* painter, rectangle<int> const& rect, IRasterPicture* picture,
                       _color const& color, rectangle<int> const& place, size<int> const& scaleTo);
    void DrawBlendBk(IPainter* painter, rectangle<int> const& rect, brush const& b, int alpha);

    // --- Text ---------------------------------------------------------------------------------------------

    std::string AsString() const;
    bool CopyToClipboard();

    // --- Input (dispatch down and up the tree) ------------------------------------------------------------

    void SetFocus(bool setSystemFocus);
    bool IsFocused() const;
    void CaptureMouse();
    void ReleaseMouse();
    bool ProcessButtonDown(int x, int y, int flags, MouseButton button);
    bool ProcessButtonUp(int x, int y, int flags, MouseButton button);
    bool ProcessMouseMove(int x, int y, int flags, MouseButton button);
    bool ProcessDoubleClick(int x, int y, int flags, MouseButton button);
    bool ProcessWheel(int x, int y, int flags, MouseButton button, int delta);
    bool ProcessKeyDown(int flags, int key, bool bubbling);
    bool ProcessKeyUp(int flags, int key, bool bubbling);
    bool ProcessChar(char c, bool bubbling);
    void ProcessMouseHover(CVisualElement* previous);
    void ProcessMouseLeave(CVisualElement* next);
    void ProcessChildrenMouseHover(CVisualElement* previous);
    void ProcessChildrenMouseLeave(CVisualElement* next);
    bool ProcessTooltip(mirel7::CTooltipEvent* ev);
    bool ProcessTooltipTrack(mirel7::CTooltipEvent* ev);
    void ProcessContextMenu(int x, int y);
    void ProcessGetFocus(CVisualElement* previous);
    void ProcessLostFocus(CVisualElement* next);
    void ProcessChildGetFocus(CVisualElement* focused, CVisualElement* other);
    void ProcessChildLostFocus(CVisualElement* lost, CVisualElement* other);
    void ProcessControlChangeFocus(bool gotFocus);
    void ProcessSysColorChanged();
    void ProcessControlDestroy();

protected:
    int m_cursor = 1;
    font m_font;
    _color m_bkColor;
    ISysPalette::SysColor m_bkSysColor;
    _color m_fgColor;
    ISysPalette::SysColor m_fgSysColor;
    std::string m_tooltip;
    bool m_tooltipFlag = false;
    mirel7::IPopupMenu* m_contextMenu = nullptr;
    CVisualElement* m_focusDelegate = nullptr;
    bool m_pressed = false;
    bool m_focusable = false;
    unsigned long m_id = 0;
    std::string m_helpId;

private:
    void PrefetchSiblings(int index) const;
    CVisualElement* GetNextTabElementInt(CVisualElement* from, bool enterFrom);
    // The colour of a palette index for this element: its custom palette, else the system palette.
    _color PaletteColor(ISysPalette::SysColor index) const;
};

// The plain root of every control's tree.
class MIRELFRW7_API CContent : public CVisualElement {
public:
    using CVisualElement::CVisualElement;
    void DrawContent(IPainter* painter) override;
};

// Draws the visible elements of `list` in order, each with the painter's coordinate system set to it. A clip
// that is not all zero skips elements lying outside it.
MIRELFRW7_API void DrawElements(IVisualElements* list, IPainter* painter, rectangle<int> const& clip);

// Pixel sizes grow with the display's scale when automatic scaling is on; truncated towards zero.
MIRELFRW7_API void ApplyDPIScale(size<int>& value);
MIRELFRW7_API void ApplyDPIScale(rectangle<int>& value);
MIRELFRW7_API void ApplyDPIScale(int& value);

// True when `element` is `ancestor` or lies below it; false for a null argument.
MIRELFRW7_API bool IsAncestor(CVisualElement const* element, CVisualElement const* ancestor);
MIRELFRW7_API bool CanHaveFocus(CVisualElement const* element);
// Puts the element's text on the clipboard; false when it had none.
MIRELFRW7_API bool CopyToClipboard(CVisualElement const* element);
// True when a full paint draws the element: it and every ancestor are visible and have an area.
MIRELFRW7_API bool IsDrawn(CVisualElement const* element);
// The rectangle, in the parent's coordinates, that the element and its children draw on: more than its own
// when children lie outside it. False when it draws nothing; `shown` counts the element visible.
MIRELFRW7_API bool GetExtent(CVisualElement const* element, rectangle<int>& extent, bool shown);
// The visible later siblings of `element` and of each of its ancestors that are drawn over `rect` (in the
// parent's coordinates), or over a sibling found so before them, each with its extent, in drawing order: what
// must be drawn again after the element repaints there, for the screen to show what a full repaint shows.
MIRELFRW7_API void AddOverlapping(CVisualElement* element, rectangle<int> const& rect,
                                  std::vector<CVisualElement*>& out);
MIRELFRW7_API bool IsOverlapped(CVisualElement const* element, rectangle<int> const& rect);
// Moves pixels instead of repainting when an element only moved; an element under a later sibling there
// repaints instead.
MIRELFRW7_API void ScrollOnSetPos(CVisualElement* element, rectangle<int> const& newRect,
                                  rectangle<int> const& oldRect, rectangle<int> const& drawBounds);

} // namespace mirelfrw7
