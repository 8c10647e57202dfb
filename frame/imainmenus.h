#pragma once

class QMenu;

/** The parts of the main window's menu bar that modules add to. The window implements it. */
class IMainMenus
{
public:
    virtual ~IMainMenus() = default;
    /** Adds a menu to the menu bar, ahead of "Help". */
    virtual void AddMenu(QMenu* pMenu) = 0;
    virtual QMenu* GetImportMenu() = 0;
    virtual QMenu* GetExportMenu() = 0;
};
