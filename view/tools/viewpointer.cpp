#include "view/tools/viewpointer.h"

#include "frame/preferences/preferences.h"
#include "frame/widgetmanager.h"
#include "view/tools/viewtool.h"

namespace {

constexpr qint64 MANY_ITEMS = 1'000'000; // to put into pick trees, about 0.1 s

} // namespace

std::shared_ptr<void> WaitForTrees(const IToolView& view, const SPickArea& area)
{
    return ViewPicker::CountNewItems(area) > MANY_ITEMS ? view.Wait() : nullptr;
}

CViewPointer::CViewPointer(const IToolView& view) : m_view(view), m_hover(view.State().nViewId) {}

SPickArea CViewPointer::Area() const
{
    const SViewState& state = m_view.State();
    return {state.nViewId, state.camera.View(),
            state.camera.PickRect(state.cursor, CPreferences::Instance().Draw().nSelectionArea)};
}

QVector<ISelectable*> CViewPointer::Hits() const
{
    const SPickArea area = Area();
    const auto pWait = WaitForTrees(m_view, area);
    return ViewPicker::HitsFromFront(area);
}

const SPointPick& CViewPointer::Pick()
{
    const SPickArea area = Area();
    const auto pWait = WaitForTrees(m_view, area);
    m_picked = ViewPicker::PointAt(area, m_hover.Asked());
    return m_picked;
}

void CViewPointer::Tell(const QString& sText)
{
    m_sTold = sText;
    CWidgetManager::Instance().SetStatusText(sText);
}

void CViewPointer::ForgetTold() const { CWidgetManager::Instance().ForgetStatusText(m_sTold); }
