#pragma once

#include "view/camera/camera.h"
#include "view/camera/cameraoperator.h"

#include <QObject>

#include <array>
#include <optional>

class COpenGLDrawer;
class CPickSession;
class CViewArea;
class CWindowActions;

/** What moves the camera of the active view, and how the views draw while it moves. */
class CCameraCommands : public QObject
{
    Q_OBJECT

public:
    /** Binds its actions. All three must outlive it. */
    CCameraCommands(CWindowActions& actions, CViewArea& area, CPickSession& picks);

    /** Brings the active view, which may be new, to what is chosen for all. */
    void ShowActiveView();
    /** Marks what the preferences say now. */
    void ShowPreferences();

public slots:
    void SlotZoomBox(bool bOn);
    void SlotSaveCamera(int nSlot);
    /** Nothing while the slot is empty. */
    void SlotLoadCamera(int nSlot);

private:
    static constexpr int SLOTS = 4;

    COpenGLDrawer* ActiveDrawer() const;
    void BindMoves();
    void BindSlots();
    void BindRotationAxis();
    void BindDemotion();

    CWindowActions& m_actions;
    CViewArea& m_area;
    CPickSession& m_picks;
    std::array<std::optional<SCamera>, SLOTS> m_cameras;
};
