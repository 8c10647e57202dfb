#include "view/tools/hovertool.h"

#include "scene/iselectable.h"
#include "scene/selectablekeys.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "view/pick/viewselection.h"
#include "view/statustext.h"
#include "view/tools/viewpointer.h"

void CHoverTool::Hover()
{
    if (m_pointer.Hovered().Update(m_pointer.Hits()))
        Show();
}

void CHoverTool::Show()
{
    if (const ISelectable* const pCurrent = m_pointer.Hovered().Current())
        m_pointer.Tell(StatusText::OfItem(Get(*pCurrent, SelectableKey::STATUSBAR_STRING), pCurrent->name()));
    else
        m_pointer.ForgetTold();
    m_view.UpdateCamera(); // selection and highlight need no building
}

bool CHoverTool::Move(const SPointerEvent& event)
{
    const SViewState& state = m_view.State();
    if (!state.bActive || state.eMode != MouseNormal || event.buttons || event.eAction != MouseNone)
        return false;
    Hover();
    return true;
}

bool CHoverTool::Release(const SPointerEvent& event)
{
    if (event.state.bDragged || event.eAction != MouseSelect)
        return false;
    const qint64 nViewId = m_view.State().nViewId;
    if (const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulationOfView(nViewId)) {
        Hover(); // the pointer may not have moved since the view changed
        ViewSelection::Click(nViewId, pSimulation->GetId(), m_pointer.Hovered().Current(),
                             event.state.modifiers & Qt::ControlModifier);
        m_view.UpdateCamera();
    }
    return true;
}

bool CHoverTool::DoubleClick(const SPointerEvent& event)
{
    ISelectable* const pCurrent = m_pointer.Hovered().Current();
    if (event.eButton != Qt::LeftButton || !pCurrent)
        return false;
    CSelectableManager::Instance().NotifyDoubleClicked(pCurrent);
    return true;
}

bool CHoverTool::Key(MouseAction_e eAction, bool bDown)
{
    if (!bDown || eAction != MouseToggleHover)
        return false;
    if (m_pointer.Hovered().Step())
        Show();
    return true;
}

void CHoverTool::Leave()
{
    if (m_pointer.Hovered().Clear())
        Show();
}
