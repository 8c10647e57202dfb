#include "view/annotations/annotationcolormap.h"

#include "data/variables/variablemanager.h"
#include "scene/drawablemanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "view/annotations/icolormapeditor.h"
#include "view/annotations/legendpainter.h"
#include "view/annotations/legendtexts.h"

#include <utility>

namespace {

IColormapEditor* s_pEditor = nullptr;

/** Makes it the only selected one of its pair. */
void SelectAlone(ISelectable& selectable)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    const qint64 nViewId = selectable.viewId(), nSimulationId = selectable.simulationId();
    if (manager.GetSelected(nViewId, nSimulationId) == QVector<ISelectable*>{&selectable})
        return;
    for (ISelectable* const pOther : manager.GetSelectables(nViewId, nSimulationId))
        pOther->setSelected(pOther == &selectable);
    manager.NotifySelectionChanged(nViewId, nSimulationId);
}

} // namespace

IColormapEditor* IColormapEditor::Install(IColormapEditor* pEditor)
{
    return std::exchange(s_pEditor, pEditor);
}

IColormapEditor* IColormapEditor::Installed() { return s_pEditor; }

void CAnnotationColormap::setSettings(const SLegendSettings& settings)
{
    m_settings = settings;
    m_bDirty = true;
}

void CAnnotationColormap::setPosition(const QPoint& position)
{
    if (position != this->position())
        m_freePlace.reset();
    CAnnotation::setPosition(position);
    showAt(position);
}

// Moved as it stands: a drag doesn't measure any text.
void CAnnotationColormap::showAt(const QPoint& position)
{
    const QPoint distance = position - m_shownPosition;
    m_shownPosition = position;
    for (QRect* const pRect : {&m_layout.frame, &m_layout.colorbar, &m_layout.title, &m_layout.subtitle})
        pRect->translate(distance);
    for (QRect& label : m_layout.labels)
        label.translate(distance);
}

const IDrawable* CAnnotationColormap::ShownDrawable() const
{
    if (!isVisible())
        return nullptr;
    const IDrawable* const pDrawable = CDrawableManager::Instance().Find(m_nSerial);
    const bool bShown = pDrawable && pDrawable->usesColormap() &&
                        CVariableManager::Instance().GetVariable(pDrawable->scalarVariable());
    return bShown ? pDrawable : nullptr;
}

bool CAnnotationColormap::hitTest(const QPoint& point) const
{
    return CAnnotation::hitTest(point) && ShownDrawable();
}

void CAnnotationColormap::forgetLayout()
{
    m_layout = {};
    m_bDirty = true;
    setSize({0, 0});
    setHot(false);
}

void CAnnotationColormap::takeLook(const CAnnotationColormap& other)
{
    const qint64 nSerial = m_nSerial;
    *this = other;
    m_nSerial = nSerial;
    forgetLayout();
}

void CAnnotationColormap::updateLayout()
{
    if (const IDrawable* const pDrawable = CDrawableManager::Instance().Find(m_nSerial))
        UpdateLayout(*pDrawable);
}

void CAnnotationColormap::UpdateLayout(const IDrawable& drawable)
{
    const auto InForce = [](const SLegendText& text, const QString& sAutomatic) {
        return text.sText.isEmpty() ? sAutomatic : text.sText;
    };
    const SLegendContent content = {InForce(m_settings.title, AutomaticTitle(drawable)),
                                    InForce(m_settings.subtitle, AutomaticSubtitle(drawable)),
                                    ShowsNoValues(drawable)
                                        ? QStringList("no values")
                                        : LegendLabels(m_settings, drawable.colormapRange())};
    if (!m_bDirty && content == m_content)
        return;
    m_content = content;
    m_layout = LayoutLegend(m_settings, m_content, m_shownPosition);
    setSize(m_layout.size);
    m_bDirty = false;
}

void CAnnotationColormap::paint(QPainter* pPainter, const SCanvas& canvas)
{
    const IDrawable* const pDrawable = ShownDrawable();
    if (!pDrawable)
        return;
    UpdateLayout(*pDrawable);
    PaintLegend(*pPainter, *this, pDrawable->colormap().nId, canvas);
}

bool CAnnotationColormap::doubleClicked()
{
    const IDrawable* const pDrawable = CDrawableManager::Instance().Find(m_nSerial);
    ISelectable* const pOwner = pDrawable ? pDrawable->ownerSelectables().value(0) : nullptr;
    if (!pOwner || !s_pEditor)
        return false;
    const qint64 nSimulationId = pOwner->simulationId(), nViewId = pOwner->viewId();
    SelectAlone(*pOwner);
    return s_pEditor->EditColormap(nSimulationId, nViewId);
}
