#include "view/tools/picktool.h"

#include "view/statustext.h"
#include "view/tools/viewpointer.h"

namespace {

void PickAndTell(CViewPointer& pointer)
{
    // Not the hovered item's name: while the key is held, the pointer goes on to others.
    if (const SPickedPoint& point = pointer.Pick().point; point.bHasPoint)
        pointer.Tell(StatusText::OfPoint(point.sItemName, point));
}

} // namespace

bool CPickTool::Move(const SPointerEvent& event)
{
    if (!IsOn() && event.eAction != MousePointInformation && event.eAction != MouseMeasureDistance)
        return false;
    PickAndTell(m_pointer);
    return true;
}

bool CPickTool::Release(const SPointerEvent& event)
{
    if (!IsOn() || event.state.bDragged || event.eAction != MouseSelect)
        return false;
    PickAndTell(m_pointer); // the pointer may not have moved since the view changed
    if (m_pointer.Picked().point.bHasPoint)
        m_view.TellPoint(m_pointer.Picked());
    return true;
}

bool CPickTool::Key(MouseAction_e eAction, bool bDown)
{
    if (!bDown || eAction != MousePointInformation)
        return false;
    PickAndTell(m_pointer);
    return true;
}
