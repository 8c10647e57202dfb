#pragma once

class CWindowActions;

namespace Ui {
class CMainWindow;
}

/** Puts the common actions into the menus of the window. The "Toolbars" menu is filled with the toolbars. */
void FillMenus(Ui::CMainWindow& ui, const CWindowActions& actions);
