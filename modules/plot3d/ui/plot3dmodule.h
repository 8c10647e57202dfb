#pragma once

#include "modules/base/ui/moduleinterface.h"
#include "modules/plot3d/plot3dsimulation.h"

#include <QObject>

#include <array>
#include <memory>

class CFilesDialogEditor;
class CSurfaceDataDock;

/** The viewer of structured files. */
class CPlot3DModule : public QObject, public CModuleInterface
{
    Q_OBJECT

public:
    static constexpr qint32 PLOT3D_ID = 1;

    explicit CPlot3DModule(qint32 nId = PLOT3D_ID, const QString& sName = "Plot3D");
    ~CPlot3DModule() override;

    void Initialize() override;
    void AddMainMenus(IMainMenus& menus) override;
    void ShowModuleWidgets(qint64 nViewId) override;
    bool OwnsActiveSimulation() const override { return IsShownIn(GetActiveViewId()); }
    bool OwnsSimulationOfView(qint64 nViewId) const override { return IsShownIn(nViewId); }

    // Cases.
    bool CanOpen() const override { return true; }
    bool CanAnalyze() const override { return true; }
    /** Asks for the files. */
    qint64 Analyze(qint64 nViewId) override;
    bool CanCreateSimulationFromFile() const override { return true; }
    bool CanRead(const QStringList& sFileList) const override;
    qint64 CreateFromFiles(const QStringList& sFileList, qint64 nViewId) override
    {
        return OpenPlot3D(sFileList, nViewId);
    }
    /** A case of the same files that is open already is shown in the view. */
    qint64 OpenFromKey(const QByteArray& key, qint64 nViewId, const QString& sFolder = {}) override;
    bool CanExport(qint64 nViewId) const override;
    /** Writes the grids of the selected blocks, or of all. */
    bool Export(qint64 nViewId) override;
    bool CanAddTransient() const override { return true; }
    /** Reads the headers of the case again: levels that are new, files that were rewritten. */
    bool AddTransient(qint64 nSimulationId) override;
    /**
     * Opens grid, Q and function files, told apart by what they hold, with those that go with them by name. A
     * case that is open already is shown in the view instead of being read twice.
     *
     * @return the simulation's id; -1 if the files make no case, which is told
     */
    qint64 OpenPlot3D(const QStringList& sFileList, qint64 nViewId);
    CPlot3DSimulation* MakeSimulation() const override;

    // The window and the item panel (plot3dmodule_actions.cpp).
    void UpdateActions(qint64 nViewId, qint64 nSimulationId) override;
    void FillPopupMenu(QMenu* pMenu, qint64 nViewId) override;
    QVector<qint64> GetCategoryOrder() const override;
    QStringList GetCategoryNames(qint64 nSimulationId) const override;
    QVector<SItemCategory> GetCategoryTree(qint64 nSimulationId) const override;
    bool ShowsHierarchy(qint64) const override { return true; }
    QString GetItemToolTip(qint64 nType) const override;
    QString GetItemTypeName(qint64 nType) const override;
    QIcon GetItemIcon(qint64 nType) const override;
    qint64 GetCheckedItemMask(qint64) const override { return -1; }

public slots:
    /** Asks for the files of a case and shows it on top of the active view. */
    void SlotImportPlot3D();
    /**
     * Asks for a display file and shows it: in the case of the module on top of the active view, or, without
     * one, in the case of the data that it names.
     */
    void SlotImportAnalyzeDisp();
    /**
     * Asks for a FieldView restart and shows what it shows: in the case on top of the active view, which gets
     * the data of the restart where they are found, or in a case of them.
     */
    void SlotImportFieldViewRestart();
    /** Makes a surface in the middle of each selected block and opens them in the dock, one undo step. */
    void SlotCreateSurface();
    /** Opens the selection in the dock that edits it. */
    void SlotModify();
    void SlotExportPlot3D();
    /** Gives the settings of each selected item to those with the same grid, after a question. */
    void SlotUnifyData();

private:
    enum Action_e {
        ActionSurface,
        ActionCoordinateSurface,
        ActionISOSurface,
        ActionExtremePoint,
        ActionStreamline,
        ActionModify,
        ActionUnifyData,
        ActionImportPlot3D,
        ActionImportAnalyzeDisplay,
        ActionImportFieldView,
        ActionExportPlot3D,
        MODULE_ACTIONS
    };

    void MakeActions();
    void MakeToolBar();
    void TellShown(qint64 nViewId);
    CPlot3DSimulation* CaseOfFieldView(const QString& sRestartFile);
    qint64 OpenDataOf(const QString& sDisplayFile, qint64 nViewId);
    qint64 OpenRecords(const CCaseRecords& records, qint64 nViewId);
    qint64 ShowOpenCase(const CCaseRecords& records, qint64 nViewId) const;
    qint64 ViewOrActive(qint64 nViewId) const { return nViewId == -1 ? GetActiveViewId() : nViewId; }
    CPlot3DSimulation* FindSimulation(qint64 nSimulationId) const;
    /** The case on top of a view, if it is of this module. */
    CPlot3DSimulation* ShownPlot3D(qint64 nViewId) const;
    /** That of the active view. */
    CPlot3DSimulation* ActivePlot3D() const;

    std::array<QAction*, MODULE_ACTIONS> m_moduleActions = {}; // null before AddMainMenus
    QMenu* m_pCreateMenu = nullptr;
    std::unique_ptr<CFilesDialogEditor> m_pEditor; // null before Initialize
    CSurfaceDataDock* m_pSurfaceDock = nullptr;    // null before Initialize; the window owns it
};
