#include "view/drawables/drawable.h"

#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "scene/drawablemanager.h"
#include "scene/iselectable.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "view/annotations/annotationcolormap.h"

namespace {

qint64 NextSerial()
{
    static qint64 s_nLast = 0;
    return ++s_nLast;
}

} // namespace

CDrawable::CDrawable(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId, int nShaderKey)
    : m_nSerial(NextSerial()),
      m_nSimulationId(nSimulationId),
      m_nViewId(nViewId),
      m_nBlockId(nBlockId),
      m_nShaderKey(nShaderKey),
      m_pLegend(std::make_unique<CAnnotationColormap>())
{
    m_pLegend->setDrawableSerial(m_nSerial);
    m_state.dLineThickness = CPreferences::Instance().Draw().fLineThickness;
    m_state.colormap.nId = qint32(Get(CPreferences::Instance(), PreferenceKey::DEFAULT_COLORMAP));
    setAutoDelete(false); // a task may call build, it never owns the drawable
    ResetBounds();
    CDrawableManager::Instance().Add(nViewId, nSimulationId, this);
}

CDrawable::~CDrawable() { CDrawableManager::Instance().Remove(this); }

void CDrawable::setViewId(qint64 nViewId)
{
    if (nViewId == m_nViewId)
        return;
    CDrawableManager::Instance().Remove(this);
    m_nViewId = nViewId;
    CDrawableManager::Instance().Add(nViewId, m_nSimulationId, this);
}

bool CDrawable::OwnerShows(bool (ISelectable::*is)() const, bool bRespect) const
{
    // The owners first: for most drawables of a frame they are all that has to be asked.
    const auto isShown = [is](const ISelectable* p) { return (p->*is)(); };
    if (isPreview() || std::none_of(m_owners.begin(), m_owners.end(), isShown))
        return false;
    if (!bRespect || CPreferences::Instance().Draw().bHighlightOutline)
        return true; // the outline lies round the item and hides nothing of it
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(m_nSimulationId);
    return !pSimulation || pSimulation->ShowsSelection();
}

bool CDrawable::isSelected(bool bRespect) const { return OwnerShows(&ISelectable::isSelected, bRespect); }
bool CDrawable::isHighlighted(bool bRespect) const { return OwnerShows(&ISelectable::isHover, bRespect); }

void CDrawable::ResetBounds()
{
    constexpr double LARGEST = std::numeric_limits<double>::max();
    m_boundsMinimum = {LARGEST, LARGEST, LARGEST};
    m_boundsMaximum = {-LARGEST, -LARGEST, -LARGEST};
}

void CDrawable::AddToBounds(const DVector3D& point)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        m_boundsMinimum[nAxis] = std::min(m_boundsMinimum[nAxis], point[nAxis]);
        m_boundsMaximum[nAxis] = std::max(m_boundsMaximum[nAxis], point[nAxis]);
    }
}
