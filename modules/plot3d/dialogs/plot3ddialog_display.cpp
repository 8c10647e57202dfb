// CPlot3DDialog: the display file that goes with the files of the case, or that is all there is to choose.
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "modules/plot3d/datafilekeys.h"
#include "modules/plot3d/dialogs/plot3ddialog.h"
#include "modules/plot3d/fieldview/fieldviewchoice.h"
#include "simulation/displayfilechoice.h"
#include "ui_plot3ddialog.h"

#include <QFileInfo>

void CPlot3DDialog::FillDisplay()
{
    const bool bHasFile = !m_records.sDisplayFile.isEmpty();
    m_pUi->m_pFieldViewE->setText(m_sRestartFile);
    m_pUi->m_pDisplayFileE->setText(m_records.sDisplayFile);
    m_pUi->m_pDeleteDisplayB->setEnabled(bHasFile);
    m_pUi->m_pNoDataReadCB->setChecked(m_records.bNoDataRead);
    m_pUi->m_pFilesL->setDisabled(m_records.bNoDataRead);
    m_pUi->m_pFilesTreeList->setDisabled(m_records.bNoDataRead);
    if (m_records.bNoDataRead)
        m_pUi->m_pTransientCB->setEnabled(false);
}

void CPlot3DDialog::on_m_pBrowseFieldViewB_clicked()
{
    const QString sDirectory =
        m_records.grid.IsEmpty() ? QString() : QFileInfo(m_records.grid.FileName()).absolutePath();
    const SFieldViewChoice choice = AskFieldView(sDirectory);
    if (choice.sDisplayFile.isEmpty() || !TakeDisplay(choice.sDisplayFile))
        return;
    m_sRestartFile = choice.sRestartFile;
    Fill();
}

void CPlot3DDialog::on_m_pBrowseDisplayB_clicked()
{
    const QString sFile = AskDisplayFile();
    if (sFile.isEmpty() || !TakeDisplay(sFile))
        return;
    m_sRestartFile.clear();
    Fill();
}

/** With the data that it names, unless those that are there stay; false, after telling why, if it can't be.
 */
bool CPlot3DDialog::TakeDisplay(const QString& sFile)
{
    CCaseRecords named;
    QString sProblem;
    {
        const CWaitCursor wait;
        sProblem = ReadDataOfDisplay(sFile, m_records.bNoDataRead, named);
    }
    if (!sProblem.isEmpty())
        return UserPrompt::Tell(PromptWarning, "Display File", sProblem);
    if (!m_records.bNoDataRead)
        m_records = named;
    m_records.sDisplayFile = sFile;
    return true;
}

void CPlot3DDialog::on_m_pDeleteDisplayB_clicked()
{
    m_records.sDisplayFile.clear();
    m_sRestartFile.clear();
    Fill();
}

void CPlot3DDialog::on_m_pNoDataReadCB_toggled(bool bChecked)
{
    if (m_bFilling)
        return;
    m_records.bNoDataRead = bChecked;
    Fill();
}
