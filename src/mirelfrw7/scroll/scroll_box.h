#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/layout/container.h>
#include <mirelfrw7/scroll/scroll_corner.h>
#include <mirelfrw7/scroll/scroll_element.h>
#include <mirelfrw7/scroll/scroll_model.h>
#include <mirelfrw7/scroll/scrollable_element.h>

#include <mirel7/scroll_bar.h>

namespace mirelfrw7 {

// Gives a central pane native scroll bars and keeps three things in step: each bar's position in pixels,
// its model's logical start, and where the content lies. Others are handed wrapped models, so that whoever
// moves a model (a wheel, an axis, a selection) takes the same path as the bar.
//
// The bars sit in two strips docked right and bottom, hidden until content overflows; the right strip
// comes first, so it takes the full height and the corner under its bar.
class MIRELFRW7_API CScrollBox : public CScrollableElement {
public:
    enum ConnectionType { ConnectHorz = 1, ConnectVert = 2 };

    // A strip holding a bar: it draws nothing and always lays its children out again.
    class MIRELFRW7_API CScrollContainer : public CVisualElement {
    public:
        using CVisualElement::CVisualElement;
        void DrawContent(IPainter* painter) override;
        void SetPos(rectangle<int> const& newRect, bool force) override;
    };

    // A model seen through the box: reads go to the wrapped model, a new start goes through the box so that
    // the content and the bar follow. Without a wrapped model it answers neutral values.
    class MIRELFRW7_API CInternalScrollModel : public IScrollModel {
    public:
        explicit CInternalScrollModel(CScrollBox* box) : m_box(box) {}
        double GetFrom() const override;
        double GetTo() const override;
        double GetStart() const override;
        int GetMinScrollDistance() const override;
        bool IsFixedStepSize() const override;
        double GetStepSize(double step) const override;
        // Never reaches the wrapped model: step sizes belong to whoever owns the model.
        void SetStepSize(double step, double size) const override;
        void SetMeasure(std::pair<double, int> measure) override;
        std::pair<double, int> GetMeasure() const override;
        bool IsInseparableStep() const override;
        void Update() override;

        void SetWrapped(IScrollModel* model) { m_wrapped = model; }
        IScrollModel* GetWrapped() const { return m_wrapped; }

    protected:
        IScrollModel* m_wrapped = nullptr;
        CScrollBox* m_box;
    };

    class MIRELFRW7_API CVertInternalScrollModel : public CInternalScrollModel {
    public:
        using CInternalScrollModel::CInternalScrollModel;
        void SetStart(double start) override;
    };

    class MIRELFRW7_API CHorzInternalScrollModel : public CInternalScrollModel {
    public:
        using CInternalScrollModel::CInternalScrollModel;
        void SetStart(double start) override;
    };

    // Lets the owner set how many logical units a wheel notch moves; 1 unless a slot changes it.
    signal_t<CVisualElement*, int&> sigWheelStep;

    CScrollBox(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);
    ~CScrollBox() override;

    void SetPos(rectangle<int> const& newRect, bool force) override;
    void SetEnabled(bool enabled) override;
    // The central pane's answer; false without one.
    bool IsFullRepainted() const override;
    void DrawContent(IPainter* painter) override;
    bool ScrollContent(int dx, int dy) override;
    void ProcessSetControl(IControl* control) override;
    // On the vertical axis while its bar shows, else on the horizontal one; false when neither shows.
    bool HandleWheel(int x, int y, int flags, MouseButton button, int delta) override;
    void HandleControlDestroy() override;
    void SetCentralPane(CVisualElement* pane) override;
    void SetVertScroll(IScrollModel* model) override;
    void SetHorzScroll(IScrollModel* model) override;

    void CreateScrollbars(IControl* control);
    void ReleaseScrollbars();
    // `own`: `element` becomes the central pane and lends its models to the box; otherwise it follows the
    // pane. Either way it ends up with the wrapped models of the axes in `type`.
    void ConnectElement(CScrollableElement* element, int type, bool own);
    IScrollModel* GetWrappedVertScroll() const { return &m_vertWrapper; }
    IScrollModel* GetWrappedHorzScroll() const { return &m_horzWrapper; }
    // Brings both bars and their strips in line with the models and the central pane's size.
    void RefreshScroll();
    void VertScroll(mirel7::CScrollEvent::ScrollAction action, double value);
    void HorzScroll(mirel7::CScrollEvent::ScrollAction action, double value);
    // Sets the model's start; answers the pixels the content must move, 0 when it must not.
    int ScrollImp(IScrollModel* model, double value);

    void SetBarMode(CScrollElement::BarMode vert, CScrollElement::BarMode horz);
    CScrollElement const& GetVertElement() const { return m_vertElement; }
    CScrollElement const& GetHorzElement() const { return m_horzElement; }
    mirel7::IScrollBar* GetVertBar() const { return m_vertBar.get(); }
    mirel7::IScrollBar* GetHorzBar() const { return m_horzBar.get(); }
    CVisualElement const& GetRightStrip() const { return m_rightStrip; }
    CVisualElement const& GetBottomStrip() const { return m_bottomStrip; }
    CVisualElement const& GetCorner() const { return m_corner; }
    // When false, moving a model never moves the content.
    void SetScrollPixels(bool scroll) { m_scrollPixels = scroll; }
    bool GetScrollPixels() const { return m_scrollPixels; }
    void SetCornerAlways(bool always);
    bool GetCornerAlways() const { return m_cornerAlways; }
    // After each scroll the window repaints everything at once; inside a paint pass it only invalidates.
    void SetRepaintAtOnce(bool atOnce) { m_repaintAtOnce = atOnce; }
    bool GetRepaintAtOnce() const { return m_repaintAtOnce; }
    // Honours the setting above.
    void RepaintAtOnce();

protected:
    CScrollElement m_vertElement;
    CScrollElement m_horzElement;
    CScrollContainer m_rightStrip;
    CScrollContainer m_bottomStrip;
    CScrollCorner m_corner;
    CContainer m_vertBarHost;
    CContainer m_horzBarHost;
    mirel_ptr<mirel7::IScrollBar> m_vertBar;
    mirel_ptr<mirel7::IScrollBar> m_horzBar;
    // Views handed out from const accessors: they hold nothing of their own.
    mutable CVertInternalScrollModel m_vertWrapper{this};
    mutable CHorzInternalScrollModel m_horzWrapper{this};
    bool m_scrollPixels = true;
    bool m_cornerAlways = false;
    bool m_inScroll = false;
    bool m_repaintAtOnce = false;

private:
    void RefreshOnce();
    void UpdateCorner();
    bool m_inRefresh = false;
    bool m_refreshAgain = false;
};

} // namespace mirelfrw7
