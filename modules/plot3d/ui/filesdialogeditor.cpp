#include "modules/plot3d/ui/filesdialogeditor.h"

#include "frame/ui/fontincrement.h"
#include "frame/widgetmanager.h"
#include "modules/plot3d/dialogs/plot3ddialog.h"

bool CFilesDialogEditor::EditCaseFiles(CCaseRecords& records)
{
    QWidget* const pWindow = CWidgetManager::Instance().GetWidget(CWidgetManager::MAIN_WINDOW);
    if (!pWindow)
        return false;
    ForgetDetectedFiles();
    CPlot3DDialog dialog(pWindow);
    ApplyFontIncrement(&dialog);
    dialog.SetRecords(records);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    records = dialog.GetRecords();
    return true;
}
