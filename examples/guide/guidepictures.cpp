// Draws the pictures of docs/guide.md: guidepictures FOLDER-OF-THE-EXAMPLE FOLDER-OF-THE-PICTURES
//
// It does what the guide tells, in the window itself, and takes a picture at each step. Needs a display with
// OpenGL. The user's settings are neither read nor written.
#include "frame/capture.h"
#include "frame/moduleregistry.h"
#include "modules/plot3d/ui/plot3dmodule.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationcases.h"
#include "view/colormaps/colormaptables.h"
#include "view/dialogs/colormapdialog.h"
#include "view/dialogs/colormapeditor.h"
#include "view/dialogs/screenshotdialog.h"
#include "view/docks/surfacedatadock.h"
#include "view/selectables/selectablefactory.h"
#include "view/selectables/surfaceselectable.h"
#include "view/shownvariables.h"
#include "view/ui/oglviewer.h"
#include "view/ui/opengldrawer.h"
#include "view/ui/surfaceformat.h"
#include "view/variablechoice.h"
#include "window/commands/windowactions.h"
#include "window/mainwindow.h"
#include "window/viewarea.h"
#include "window/windowcapture.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QToolBar>

#include <cstdio>

namespace {

constexpr QSize WINDOW = {1120, 720};

/** The window with the example, and what a user does in it. */
class CGuide
{
public:
    CGuide(const QString& sExample, const QString& sPictures) : m_pictures(sPictures)
    {
        m_window.resize(WINDOW);
        m_window.show();
        m_window.SlotOpenSimulation(QDir(sExample).filePath("sphere.xyz"));
        Settle();
    }

    /** @return false if a picture couldn't be taken */
    bool Draw()
    {
        TakeWindow("open");
        ShowMach();
        TakeWindow("mach");
        PointAt({0.62, 0.55});
        TakeWindow("point");
        ShowColormapDialog();
        SplitView();
        TakeWindow("views");
        TakeDialog(
            CScreenshotDialog({m_window.size(), WindowCapture::ViewSize(m_window.GetViewArea())}, false),
            "screenshot");
        return m_bAll;
    }

private:
    static void Settle()
    {
        constexpr int LONG_ENOUGH_MS = 400;
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < LONG_ENOUGH_MS)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
    }
    void Save(const QImage& image, const char* sName)
    {
        const QString sFile = m_pictures.filePath(QString("guide-%1.png").arg(sName));
        m_bAll = image.save(sFile) && m_bAll;
    }
    void TakeWindow(const char* sName)
    {
        Settle();
        SCapture capture;
        capture.size = m_window.size();
        capture.parts.bScale = false;
        capture.bActiveViewOnly = false;
        Save(m_window.captureImage(capture), sName);
    }
    void TakeDialog(QDialog&& dialog, const char* sName)
    {
        dialog.show();
        Settle();
        Save(dialog.grab().toImage(), sName);
        dialog.reject();
    }
    void Trigger(ActionId_e eAction)
    {
        m_window.GetActions().Get(eAction)->trigger();
        Settle();
    }
    qint64 ViewId() const { return m_window.GetActiveViewId(); }
    qint64 CaseId() const { return m_window.GetActiveSimulation(ViewId())->GetId(); }
    QVector<ISelectable*> Items() const
    {
        return CSelectableManager::Instance().GetSelectables(ViewId(), CaseId());
    }
    void SelectOnly(const std::function<bool(const ISelectable&)>& wanted)
    {
        for (ISelectable* const pItem : Items())
            pItem->setSelected(wanted(*pItem));
        CSelectableManager::Instance().NotifySelectionChanged(ViewId(), CaseId());
        Settle();
    }

    /** Mach number on a plane along the flow: a surface of the background block and of two round the sphere.
     */
    void ShowMach()
    {
        SelectOnly([](const ISelectable& item) {
            return QStringList{"Block 1", "Block 3", "Block 5"}.contains(item.name());
        });
        FindAction("Create surface")->trigger();
        Settle();
        SelectOnly([](const ISelectable& item) { return item.name() == "Block 5"; });
        Trigger(ActionHide);
        for (ISelectable* const pItem : Items())
            if (pItem->typeId() == KindSurface)
                MoveToThePlane(static_cast<CSurfaceSelectable&>(*pItem));
        VariableChoice::Show(Items(), RoleScalar, VariableChoice::Find(CaseId(), "M[Q]", RoleScalar));
        SelectOnly([](const ISelectable& item) { return item.name() == "Surface K = 23 [Block 5]"; });
        CSelectableManager::Instance().NotifyDoubleClicked(
            CSelectableManager::Instance().GetSelected(ViewId(), CaseId()));
        Trigger(ActionZoomToFit);
    }
    /** Round the sphere the plane is the first one in J; that of the background is there by now, K in its
     * middle. */
    static void MoveToThePlane(CSurfaceSelectable& surface)
    {
        constexpr qint64 BACKGROUND = 5;
        constexpr int J_DIRECTION = 1;
        if (surface.blockId() == BACKGROUND)
            return;
        surface.setConstantDirection(J_DIRECTION);
        surface.setConstantValue(1);
        surface.apply();
    }
    QAction* FindAction(const QString& sToolTip) const
    {
        for (const QToolBar* const pToolBar : m_window.findChildren<QToolBar*>())
            for (QAction* const pAction : pToolBar->actions())
                if (pAction->toolTip() == sToolTip)
                    return pAction;
        qFatal("there is no action '%s'", qPrintable(sToolTip));
    }

    /** With Alt held, as in "Point Information". @param place  of the view's width and height */
    void PointAt(const QPointF& place)
    {
        COpenGLDrawer& drawer = m_window.GetViewArea().GetOglViewer(ViewId())->GetDrawer();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Alt, Qt::AltModifier);
        QApplication::sendEvent(&drawer, &press);
        const QPointF pixel(place.x() * drawer.width(), place.y() * drawer.height());
        QMouseEvent move(QEvent::MouseMove, pixel, drawer.mapToGlobal(pixel.toPoint()), Qt::NoButton,
                         Qt::NoButton, Qt::AltModifier);
        QApplication::sendEvent(&drawer, &move);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier);
        QApplication::sendEvent(&drawer, &release);
    }

    void ShowColormapDialog()
    {
        SelectOnly([](const ISelectable&) { return true; });
        for (ISelectable* const pItem : Items())
            pItem->setColormapType(ColormapId("Viridis"));
        TakeDialog(CColormapDialog(CaseId(), ViewId(), false), "colormap");
        for (ISelectable* const pItem : Items())
            pItem->setColormapType(ColormapId("Viridis"));
        SelectOnly([](const ISelectable&) { return false; });
    }

    /** Beside it the pressure, in colours of its own. */
    void SplitView()
    {
        m_window.findChild<CSurfaceDataDock*>()->close();
        m_window.GetViewArea().GetOglViewer(ViewId())->findChild<QAction*>("actionHCopy")->trigger();
        Settle();
        const QVector<qint64> viewIds = m_window.GetViewArea().GetViewIds();
        m_window.GetViewArea().SetActive(viewIds.last());
        VariableChoice::Show(Items(), RoleScalar, VariableChoice::Find(CaseId(), "P[Q]", RoleScalar));
        for (ISelectable* const pItem : Items())
            pItem->setColormapType(ColormapId("JET"));
        for (const qint64 nViewId : viewIds) {
            m_window.GetViewArea().SetActive(nViewId);
            Trigger(ActionZoomToFit);
        }
    }

    const QDir m_pictures;
    CMainWindow m_window;
    bool m_bAll = true;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: guidepictures FOLDER-OF-THE-EXAMPLE FOLDER-OF-THE-PICTURES\n", stderr);
        return 2;
    }
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QSurfaceFormat::setDefaultFormat(ViewSurfaceFormat(8));
    QApplication application(argc, argv);
    CModuleRegistry::Instance().SetFactory(CPlot3DModule::PLOT3D_ID,
                                           [] { return std::make_unique<CPlot3DModule>(); });
    const CSimulationCases cases;
    const CSelectableFactory selectables;
    const CShownVariables shownVariables;
    CColormapEditor::Install();
    CGuide guide(argv[1], argv[2]);
    return guide.Draw() ? 0 : 1;
}
