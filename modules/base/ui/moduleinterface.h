#pragma once

#include "frame/imoduleinterface.h"

class ISimulation;
class QObject;
struct SCaseFile;

/**
 * The common state of all modules and neutral defaults for what a kind of case doesn't offer. Concrete
 * modules derive from QObject and this class.
 */
class CModuleInterface : public IModuleInterface
{
public:
    /** Property of a toolbar: false once the user has hidden it, so that it stays hidden. */
    static constexpr const char* TOOLBAR_WANTED = "zentoWanted";

    CModuleInterface(qint32 nId, const QString& sName) : m_nId(nId), m_sName(sName) {}
    CModuleInterface(const CModuleInterface&) = delete;
    CModuleInterface& operator=(const CModuleInterface&) = delete;
    /** Deletes the owned widgets with deleteLater. */
    ~CModuleInterface() override;

    void Initialize() override {}
    qint32 GetId() const override { return m_nId; }
    QString GetName() const override { return m_sName; }
    void HideModuleWidgets() override;
    void OnViewChanged() override {}
    void AddMainMenus(IMainMenus&) override {}
    bool CanCreateSimulationFromFile() const override { return false; }
    bool CanRead(const QStringList&) const override { return false; }
    qint64 CreateFromFiles(const QStringList&, qint64) override { return -1; }
    QWidget* CreatePreferencesWidget(QWidget*) override { return nullptr; }
    bool ValidatePreferences(QWidget*) override { return true; }
    void ApplyPreferences(CPreferences*, QWidget*) override {}
    int Run(QApplication*, int, char**) override { return 1; }
    bool CanCreateNew() const override { return false; }
    qint64 CreateNew() override { return -1; }
    bool OwnsActiveSimulation() const override { return false; }
    bool OwnsSimulationOfView(qint64) const override { return false; }
    bool CanOpen() const override { return false; }
    bool CanAnalyze() const override { return false; }
    qint64 Analyze(qint64) override { return -1; }
    bool CanExport(qint64) const override { return false; }
    bool Export(qint64) override { return false; }
    bool CanAddTransient() const override { return false; }
    bool AddTransient(qint64) override { return false; }
    bool ShowsHierarchy(qint64) const override { return false; }

    // Files of cases (moduleinterface_cases.cpp), for modules that say how to make an empty one
    // (MakeSimulation).
    /** A file that can't be written is told; the old one stays whole then. */
    bool Save(const QString& sFile, qint64 nSimulationId) override;
    /**
     * @param nViewId  where the case is to stand; -1: in the active view, with the display and the camera
     * that are stored with it
     * @return the simulation's id; -1, and nothing has changed, if it can't be opened, which is told
     */
    qint64 Open(const QString& sFile, qint64 nViewId) override;
    qint64 OpenCopy(qint64 nSimulationId, qint64 nFromViewId, qint64 nToViewId) override;
    /** Opens the case file that the key names. */
    qint64 OpenFromKey(const QByteArray& key, qint64 nViewId, const QString& sFolder = {}) override;

    QVector<QMenu*> GetMenus() const override { return m_menus; }
    QVector<QToolBar*> GetToolBars() const override { return m_toolBars; }
    QVector<QAction*> GetActions() const override { return m_actions; }
    QVector<qint32> GetToolBarAreas() const override { return m_toolBarAreas; }
    QVector<CDockWidget*> GetDocks() const override { return m_docks; }
    QVector<QWidget*> GetSecondDocks() const override { return m_secondDocks; }
    QVector<QWidget*> GetThirdDocks() const override { return m_thirdDocks; }

    /** The n with 2^n = nValue: a bit of a selection mask as an index. 0 up to 1; -1 for no power of two. */
    virtual qint64 Log2(qint64 nValue) const;
    /** Refreshes the docks of the view without a forced rebuild. */
    virtual void RefreshDocks(qint64 nViewId) const;
    virtual qint64 GetActiveViewId() const;
    /** The main window; null in a command-line run. */
    virtual QWidget* GetActiveWidget() const;
    /** The simulation of the active view, or the last one of all if there is no such view; null without any.
     */
    virtual ISimulation* GetActiveSimulation() const;

    /** A new, empty case of the module; null where it opens none. */
    virtual ISimulation* MakeSimulation() const { return nullptr; }

protected:
    /** What a file should have been, where it isn't: all but the solver modules say the same. */
    virtual QString GetFileKind() const { return "Velor"; }
    /** Shows all menus, toolbars, actions and docks of the module. */
    void ShowAll();
    /** True if the simulation on top of the view is of this module. */
    bool IsShownIn(qint64 nViewId) const;

    QVector<QMenu*> m_menus;
    QVector<QToolBar*> m_toolBars;
    QVector<qint32> m_toolBarAreas; // parallel to m_toolBars
    QVector<QAction*> m_actions;
    QVector<CDockWidget*> m_docks;
    QVector<QWidget*> m_secondDocks; // second and third row of the dock logic
    QVector<QWidget*> m_thirdDocks;
    QVector<QAction*> m_extraActions;
    QVector<QObject*> m_ownedWidgets;

private:
    void SetAllVisible(bool bVisible);
    bool ReadCase(const QString& sFile, SCaseFile& file) const;

    const qint32 m_nId;
    const QString m_sName;
};
