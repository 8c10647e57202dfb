#include "window/windowmenus.h"

#include "ui_mainwindow.h"
#include "window/commands/windowactions.h"

namespace {

/** An action, a menu below this one, or (the default) a separator. */
struct SMenuEntry
{
    SMenuEntry() = default;
    SMenuEntry(ActionId_e eAction) : nAction(eAction) {}
    SMenuEntry(QMenu* pMenu) : pSubMenu(pMenu) {}

    int nAction = -1;
    QMenu* pSubMenu = nullptr;
};
const SMenuEntry SEPARATOR;

class CMenuFiller
{
public:
    explicit CMenuFiller(const CWindowActions& actions) : m_actions(actions) {}

    void Fill(QMenu* pMenu, std::initializer_list<SMenuEntry> entries) const
    {
        for (const SMenuEntry& entry : entries)
            if (entry.pSubMenu)
                pMenu->addMenu(entry.pSubMenu);
            else if (entry.nAction < 0)
                pMenu->addSeparator();
            else
                pMenu->addAction(m_actions.Get(static_cast<ActionId_e>(entry.nAction)));
    }
    /** The action opens the menu. */
    void Attach(ActionId_e eAction, QMenu* pMenu) const { m_actions.Get(eAction)->setMenu(pMenu); }

private:
    const CWindowActions& m_actions;
};

void FillFileMenus(const Ui::CMainWindow& ui, const CMenuFiller& filler)
{
    filler.Attach(ActionNewSimulation, ui.m_pNewSimulationMenu);
    filler.Attach(ActionAnalyze, ui.m_pAnalyzeMenu);
    filler.Fill(ui.m_pFileMenu,
                {ActionNewSimulation, ActionAnalyze, ActionOpen, ui.m_pRecentFilesMenu, SEPARATOR, ActionSave,
                 ActionSaveAs, SEPARATOR, ui.m_pImportMenu, ui.m_pExportMenu, ActionScreenshot, SEPARATOR,
                 ActionPreferences, SEPARATOR, ActionExit});
    filler.Fill(ui.m_pImportMenu, {ActionImport, ui.m_pImportRestartMenu});
    filler.Fill(ui.m_pImportRestartMenu, {ActionImportSimulationAll, ActionImportSimulationDisplay, SEPARATOR,
                                          ActionImportCompleteAll, ActionImportCompleteDisplay});
    filler.Fill(ui.m_pExportMenu, {ActionExport, ui.m_pExportRestartMenu, ActionDisplayState});
    filler.Fill(ui.m_pExportRestartMenu, {ActionExportSimulation, ActionExportComplete});
}

void FillEditMenus(const Ui::CMainWindow& ui, const CMenuFiller& filler)
{
    filler.Fill(ui.m_pEditMenu, {ActionUndo, ActionRedo, SEPARATOR, ActionDuplicate, ActionDelete, SEPARATOR,
                                 ui.m_pTransformMenu, ActionUnify, ActionVariables});
    filler.Fill(ui.m_pTransformMenu,
                {ActionTranslate, ActionRotate, ActionScale, ActionMirror, SEPARATOR, ActionResetTransform});
    filler.Fill(ui.m_pSelectionMenu,
                {ActionSelectAll, ActionDeselectAll, ActionToggleSelection, SEPARATOR, ActionSelectAdjacent,
                 ActionAngleLimit, SEPARATOR, ActionApplyToChildren});
}

void FillViewMenus(const Ui::CMainWindow& ui, const CMenuFiller& filler)
{
    filler.Fill(ui.m_pViewMenu, {ActionZoomIn, ActionZoomOut, ActionZoomToFit, ActionZoomToSelection,
                                 ActionZoomBox, ActionResetView, SEPARATOR, ui.m_pAlignMenu, ui.m_pCameraMenu,
                                 ui.m_pRotationAxisMenu, ui.m_pDemotionMenu, SEPARATOR, ActionAnalyzeWindow,
                                 ActionTerminal, SEPARATOR, ui.m_pToolbarsMenu, ActionDefaultView});
    filler.Fill(ui.m_pAlignMenu,
                {ActionXPositive, ActionXNegative, ActionYPositive, ActionYNegative, ActionZPositive,
                 ActionZNegative, SEPARATOR, ActionRotatePlus90, ActionRotateMinus90});
    for (int nSlot = 0; nSlot < CAMERA_SLOTS; ++nSlot) {
        QMenu* const pSlotMenu = ui.m_pCameraMenu->addMenu(QString("Camera &%1").arg(nSlot + 1));
        filler.Fill(pSlotMenu, {static_cast<ActionId_e>(ActionSaveCamera1 + 2 * nSlot),
                                static_cast<ActionId_e>(ActionLoadCamera1 + 2 * nSlot)});
    }
    filler.Fill(ui.m_pRotationAxisMenu,
                {ActionRotationAxisHide, ActionRotationAxisAlways, ActionRotationAxisOnRotation});
    filler.Fill(ui.m_pDemotionMenu, {ActionDemotionNone, ActionDemotionWireframe, ActionDemotionBoundingBox});
}

void FillDisplayMenus(const Ui::CMainWindow& ui, const CMenuFiller& filler)
{
    filler.Fill(ui.m_pDisplayMenu, {ActionShow,
                                    ActionHide,
                                    SEPARATOR,
                                    ui.m_pDisplayModeMenu,
                                    ui.m_pColorMenu,
                                    ActionTransparency,
                                    SEPARATOR,
                                    ActionShowNodes,
                                    ActionHideNodes,
                                    ActionGridOnNodes,
                                    ActionGridOnCells,
                                    ActionShowHoles,
                                    ActionHideHoles,
                                    ActionToggleMasks,
                                    SEPARATOR,
                                    ActionToggleLegend,
                                    ActionColormap,
                                    ActionLocalRange,
                                    ActionGlobalRange,
                                    ActionBindToLocal,
                                    ActionColormapDialog,
                                    ActionVectorDialog,
                                    SEPARATOR,
                                    ui.m_pMirrorMenu,
                                    ActionDisplayExtension});
    filler.Fill(ui.m_pDisplayModeMenu, {ActionOutline, ActionWireframe, ActionShaded, ActionShadedWireframe,
                                        ActionContour, ActionNodes, ActionVector});
    filler.Fill(ui.m_pColorMenu, {ActionGeometryColor, ActionScalarColor, SEPARATOR, ActionWireframeColor,
                                  ActionLineThickness, ActionShadeColor, ActionRainbowColor});
    filler.Fill(ui.m_pMirrorMenu, {ActionMirrorX, ActionMirrorY, ActionMirrorZ, SEPARATOR, ActionPeriodicX,
                                   ActionPeriodicY, ActionPeriodicZ});
    filler.Fill(ui.m_pHelpMenu, {ActionWhatsNew, ActionAbout});
}

} // namespace

void FillMenus(Ui::CMainWindow& ui, const CWindowActions& actions)
{
    const CMenuFiller filler(actions);
    FillFileMenus(ui, filler);
    FillEditMenus(ui, filler);
    FillViewMenus(ui, filler);
    FillDisplayMenus(ui, filler);
}
