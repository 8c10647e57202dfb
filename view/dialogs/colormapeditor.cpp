#include "view/dialogs/colormapeditor.h"

#include "frame/widgetmanager.h"
#include "view/dialogs/colormapdialog.h"

void CColormapEditor::Install()
{
    static CColormapEditor s_editor;
    IColormapEditor::Install(&s_editor);
}

bool CColormapEditor::EditColormap(qint64 nSimulationId, qint64 nViewId)
{
    CColormapDialog dialog(nSimulationId, nViewId, false,
                           CWidgetManager::Instance().GetWidget(CWidgetManager::MAIN_WINDOW));
    return dialog.exec() == QDialog::Accepted;
}
