#include "window/picksession.h"

#include "scene/imouseclickreceiver.h"

#include <utility>

void CPickSession::Begin(IMouseClickReceiver* pReceiver, OglMouseMode_e eMode)
{
    Change(pReceiver, eMode, pReceiver != m_pReceiver);
}

void CPickSession::End() { Change(nullptr, MouseNormal, false); }

void CPickSession::Change(IMouseClickReceiver* pReceiver, OglMouseMode_e eMode, bool bTell)
{
    IMouseClickReceiver* const pFormer = std::exchange(m_pReceiver, pReceiver);
    const bool bSameMode = std::exchange(m_eMode, eMode) == eMode;
    if (bTell && pFormer)
        pFormer->PickEnded();
    if (!bSameMode)
        emit SignalMode(eMode);
}

void CPickSession::SlotModeOut(OglMouseMode_e eMode)
{
    if (eMode != m_eMode) // else a view that has followed
        Change(nullptr, eMode, true);
}

void CPickSession::SlotPointSelected(qint64, const SPickedPoint& point, ISelectable* pSelectable)
{
    if (m_pReceiver)
        m_pReceiver->PointPicked(point.xyz, point.ijk, pSelectable);
}
