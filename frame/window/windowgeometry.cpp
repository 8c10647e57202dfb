#include "frame/window/windowgeometry.h"

#include "frame/applicationinfo.h"

#include <QMainWindow>
#include <QSettings>

namespace {

constexpr const char* GEOMETRY_KEY = "mainwindowgeometry";
constexpr const char* STATE_KEY = "mainwindowstate";
constexpr const char* WINDOWED_RECT_KEY = "mainwindowwindowedrect";

} // namespace

SWindowLayout TakeLayout(const QMainWindow& window) { return {window.saveGeometry(), window.saveState()}; }

void ApplyLayout(QMainWindow& window, const SWindowLayout& layout)
{
    window.restoreGeometry(layout.geometry);
    window.restoreState(layout.state);
}

bool RestoreWindow(QMainWindow& window, const SWindowLayout& defaultLayout)
{
    const QSettings settings(QSettings::UserScope, ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    ApplyLayout(window, {settings.value(GEOMETRY_KEY, defaultLayout.geometry).toByteArray(),
                         settings.value(STATE_KEY, defaultLayout.state).toByteArray()});
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
}
