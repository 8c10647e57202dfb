// Headers that nearly every library with widgets needs.
#include "pch_core.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <QWidget>
