#include "window/windowtoolbars.h"

#include "frame/themeicon.h"
#include "modules/base/ui/moduleinterface.h"
#include "window/commands/windowactions.h"
#include "window/dropdownbutton.h"
#include "window/mirrortoolbar.h"
#include "window/variabletoolbar.h"

#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

namespace {

/** A button with a menu: its name, its tip, the icon for actions without one, and its actions. */
struct SDropDown
{
    const char* sText;
    const char* sToolTip;
    const char* sIcon;
    QVector<ActionId_e> actions;
};

/** An action, a drop-down button, or (the default) a separator. */
struct SToolBarEntry
{
    SToolBarEntry() = default;
    SToolBarEntry(ActionId_e eAction) : nAction(eAction) {}
    SToolBarEntry(const SDropDown& dropDown) : pDropDown(&dropDown) {}

    int nAction = -1;
    const SDropDown* pDropDown = nullptr;
};
const SToolBarEntry SEPARATOR;

const SDropDown SHOW_HIDE{
    "Show / Hide Item", "Set visibility of selected item(s)", "", {ActionShow, ActionHide}};
const SDropDown ROTATION_AXIS{
    "Rotation Axis",
    "Choose when the rotation-coordinate axis triad is shown in the viewport",
    "",
    {ActionRotationAxisHide, ActionRotationAxisAlways, ActionRotationAxisOnRotation}};
const SDropDown DISPLAY_MODE{"Set Display Mode",
                             "Set display mode of selected item(s)",
                             "",
                             {ActionOutline, ActionWireframe, ActionShaded, ActionShadedWireframe,
                              ActionContour, ActionNodes, ActionVector}};
const SDropDown SHOW_HIDE_NODES{"Show / Hide Item Nodes",
                                "Set visibility of selected item(s) nodes",
                                "",
                                {ActionShowNodes, ActionHideNodes}};
const SDropDown MIRROR_DISPLAY{"Mirror Display",
                               "Toggle mirror display about X/Y/Z axis",
                               ":/Icons/mirror.png",
                               {ActionMirrorX, ActionMirrorY, ActionMirrorZ}};
const SDropDown DEMOTION{"Demotion",
                         "Set display demotion mode during rotation/pan for faster interaction",
                         "",
                         {ActionDemotionNone, ActionDemotionWireframe, ActionDemotionBoundingBox}};
const SDropDown COLOR{"Set Color",
                      "Set color of selected item(s)",
                      ":/Icons/color.png",
                      {ActionWireframeColor, ActionLineThickness, ActionShadeColor, ActionRainbowColor}};
const SDropDown GRID_DISPLAY{"Set Grid Display",
                             "Set selected item(s) grid to be displayed on nodes / cell centers",
                             "",
                             {ActionGridOnNodes, ActionGridOnCells}};
const SDropDown HOLES{
    "Show / Hide Holes", "Set holes' visibility of selected item(s)", "", {ActionShowHoles, ActionHideHoles}};
const SDropDown DISPLAY_METHOD{"Set Display Method",
                               "Set display method of selected item(s)",
                               "",
                               {ActionGeometryColor, ActionScalarColor}};
const SDropDown SAVE_CAMERA{"Save Camera",
                            "Save the camera's position",
                            "",
                            {ActionSaveCamera1, ActionSaveCamera2, ActionSaveCamera3, ActionSaveCamera4}};
const SDropDown LOAD_CAMERA{"Load Camera",
                            "Load a camera position",
                            "",
                            {ActionLoadCamera1, ActionLoadCamera2, ActionLoadCamera3, ActionLoadCamera4}};

struct SToolBarRow
{
    const char* sName;
    QVector<SToolBarEntry> entries;
};

/** The toolbars that hold only actions, as they follow each other; those with boxes are classes. */
QVector<SToolBarRow> ToolBarTable()
{
    return {
        {"File Toolbar",
         {ActionNewSimulation, ActionAnalyze, ActionOpen, ActionSave, SEPARATOR, ActionImport, ActionExport,
          ActionScreenshot, SEPARATOR, ActionTerminal, ActionPreferences}},
        {"Edit Toolbar",
         {ActionUndo, ActionRedo, SEPARATOR, ActionDuplicate, ActionDelete, ActionUnify, ActionVariables,
          SEPARATOR, ActionTranslate, ActionRotate, ActionScale, ActionMirror, ActionResetTransform}},
        {"Zoom Toolbar",
         {ActionZoomIn, ActionZoomOut, ActionZoomToFit, ActionZoomToSelection, ActionZoomBox,
          ActionResetView}},
        {"Display Toolbar",
         {ActionSelectAll, ActionSelectAdjacent, ActionApplyToChildren, SEPARATOR, SHOW_HIDE, DISPLAY_MODE,
          DISPLAY_METHOD, COLOR, ActionGlobalTransparency, SHOW_HIDE_NODES, GRID_DISPLAY, HOLES, SEPARATOR,
          MIRROR_DISPLAY, ActionDisplayExtension, DEMOTION}},
        {"Align Toolbar",
         {ActionXPositive, ActionXNegative, ActionYPositive, ActionYNegative, ActionZPositive,
          ActionZNegative, SEPARATOR, ActionRotatePlus90, ActionRotateMinus90, SEPARATOR, SAVE_CAMERA,
          LOAD_CAMERA, ROTATION_AXIS}},
        {"Mask Toolbar", {ActionToggleMasks}},
    };
}

void AddEntry(QToolBar* pToolBar, const SToolBarEntry& entry, const CWindowActions& actions)
{
    if (const SDropDown* const pDropDown = entry.pDropDown) {
        QVector<QAction*> menu;
        for (const ActionId_e eId : pDropDown->actions)
            menu.append(actions.Get(eId));
        const QIcon icon = *pDropDown->sIcon ? ThemeIcon(pDropDown->sIcon) : QIcon();
        pToolBar->addWidget(new CDropDownButton(pDropDown->sText, pDropDown->sToolTip, icon, menu));
    } else if (entry.nAction < 0) {
        pToolBar->addSeparator();
    } else {
        pToolBar->addAction(actions.Get(static_cast<ActionId_e>(entry.nAction)));
    }
}

/** A tool button of an action that stands for a menu opens it at once, on the whole of its face. */
void OpenMenusAtOnce(QToolBar* pToolBar)
{
    for (QAction* const pAction : pToolBar->actions())
        if (pAction->menu())
            if (auto* const pButton = qobject_cast<QToolButton*>(pToolBar->widgetForAction(pAction)))
                pButton->setPopupMode(QToolButton::InstantPopup);
}

} // namespace

CWindowToolBars::CWindowToolBars(QMainWindow* pWindow, CWindowActions& actions) : QObject(pWindow)
{
    for (const SToolBarRow& row : ToolBarTable()) {
        auto* const pToolBar = new QToolBar(row.sName, pWindow);
        for (const SToolBarEntry& entry : row.entries)
            AddEntry(pToolBar, entry, actions);
        OpenMenusAtOnce(pToolBar);
        m_toolBars.append(pToolBar);
    }
    m_pMirrorToolBar = new CMirrorToolBar(actions, pWindow);
    m_pAnalyzeToolBar = CVariableToolBar::MakeAnalyzeToolBar(actions, pWindow);
    m_pThresholdToolBar = CVariableToolBar::MakeThresholdToolBar(actions, pWindow);
    const int nMask = m_toolBars.size() - 1;
    m_toolBars.insert(nMask, m_pMirrorToolBar);
    m_toolBars.insert(nMask, m_pAnalyzeToolBar);
    m_toolBars.append(m_pThresholdToolBar);
    for (QToolBar* const pToolBar : std::as_const(m_toolBars)) {
        pToolBar->setObjectName(pToolBar->windowTitle()); // by which the layout is kept
        if (pToolBar == m_pAnalyzeToolBar || pToolBar->windowTitle() == "Display Toolbar")
            pWindow->addToolBarBreak();
        pWindow->addToolBar(pToolBar);
    }
    m_pMirrorToolBar->hide(); // long and seldom used; mirrors are in the "Display Toolbar" too
}

void CWindowToolBars::ListInMenu(const QVector<QToolBar*>& toolBars, QMenu* pMenu)
{
    for (QToolBar* const pToolBar : toolBars) {
        QAction* const pToggle = pToolBar->toggleViewAction();
        pMenu->addAction(pToggle);
        connect(pToggle, &QAction::triggered, pToolBar, [pToolBar](bool bWanted) {
            pToolBar->setProperty(CModuleInterface::TOOLBAR_WANTED, bWanted);
        });
    }
}

void CWindowToolBars::ShowActiveSimulation()
{
    m_pMirrorToolBar->ShowStored();
    ShowSelection();
}

void CWindowToolBars::ShowSelection()
{
    for (CVariableToolBar* const pToolBar : GetVariableToolBars())
        pToolBar->ShowActiveSimulation();
}
