#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/event_handler_base.h>
#include <mirelfrw7/items/holder_pointer.h>
#include <mirelfrw7/items/item_utils.h>

#include <memory>

namespace mirelfrw7 {

// What the handlers of both kinds of axis share: a view model of kind `M`, their own default until another
// is set, heard for its changes and for its scroll notices, which go to the slot that `H::ScrollSlot()`
// names.
template <class M, class H>
class MIRELFRW7_API CItemAxisHandler : public CEventHandlerBase {
public:
    IBaseItemViewModel* GetItemViewModel() const override { return m_viewModel.Get(); }
    M* GetViewModel() const { return m_viewModel.Get(); }
    int GetItemIndex(int x, int y) override { return Utils::HitTest(*m_viewModel.Get(), AlongOf(x, y)); }

    // Null means the handler's own default; another model is not owned.
    void SetViewModel(M* model) {
        M* const old = m_viewModel.Get();
        m_viewModel.Set(model);
        if (m_viewModel.Get() == old) return;
        Link(old, false);
        Link(m_viewModel.Get(), true);
    }

protected:
    explicit CItemAxisHandler(std::unique_ptr<M> fallback) : m_viewModel(std::move(fallback)) {
        Link(m_viewModel.Get(), true);
    }

    // The body of both scroll slots: the pixels move when the viewer can move them, and `always` says
    // whether that is tried even when the model's notice said it could not.
    void ItemsScrolled(int position, int delta, bool* canScroll, bool always) {
        if (!m_viewer || delta == 0) {
            *canScroll = false;
            return;
        }
        if (always || *canScroll) *canScroll = ScrollItems(position, delta);
        m_viewer->OnChange(m_viewer, UpdateLocal);
    }

    CHolderPointer<M> m_viewModel;

private:
    void Link(M* model, bool link) {
        LinkViewModel(model, link);
        H* const self = static_cast<H*>(this);
        if (link)
            model->sigItemsScrolled.connect(self, H::ScrollSlot());
        else
            model->sigItemsScrolled.disconnect(self, H::ScrollSlot());
    }
};

} // namespace mirelfrw7
