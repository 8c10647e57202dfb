#include "view/tools/measuretool.h"

#include "view/statustext.h"
#include "view/tools/viewpointer.h"

namespace {

/** The key of a measurement is down: the second end of its line follows the pointer. */
bool IsMeasuring(MouseAction_e eAction)
{
    return eAction == MouseMeasureDistance || eAction == MousePointInformation;
}

} // namespace

std::optional<std::pair<DVector3D, DVector3D>> CMeasureTool::Line() const
{
    return m_bShown && m_from && m_to ? std::optional(std::pair(*m_from, *m_to)) : std::nullopt;
}

bool CMeasureTool::Move(const SPointerEvent& event)
{
    if (!m_bShown || !IsMeasuring(event.eAction))
        return false;
    Follow();
    return true;
}

void CMeasureTool::Follow()
{
    const SPointPick& pick = m_pointer.Pick();
    if (!pick.point.bHasPoint)
        return;
    m_to = pick.displayed;
    m_pointer.Tell(StatusText::Distance(*m_from, *m_to));
    m_view.UpdateCamera();
}

bool CMeasureTool::Release(const SPointerEvent& event)
{
    if (event.state.bDragged || event.eAction != MouseMeasureDistance)
        return false;
    Begin();
    return true;
}

void CMeasureTool::Begin()
{
    const SPointPick& pick = m_pointer.Pick();
    if (!pick.point.bHasPoint)
        return;
    m_to = std::exchange(m_from, pick.displayed);
    m_bShown = true;
    m_pointer.Tell(m_to ? StatusText::DistanceFromPrevious(*m_to, *m_from)
                        : StatusText::OfPoint(pick.point.sItemName, pick.point));
    m_view.UpdateCamera();
}

bool CMeasureTool::Key(MouseAction_e eAction, bool bDown)
{
    if (!bDown && !IsMeasuring(eAction))
        Cancel();
    if (!bDown || !m_bShown || eAction != MousePointInformation)
        return false;
    Follow();
    return true;
}

void CMeasureTool::Cancel()
{
    m_to.reset();
    m_bShown = false;
}
