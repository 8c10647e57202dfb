#include "window/windowgeometry.h"

#include "frame/applicationinfo.h"

#include "modules/base/ui/moduleinterface.h"

#include <QMainWindow>
#include <QSettings>
#include <QToolBar>

namespace {

constexpr const char* GEOMETRY_KEY = "mainwindowgeometry";
constexpr const char* STATE_KEY = "mainwindowstate";
constexpr const char* WINDOWED_RECT_KEY = "mainwindowwindowedrect";
/** Toolbars of modules: the state of a window has none of them shown while there is no case of theirs. */
constexpr const char* HIDDEN_TOOL_BARS_KEY = "mainwindowhiddentoolbars";

QStringList HiddenToolBars(const QMainWindow& window)
{
    QStringList sNameList;
    for (const QToolBar* const pToolBar : window.findChildren<QToolBar*>())
        if (const QVariant wanted = pToolBar->property(CModuleInterface::TOOLBAR_WANTED);
            wanted.isValid() && !wanted.toBool())
            sNameList.append(pToolBar->objectName());
    return sNameList;
}

void SetHiddenToolBars(const QMainWindow& window, const QStringList& sNameList)
{
    for (QToolBar* const pToolBar : window.findChildren<QToolBar*>())
        pToolBar->setProperty(CModuleInterface::TOOLBAR_WANTED, !sNameList.contains(pToolBar->objectName()));
}

} // namespace

SWindowLayout TakeLayout(const QMainWindow& window)
{
    return {window.saveGeometry(), window.saveState(), HiddenToolBars(window)};
}

void ApplyLayout(QMainWindow& window, const SWindowLayout& layout)
{
    window.restoreGeometry(layout.geometry);
    window.restoreState(layout.state);
    SetHiddenToolBars(window, layout.sHiddenToolBarList);
}

bool RestoreWindow(QMainWindow& window, const SWindowLayout& defaultLayout)
{
    const QSettings settings(QSettings::UserScope, ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    ApplyLayout(window, {settings.value(GEOMETRY_KEY, defaultLayout.geometry).toByteArray(),
                         settings.value(STATE_KEY, defaultLayout.state).toByteArray(),
                         settings.value(HIDDEN_TOOL_BARS_KEY).toStringList()});
    const bool bMaximised = window.isMaximized();
    const QRect windowed = settings.value(WINDOWED_RECT_KEY).toRect();
    if (windowed.isValid())
        window.setGeometry(windowed);
    return bMaximised;
}

void StoreWindow(const QMainWindow& window)
{
    QSettings settings(QSettings::UserScope, ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    const bool bLarge = window.isMaximized() || window.isFullScreen();
    const QRect windowed = bLarge ? window.normalGeometry() : window.geometry();
    if (windowed.isValid())
        settings.setValue(WINDOWED_RECT_KEY, windowed);
    else
        settings.remove(WINDOWED_RECT_KEY);
    settings.setValue(GEOMETRY_KEY, window.saveGeometry());
    settings.setValue(STATE_KEY, window.saveState());
    settings.setValue(HIDDEN_TOOL_BARS_KEY, HiddenToolBars(window));
}
