#pragma once

#include "scene/iselectable.h"
#include "scene/pickedpoint.h"
#include "view/camera/cameraoperator.h"

#include <QObject>

class IMouseClickReceiver;

/**
 * What the mouse does in all views, and who gets the points that are picked there. One mode and one receiver
 * at a time; the mode goes back to normal when it has done its work or the user leaves it.
 */
class CPickSession : public QObject
{
    Q_OBJECT

public:
    /**
     * Takes the place of what was on.
     *
     * @param pReceiver  lives until it ends the session or hears PickEnded; null for a mode without picks
     */
    void Begin(IMouseClickReceiver* pReceiver, OglMouseMode_e eMode = MousePointPick);
    /** The receiver gives the clicks back; it isn't told. */
    void End();
    OglMouseMode_e GetMode() const { return m_eMode; }

public slots:
    void SlotPointSelected(qint64 nViewId, const SPickedPoint& point, ISelectable* pSelectable);
    /** A view has changed its mode: a zoom box is done, or the user has pressed Escape. */
    void SlotModeOut(OglMouseMode_e eMode);

signals:
    /** Views and buttons follow. */
    void SignalMode(OglMouseMode_e eMode);

private:
    void Change(IMouseClickReceiver* pReceiver, OglMouseMode_e eMode, bool bTell);

    IMouseClickReceiver* m_pReceiver = nullptr;
    OglMouseMode_e m_eMode = MouseNormal;
};
