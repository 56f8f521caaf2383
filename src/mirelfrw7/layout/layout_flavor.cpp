#include <mirelfrw7/layout/layout_flavor.h>

#include <mirelfrw7/layout/layout_manager.h>

#include <mirel7/assert.h>

namespace mirelfrw7 {

using mirel7::point;
using mirel7::rectangle;

bool CLayoutFlavor::ChangeLayout(Alignment alignment) {
    m_layout = CLayoutManager::GetLayout(alignment);
    return true;
}

ILayout const& CLayoutFlavor::Layout() const {
    // Forgetting ChangeLayout in a constructor would otherwise crash the first paint.
    MIREL_ASSERT(m_layout);
    return m_layout ? *m_layout : *CLayoutManager::GetLayout(AlignNone);
}

point<double>* CLayoutFlavor::IncAlong(point<double>* p, double d) const {
    return Layout().IncAlong(p, d);
}

point<double>* CLayoutFlavor::IncAcross(point<double>* p, double d) const {
    return Layout().IncAcross(p, d);
}

double CLayoutFlavor::GetAlong(double x, double y) const {
    return Layout().GetAlong(x, y);
}

double& CLayoutFlavor::GetAlongRef(double& x, double& y) const {
    return Layout().GetAlongRef(x, y);
}

int& CLayoutFlavor::GetAlongRef(int& x, int& y) const {
    return Layout().GetAlongRef(x, y);
}

double CLayoutFlavor::GetAcross(double x, double y) const {
    return Layout().GetAcross(x, y);
}

double& CLayoutFlavor::GetAcrossRef(double& x, double& y) const {
    return Layout().GetAcrossRef(x, y);
}

int& CLayoutFlavor::GetAcrossRef(int& x, int& y) const {
    return Layout().GetAcrossRef(x, y);
}

rectangle<int>* CLayoutFlavor::CutRect(rectangle<int>* r, rectangle<int> const& limit) const {
    return Layout().CutRect(r, limit);
}

point<double> CLayoutFlavor::MakePoint(double along, double across) const {
    return Layout().MakePoint(along, across);
}

rectangle<double> CLayoutFlavor::MakeRect(double along0, double across0, double along1,
                                          double across1) const {
    return Layout().MakeRect(along0, across0, along1, across1);
}

void CLayoutFlavor::ConvFont(mirel7::font* f) const {
    if (m_textConversion) Layout().ConvFont(f);
}

int CLayoutFlavor::ConvTextAlign(int flags) const {
    return m_textConversion ? Layout().ConvTextAlign(flags) : flags;
}

} // namespace mirelfrw7
