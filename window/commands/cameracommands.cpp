#include "window/commands/cameracommands.h"

#include "frame/applicationinfo.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "view/ui/oglviewer.h"
#include "view/ui/opengldrawer.h"
#include "window/commands/windowactions.h"
#include "window/picksession.h"
#include "window/viewarea.h"

#include <QActionGroup>

CCameraCommands::CCameraCommands(CWindowActions& actions, CViewArea& area, CPickSession& picks)
    : m_actions(actions), m_area(area), m_picks(picks)
{
    static_assert(SLOTS == CAMERA_SLOTS);
    BindMoves();
    BindSlots();
    BindRotationAxis();
    BindDemotion();
}

COpenGLDrawer* CCameraCommands::ActiveDrawer() const
{
    COglViewer* const pViewer = m_area.GetOglViewer(m_area.GetActiveViewId());
    return pViewer ? &pViewer->GetDrawer() : nullptr;
}

void CCameraCommands::BindMoves()
{
    const auto bind = [this](ActionId_e eId, auto command) {
        m_actions.Bind(eId, this, [this, command] {
            if (COpenGLDrawer* const pDrawer = ActiveDrawer())
                command(*pDrawer);
        });
    };
    bind(ActionZoomIn, [](COpenGLDrawer& drawer) { drawer.ZoomIn(); });
    bind(ActionZoomOut, [](COpenGLDrawer& drawer) { drawer.ZoomOut(); });
    bind(ActionZoomToFit, [](COpenGLDrawer& drawer) { drawer.ZoomToFit(); });
    bind(ActionZoomToSelection, [](COpenGLDrawer& drawer) { drawer.ZoomToSelection(); });
    bind(ActionResetView, [](COpenGLDrawer& drawer) { drawer.ResetView(); });
    bind(ActionRotatePlus90, [](COpenGLDrawer& drawer) { drawer.QuarterTurn(true); });
    bind(ActionRotateMinus90, [](COpenGLDrawer& drawer) { drawer.QuarterTurn(false); });
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        for (const bool bPositive : {true, false})
            bind(static_cast<ActionId_e>(ActionXPositive + 2 * nAxis + (bPositive ? 0 : 1)),
                 [nAxis, bPositive](COpenGLDrawer& drawer) { drawer.LookAlong(nAxis, bPositive); });
    m_actions.Bind(ActionZoomBox, this, &CCameraCommands::SlotZoomBox);
    connect(&m_picks, &CPickSession::SignalMode, this, [this](OglMouseMode_e eMode) {
        m_actions.Get(ActionZoomBox)->setChecked(eMode == MouseZoomBox);
    });
}

void CCameraCommands::BindSlots()
{
    for (int nSlot = 0; nSlot < SLOTS; ++nSlot) {
        m_actions.Bind(static_cast<ActionId_e>(ActionSaveCamera1 + 2 * nSlot), this,
                       [this, nSlot] { SlotSaveCamera(nSlot); });
        m_actions.Bind(static_cast<ActionId_e>(ActionLoadCamera1 + 2 * nSlot), this,
                       [this, nSlot] { SlotLoadCamera(nSlot); });
    }
}

void CCameraCommands::SlotSaveCamera(int nSlot)
{
    if (const COpenGLDrawer* const pDrawer = ActiveDrawer())
        m_cameras[nSlot] = pDrawer->GetCamera();
}

void CCameraCommands::SlotLoadCamera(int nSlot)
{
    COpenGLDrawer* const pDrawer = ActiveDrawer();
    if (pDrawer && m_cameras[nSlot])
        pDrawer->SetCamera(*m_cameras[nSlot], FitAll);
}

void CCameraCommands::SlotZoomBox(bool bOn)
{
    COglViewer* const pViewer = m_area.GetOglViewer(m_area.GetActiveViewId());
    if (!pViewer)
        return;
    pViewer->setFocus(Qt::OtherFocusReason); // so that Escape reaches it
    m_picks.Begin(nullptr, bOn ? MouseZoomBox : MouseNormal);
}

void CCameraCommands::BindRotationAxis()
{
    auto* const pGroup = new QActionGroup(this);
    for (int n = 0; n < 3; ++n) {
        const auto eId = static_cast<ActionId_e>(ActionRotationAxisHide + n);
        m_actions.Get(eId)->setCheckable(true);
        pGroup->addAction(m_actions.Get(eId));
        m_actions.Bind(eId, this, [this, n] {
            CPreferences& preferences = CPreferences::Instance();
            Set(preferences, PreferenceKey::ROTATION_AXIS_VISIBILITY, n);
            preferences.Apply();
            preferences.Save(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
            m_area.RefreshAll();
        });
    }
    ShowPreferences();
}

void CCameraCommands::BindDemotion()
{
    auto* const pGroup = new QActionGroup(this);
    for (int n = 0; n < 3; ++n) {
        const auto eId = static_cast<ActionId_e>(ActionDemotionNone + n);
        m_actions.Get(eId)->setCheckable(true);
        m_actions.Get(eId)->setChecked(n == DemotionOff);
        pGroup->addAction(m_actions.Get(eId));
        m_actions.Bind(eId, this, [this, n] {
            for (const qint64 nViewId : m_area.GetViewIds())
                m_area.GetOglViewer(nViewId)->GetDrawer().SetDemotion(static_cast<Demotion_e>(n));
        });
    }
}

void CCameraCommands::ShowPreferences()
{
    const qint64 nVisibility = Get(CPreferences::Instance(), PreferenceKey::ROTATION_AXIS_VISIBILITY);
    m_actions.Get(static_cast<ActionId_e>(ActionRotationAxisHide + nVisibility))->setChecked(true);
}

void CCameraCommands::ShowActiveView()
{
    COpenGLDrawer* const pDrawer = ActiveDrawer();
    for (int n = 0; pDrawer && n < 3; ++n)
        if (m_actions.Get(static_cast<ActionId_e>(ActionDemotionNone + n))->isChecked())
            pDrawer->SetDemotion(static_cast<Demotion_e>(n)); // a new view follows the others
}
