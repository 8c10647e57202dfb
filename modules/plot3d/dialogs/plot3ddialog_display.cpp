// CPlot3DDialog: the display file that goes with the files of the case, or that is all there is to choose.
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "modules/plot3d/datafilekeys.h"
#include "modules/plot3d/dialogs/plot3ddialog.h"
#include "modules/plot3d/fieldview/fieldviewimport.h"
#include "simulation/displayfilechoice.h"
#include "ui_plot3ddialog.h"

void CPlot3DDialog::FillDisplay()
{
    m_pUi->m_pFieldViewE->setText(m_records.sRestartFile);
    m_pUi->m_pDeleteFieldViewB->setEnabled(!m_records.sRestartFile.isEmpty());
    m_pUi->m_pDisplayFileE->setText(m_records.sDisplayFile);
    m_pUi->m_pDeleteDisplayB->setEnabled(!m_records.sDisplayFile.isEmpty());
    m_pUi->m_pNoDataReadCB->setChecked(m_records.bNoDataRead);
    m_pUi->m_pFilesL->setDisabled(m_records.bNoDataRead);
    m_pUi->m_pFilesTreeList->setDisabled(m_records.bNoDataRead);
    if (m_records.bNoDataRead)
        m_pUi->m_pTransientCB->setEnabled(false);
}

void CPlot3DDialog::on_m_pBrowseFieldViewB_clicked()
{
    const QString sFile = AskFieldView();
    if (sFile.isEmpty())
        return;
    if (!m_records.bNoDataRead) {
        const CWaitCursor wait;
        FindFieldViewData(sFile, m_records); // what isn't found is for the user to choose
    }
    m_records.sDisplayFile.clear();
    m_records.sRestartFile = sFile;
    Fill();
}

void CPlot3DDialog::on_m_pBrowseDisplayB_clicked()
{
    const QString sFile = AskDisplayFile();
    if (sFile.isEmpty())
        return;
    CCaseRecords named;
    QString sProblem;
    {
        const CWaitCursor wait;
        sProblem = ReadDataOfDisplay(sFile, m_records.bNoDataRead, named);
    }
    if (!sProblem.isEmpty()) {
        UserPrompt::Tell(PromptWarning, "Display File", sProblem);
        return;
    }
    if (!m_records.bNoDataRead)
        m_records = named;
    m_records.sRestartFile.clear();
    m_records.sDisplayFile = sFile;
    Fill();
}

void CPlot3DDialog::on_m_pDeleteFieldViewB_clicked()
{
    m_records.sRestartFile.clear();
    Fill();
}

void CPlot3DDialog::on_m_pDeleteDisplayB_clicked()
{
    m_records.sDisplayFile.clear();
    Fill();
}

void CPlot3DDialog::on_m_pNoDataReadCB_toggled(bool bChecked)
{
    if (m_bFilling)
        return;
    m_records.bNoDataRead = bChecked;
    Fill();
}
