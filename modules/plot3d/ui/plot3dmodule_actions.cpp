// CPlot3DModule: its commands, and what the item panel asks.
#include "frame/imainmenus.h"
#include "frame/preferences/recentfolder.h"
#include "frame/themeicon.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "modules/plot3d/fieldview/fieldviewimport.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "modules/plot3d/ui/gridexport.h"
#include "modules/plot3d/ui/plot3dmodule.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "scene/selectablemanager.h"
#include "simulation/displayfilechoice.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"
#include "simulation/undostep.h"
#include "view/selectables/kinds.h"
#include "view/selectables/surfaceitems.h"

#include <QAction>
#include <QMenu>
#include <QSet>
#include <QToolBar>

namespace {

struct SActionText
{
    const char* sText;
    const char* sToolTip;
    const char* sIcon;
};

/** By Action_e. */
constexpr SActionText s_texts[] = {
    {"Surface", "Create surface", ":/Icons/surface.png"},
    {"Coordinate Surface", "Create coordinate surface", ":/Icons/coordinatesurface.png"},
    {"ISO Surface", "Create ISO surface", ":/Icons/isosurface.png"},
    {"Extreme Point", "Create extreme point", ":/Icons/extremepoint.png"},
    {"Streamline", "Create streamline", ":/Icons/streamline.png"},
    {"Modify", "Modify selected item(s)", ":/Icons/edit.png"},
    {"Unify item data", "Give the settings of an item to those with the same grid", ":/Icons/unify.png"},
    {"Plot3D...", "Open Plot3D files", ":/Icons/Import.png"},
    {"Analyze Display...", "Show a case as a display file says", ":/Icons/Import.png"},
    {"FieldView Restart...", "", ":/Icons/Import.png"},
    {"Plot3D...", "Write the grids of the selected blocks, or of all", ":/Icons/Export.png"},
};

/** What the item panel lists, in its order. */
constexpr SelectableKind_e s_kinds[] = {
    KindBoundarySurface, KindStreamline,        KindExtremePoint, KindBlock, KindFace,
    KindISOSurface,      KindCoordinateSurface, KindSurface};

/** Items of the selected selectables, each once. */
QVector<qint64> SelectedItems(const ISimulation& simulation, qint64 nViewId)
{
    QVector<qint64> ids;
    for (const ISelectable* const pSelectable :
         CSelectableManager::Instance().GetSelected(nViewId, simulation.GetId()))
        if (!ids.contains(pSelectable->itemId()) && simulation.GetItem(pSelectable->itemId()))
            ids.append(pSelectable->itemId());
    return ids;
}

/** The blocks that are meant by a selection: the selected ones, or all if none is. */
QVector<qint64> ChosenBlocks(const ISimulation& simulation, qint64 nViewId)
{
    QVector<qint64> ids;
    for (const qint64 nId : SelectedItems(simulation, nViewId))
        if (simulation.GetItem(nId)->GetShownKind() == KindBlock)
            ids.append(nId);
    std::sort(ids.begin(), ids.end());
    return ids.isEmpty() ? simulation.GetItemIds(KindBlock) : ids;
}

} // namespace

void CPlot3DModule::MakeActions()
{
    static_assert(std::size(s_texts) == MODULE_ACTIONS);
    for (int n = 0; n < MODULE_ACTIONS; ++n) {
        auto* const pAction = new QAction(ThemeIcon(s_texts[n].sIcon), s_texts[n].sText, this);
        pAction->setToolTip(s_texts[n].sToolTip);
        pAction->setEnabled(false); // until there is something that it can be used for
        m_moduleActions[n] = pAction;
    }
    connect(m_moduleActions[ActionSurface], &QAction::triggered, this, &CPlot3DModule::SlotCreateSurface);
    connect(m_moduleActions[ActionModify], &QAction::triggered, this, &CPlot3DModule::SlotModify);
    connect(m_moduleActions[ActionUnifyData], &QAction::triggered, this, &CPlot3DModule::SlotUnifyData);
    connect(m_moduleActions[ActionImportPlot3D], &QAction::triggered, this, &CPlot3DModule::SlotImportPlot3D);
    connect(m_moduleActions[ActionImportAnalyzeDisplay], &QAction::triggered, this,
            &CPlot3DModule::SlotImportAnalyzeDisp);
    connect(m_moduleActions[ActionImportFieldView], &QAction::triggered, this,
            &CPlot3DModule::SlotImportFieldViewRestart);
    connect(m_moduleActions[ActionExportPlot3D], &QAction::triggered, this, &CPlot3DModule::SlotExportPlot3D);
    // Importing makes a case: it is there whatever is shown. All else goes with a case of the module.
    for (int n = 0; n < MODULE_ACTIONS; ++n)
        if (n == ActionImportPlot3D || n == ActionImportAnalyzeDisplay || n == ActionImportFieldView)
            m_moduleActions[n]->setEnabled(true);
        else
            m_actions.append(m_moduleActions[n]);
}

void CPlot3DModule::MakeToolBar()
{
    auto* const pToolBar = new QToolBar("Create Toolbar");
    pToolBar->setObjectName(QString("m_p%1CreateToolbar").arg(GetId()));
    for (int n = ActionSurface; n <= ActionUnifyData; ++n) {
        if (n == ActionModify)
            pToolBar->addSeparator();
        pToolBar->addAction(m_moduleActions[n]);
    }
    m_toolBars.append(pToolBar);
    m_toolBarAreas.append(Qt::RightToolBarArea); // the rows at the top are full in a small window
}

void CPlot3DModule::AddMainMenus(IMainMenus& menus)
{
    if (m_pCreateMenu)
        return;
    MakeActions();
    MakeToolBar();
    m_pCreateMenu = new QMenu("Create");
    m_pCreateMenu->setToolTipsVisible(true);
    for (int n = ActionSurface; n <= ActionStreamline; ++n)
        m_pCreateMenu->addAction(m_moduleActions[n]);
    m_pCreateMenu->addSeparator();
    m_pCreateMenu->addAction(m_moduleActions[ActionModify]);
    m_pCreateMenu->addAction(m_moduleActions[ActionUnifyData]);
    m_menus.append(m_pCreateMenu);
    m_ownedWidgets.append(m_pCreateMenu);
    menus.AddMenu(m_pCreateMenu);
    for (int n = ActionImportPlot3D; n <= ActionImportFieldView; ++n)
        menus.GetImportMenu()->addAction(m_moduleActions[n]);
    menus.GetExportMenu()->addAction(m_moduleActions[ActionExportPlot3D]);
}

void CPlot3DModule::ShowModuleWidgets(qint64 nViewId)
{
    if (!IsShownIn(nViewId)) {
        HideModuleWidgets();
        return;
    }
    ShowAll();
    UpdateActions(nViewId, CSimulationManager::Instance().GetSimulationOfView(nViewId)->GetId());
}

void CPlot3DModule::UpdateActions(qint64 nViewId, qint64 nSimulationId)
{
    if (!m_pCreateMenu)
        return;
    const CPlot3DSimulation* const pSimulation = FindSimulation(nSimulationId);
    const QVector<qint64> selected = pSimulation ? SelectedItems(*pSimulation, nViewId) : QVector<qint64>();
    m_moduleActions[ActionSurface]->setEnabled(pSimulation && pSimulation->GetItemCount() > 0);
    m_moduleActions[ActionModify]->setEnabled(!selected.isEmpty());
    m_moduleActions[ActionUnifyData]->setEnabled(!selected.isEmpty());
    m_moduleActions[ActionExportPlot3D]->setEnabled(CanExport(nViewId));
}

void CPlot3DModule::FillPopupMenu(QMenu* pMenu, qint64 nViewId)
{
    if (!m_pCreateMenu || !IsShownIn(nViewId))
        return;
    pMenu->addActions(m_pCreateMenu->actions());
    pMenu->addSeparator();
    pMenu->addAction(m_moduleActions[ActionExportPlot3D]);
}

void CPlot3DModule::SlotCreateSurface()
{
    CPlot3DSimulation* const pSimulation = ActivePlot3D();
    if (!pSimulation)
        return;
    const qint64 nViewId = GetActiveViewId();
    QVector<qint64> blockIds = ChosenBlocks(*pSimulation, nViewId);
    if (SelectedItems(*pSimulation, nViewId).isEmpty())
        blockIds = blockIds.mid(0, 1); // one to start from, not one in each of thousands
    QVector<ISelectable*> made;
    {
        const CUndoStep step(pSimulation->GetId());
        for (const qint64 nBlockId : std::as_const(blockIds)) {
            const IVector3D size = pSimulation->GetItem(nBlockId)->GetSize();
            SSurfacePlane plane = FacePlane(size, 4);
            plane.constants = {(size.i + 1) / 2, (size.j + 1) / 2, (size.k + 1) / 2};
            if (const CItem* const pItem = CreateSurfaceItem(*pSimulation, nBlockId, plane))
                made.append(pItem->GetSelectable(nViewId));
        }
    }
    pSimulation->RefreshViews();
    made.removeAll(nullptr);
    CSelectableManager::Instance().NotifyDoubleClicked(made);
    CWidgetManager::Instance().UpdateActiveViewer();
}

void CPlot3DModule::SlotModify()
{
    const CPlot3DSimulation* const pSimulation = ActivePlot3D();
    if (pSimulation)
        CSelectableManager::Instance().NotifyDoubleClicked(
            CSelectableManager::Instance().GetSelected(GetActiveViewId(), pSimulation->GetId()));
}

void CPlot3DModule::SlotImportPlot3D()
{
    const QVector<qint64> openIds = CSimulationManager::Instance().GetSimulationIds();
    const qint64 nId = Analyze(-1);
    if (nId == -1)
        return;
    if (!openIds.contains(nId))
        FindSimulation(nId)->ChooseDisplayFile(GetActiveViewId());
    RefreshDocks(GetActiveViewId());
    CWidgetManager::Instance().UpdateActiveViewer();
}

void CPlot3DModule::TellShown(qint64 nViewId)
{
    RefreshDocks(nViewId);
    CWidgetManager::Instance().UpdateActions();
    CWidgetManager::Instance().UpdateActiveViewer();
}

void CPlot3DModule::SlotImportAnalyzeDisp()
{
    const QString sFile = AskDisplayFile();
    if (sFile.isEmpty())
        return;
    const qint64 nViewId = GetActiveViewId();
    CPlot3DSimulation* pSimulation = ActivePlot3D();
    if (!pSimulation)
        pSimulation = FindSimulation(OpenDataOf(sFile, nViewId));
    if (!pSimulation)
        return;
    {
        const CWaitCursor wait;
        pSimulation->LoadDisplayFile(sFile, nViewId);
    }
    TellShown(nViewId);
}

void CPlot3DModule::SlotImportFieldViewRestart()
{
    CCaseRecords records;
    records.sRestartFile = AskFieldView();
    if (records.sRestartFile.isEmpty())
        return;
    const qint64 nViewId = GetActiveViewId();
    {
        const CWaitCursor wait;
        CPlot3DSimulation* const pSimulation = CaseOfFieldView(records.sRestartFile);
        if (!pSimulation)
            return;
        pSimulation->ShowDisplayOf(records, nViewId);
    }
    TellShown(nViewId);
}

bool CPlot3DModule::CanExport(qint64 nViewId) const
{
    const CPlot3DSimulation* const pSimulation = ShownPlot3D(nViewId);
    return pSimulation && pSimulation->GetItemCount() > 0;
}

void CPlot3DModule::SlotExportPlot3D() { Export(GetActiveViewId()); }

bool CPlot3DModule::Export(qint64 nViewId)
{
    const CPlot3DSimulation* const pSimulation = ShownPlot3D(nViewId);
    if (!pSimulation)
        return false;
    const QString sFileName =
        RecentFolder::AskFile({"Export Plot3D", {}, "Grid Files (*.x *.xyz *.xyzb);; All Files (*)", true});
    return !sFileName.isEmpty() &&
           ExportGrids(*pSimulation, ChosenBlocks(*pSimulation, nViewId),
                       CSimulationManager::Instance().GetRequestTime(nViewId, pSimulation->GetId()),
                       sFileName);
}

void CPlot3DModule::SlotUnifyData()
{
    CPlot3DSimulation* const pSimulation = ActivePlot3D();
    if (!pSimulation)
        return;
    const CUndoStep step(pSimulation->GetId()); // one for all that is selected
    QSet<qint64> done;
    for (const qint64 nId : SelectedItems(*pSimulation, GetActiveViewId())) {
        if (done.contains(nId))
            continue;
        QVector<qint64> ids;
        {
            const CWaitCursor wait; // it may read all blocks of this size
            ids = pSimulation->GetLinkedItems(nId);
        }
        done += QSet<qint64>(ids.begin(), ids.end());
        ids.removeAll(nId);
        const QString sText = "Would you like to unify the data of '%1' with its %2 occurrence(s)?";
        const QString sName = pSimulation->GetItem(nId)->GetName();
        if (ids.isEmpty())
            CWidgetManager::Instance().SetStatusText(QString("'%1' has no other occurrence").arg(sName));
        else if (UserPrompt::Confirm("Unify Data", sText.arg(sName, QString::number(ids.size()))))
            pSimulation->MakeLinks(QVector<qint64>{nId} + ids, true);
    }
    pSimulation->RefreshViews();
}

QVector<qint64> CPlot3DModule::GetCategoryOrder() const { return {std::begin(s_kinds), std::end(s_kinds)}; }

QStringList CPlot3DModule::GetCategoryNames(qint64) const
{
    QStringList sNameList;
    for (const SelectableKind_e eKind : s_kinds)
        sNameList.append(FindKind(eKind)->sGroup);
    return sNameList;
}

QVector<SItemCategory> CPlot3DModule::GetCategoryTree(qint64) const
{
    QVector<SItemCategory> categories;
    for (const SelectableKind_e eKind : s_kinds)
        categories.append(SItemCategory{eKind});
    return categories;
}

QString CPlot3DModule::GetItemToolTip(qint64 nType) const
{
    const SKindRow* const pRow = FindKind(nType);
    return pRow ? pRow->sToolTip : "";
}

QString CPlot3DModule::GetItemTypeName(qint64 nType) const
{
    const SKindRow* const pRow = FindKind(nType);
    return pRow ? pRow->sName : "Unknown";
}

QIcon CPlot3DModule::GetItemIcon(qint64 nType) const
{
    const SKindRow* const pRow = FindKind(nType);
    return pRow ? ThemeIcon(pRow->sIcon) : QIcon();
}
