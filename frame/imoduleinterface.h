#pragma once

#include <QByteArray>
#include <QIcon>
#include <QString>
#include <QStringList>
#include <QVector>

class CDockWidget;
class CPreferences;
class IMainMenus;
class QAction;
class QApplication;
class QMenu;
class QToolBar;
class QWidget;

/** One category of the item panel. */
struct SItemCategory
{
    /** ISelectable::typeId of what stands under it. GetItemIcon gives its icon; its name is at its place in
     * GetCategoryNames, or GetItemTypeName where that has none. */
    qint64 nType = -1;
};

/**
 * One kind of case: how its simulations are made, opened, saved and analysed, and the menus, toolbars,
 * actions and docks that stand while one of them is active. The window knows modules only through this
 * interface and CModuleRegistry. CModuleInterface is the base class with the common state.
 *
 * A view id of -1 means the active view. A result of -1 means that no simulation came into being.
 */
class IModuleInterface
{
public:
    virtual ~IModuleInterface() = default;

    /** Makes docks and connections; once, after all modules exist. Needs no main window. */
    virtual void Initialize() = 0;
    /** 0 to 8, fixed. */
    virtual qint32 GetId() const = 0;
    /** Fixed; the first field of simulation files and the word of the command line. */
    virtual QString GetName() const = 0;
    virtual void HideModuleWidgets() = 0;
    /** Shows them if the active simulation of the view is of this module, hides them otherwise. */
    virtual void ShowModuleWidgets(qint64 nViewId) = 0;
    virtual void OnViewChanged() = 0;
    /** Makes actions, menus and toolbars and adds the menus; a second call makes nothing twice. */
    virtual void AddMainMenus(IMainMenus& menus) = 0;
    virtual bool CanCreateSimulationFromFile() const = 0;
    /**
     * Whether one of the files is of a kind that the module makes cases of. It tells nothing, and nothing
     * stays open. Files go to the first module that says so, and only that one is asked to make a case of
     * them.
     */
    virtual bool CanRead(const QStringList& sFileList) const = 0;
    /**
     * Makes a case of data files (not a simulation file) without asking for anything: those given, in any
     * order, and what goes with them by name. What is wrong with them is told.
     */
    virtual qint64 CreateFromFiles(const QStringList& sFileList, qint64 nViewId) = 0;

    /** A page for the preferences dialog, owned by pParent; null for none. */
    virtual QWidget* CreatePreferencesWidget(QWidget* pParent) = 0;
    /** False keeps the dialog open, with the page in front; the module has said why. pPage null: no page. */
    virtual bool ValidatePreferences(QWidget* pPage) = 0;
    /**
     * Writes the page's settings into the pack; nothing for a null page. What the user has changed on other
     * pages isn't there yet, and Apply and Save follow.
     */
    virtual void ApplyPreferences(CPreferences* pPreferences, QWidget* pPage) = 0;

    /** The command-line run, with all arguments of the process; gives its exit status. */
    virtual int Run(QApplication* pApplication, int argc, char** argv) = 0;

    virtual bool CanCreateNew() const = 0;
    virtual qint64 CreateNew() = 0;
    virtual bool OwnsActiveSimulation() const = 0;
    virtual bool OwnsSimulationOfView(qint64 nViewId) const = 0;
    /** False for a simulation of another module and where the file can't be written. */
    virtual bool Save(const QString& sFile, qint64 nSimulationId) = 0;
    virtual bool CanOpen() const = 0;
    virtual qint64 Open(const QString& sFile, qint64 nViewId) = 0;
    /**
     * A second case in another view that starts as the first one is in its own, with a name of its own and no
     * file.
     */
    virtual qint64 OpenCopy(qint64 nSimulationId, qint64 nFromViewId, qint64 nToViewId) = 0;
    virtual bool CanAnalyze() const = 0;
    virtual qint64 Analyze(qint64 nViewId) = 0;
    /**
     * Opens the case of a data file key; -1 for an empty key or one of another module.
     *
     * @param sFolder  of the file that the key stands in: data that moved along with it are found from there
     */
    virtual qint64 OpenFromKey(const QByteArray& key, qint64 nViewId, const QString& sFolder = {}) = 0;
    /** Whether the case on top of the view is of this module and has data that Export writes. */
    virtual bool CanExport(qint64 nViewId) const = 0;
    /** Asks for a file and writes the data of that case; true once they are written. */
    virtual bool Export(qint64 nViewId) = 0;
    virtual bool CanAddTransient() const = 0;
    virtual bool AddTransient(qint64 nSimulationId) = 0;

    virtual QVector<QMenu*> GetMenus() const = 0;
    virtual QVector<QToolBar*> GetToolBars() const = 0;
    virtual QVector<QAction*> GetActions() const = 0;
    /** A Qt::ToolBarArea for each toolbar. */
    virtual QVector<qint32> GetToolBarAreas() const = 0;
    virtual QVector<CDockWidget*> GetDocks() const = 0;
    virtual QVector<QWidget*> GetSecondDocks() const = 0;
    virtual QVector<QWidget*> GetThirdDocks() const = 0;

    /** Enables the module's actions by the state of the simulation. */
    virtual void UpdateActions(qint64 nViewId, qint64 nSimulationId) = 0;
    /** The context menu of the view and of the item panel. */
    virtual void FillPopupMenu(QMenu* pMenu, qint64 nViewId) = 0;
    /** Item types in the order of the panel. */
    virtual QVector<qint64> GetCategoryOrder() const = 0;
    virtual QStringList GetCategoryNames(qint64 nSimulationId) const = 0;
    virtual QVector<SItemCategory> GetCategoryTree(qint64 nSimulationId) const = 0;
    /** True if the items form a tree. */
    virtual bool ShowsHierarchy(qint64 nSimulationId) const = 0;
    virtual QString GetItemToolTip(qint64 nType) const = 0;
    virtual QString GetItemTypeName(qint64 nType) const = 0;
    virtual QIcon GetItemIcon(qint64 nType) const = 0;
    /** A bit for each item type whose filter action is checked; -1 if none applies. */
    virtual qint64 GetCheckedItemMask(qint64 nSimulationId) const = 0;
};
