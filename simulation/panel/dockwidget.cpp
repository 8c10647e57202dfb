#include "simulation/panel/dockwidget.h"

void CDockWidget::SlotCloseExcept(QWidget* pRequestingWidget)
{
    if (pRequestingWidget != this && !GoesWith(pRequestingWidget))
        close();
}
