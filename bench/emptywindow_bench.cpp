// The least that a Qt program with a window takes: bench/startup compares with it.
#include "window/startup/startuptimings.h"

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    StartupTimings::Note("main");
    QApplication application(argc, argv);
    StartupTimings::Note("application");
    QWidget window;
    window.resize(1280, 800);
    StartupTimings::PrintAfterFirstPaint(&window);
    window.show();
    StartupTimings::Note("shown");
    return QApplication::exec();
}
