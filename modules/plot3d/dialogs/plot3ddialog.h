#pragma once

#include "modules/plot3d/filerecords.h"

#include <QDialog>

#include <functional>
#include <memory>

class QTreeWidgetItem;

namespace Ui {
class CPlot3DDialog;
}

/**
 * Chooses the files of a case. The rules are those of CCaseRecords, which it holds; it shows them in a tree
 * with buttons for each file, and the layout that was detected beside each.
 */
class CPlot3DDialog : public QDialog
{
    Q_OBJECT

public:
    explicit CPlot3DDialog(QWidget* pParent = nullptr);
    ~CPlot3DDialog() override;

    void SetRecords(const CCaseRecords& records);
    const CCaseRecords& GetRecords() const { return m_records; }
    /** Puts each file where its content belongs, and fills in what goes with them by name. */
    void AddFiles(const QStringList& sFileList);

public slots:
    /** Closes the dialog if the files make a case; otherwise tells what is wrong. */
    void accept() override;

protected:
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;

private slots:
    void on_m_pTransientCB_toggled(bool bChecked);
    void on_m_pBrowseFieldViewB_clicked();
    void on_m_pDeleteFieldViewB_clicked();
    void on_m_pBrowseDisplayB_clicked();
    void on_m_pDeleteDisplayB_clicked();
    void on_m_pNoDataReadCB_toggled(bool bChecked);
    void on_m_pFilesTreeList_itemDoubleClicked(QTreeWidgetItem* pItem);

private:
    /** A row of the tree; nPlace is that of a function file, -1 for the row that adds one. */
    struct SRow
    {
        FileRole_e eRole = RoleNone;
        int nPlace = -1;
    };

    void Fill();
    void FillDisplay();
    void FillRow(QTreeWidgetItem* pItem, const SRow& row);
    QWidget* MakeButtons(const SRow& row);
    const CFileRecord* RecordOf(const SRow& row) const;
    void Browse(const SRow& row);
    void Delete(const SRow& row);
    void ChooseBlocks();
    bool Choose(const std::function<SFilesProblem()>& choose);
    bool Tell(const SFilesProblem& problem);

    const std::unique_ptr<Ui::CPlot3DDialog> m_pUi;
    CCaseRecords m_records;
    bool m_bFilling = false;
};
