#include "modules/plot3d/dialogs/plot3ddialog.h"

#include "frame/preferences/recentfolder.h"
#include "frame/themeicon.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "modules/plot3d/dialogs/blocklistdialog.h"
#include "ui_plot3ddialog.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QTimer>
#include <QToolButton>

namespace {

enum Column_e { ColumnRole, ColumnName, ColumnLayout, ColumnButtons };

/** What a role is called, and how its file is asked for. */
struct SRoleRow
{
    FileRole_e eRole;
    const char* sName;
    const char* sTitle;
    const char* sFilter;
};

constexpr SRoleRow s_roles[] = {
    {RoleGrid, "Grid File", "Select Grid File", "Grid Files (*.x *.xyz *.xyzb);; All Files (*)"},
    {RoleQ, "Q File", "Select Q File", "Q Files (*.q);; All Files(*)"},
    {RoleFunction, "Function Files", "Select file", "Function Files (*.f);; All Files(*)"},
};

const SRoleRow& RoleRow(FileRole_e eRole)
{
    return *std::find_if(std::begin(s_roles), std::end(s_roles),
                         [eRole](const SRoleRow& row) { return row.eRole == eRole; });
}

QStringList LocalFiles(const QMimeData* pData)
{
    QStringList sFileList;
    for (const QUrl& url : pData->urls())
        if (url.isLocalFile())
            sFileList.append(url.toLocalFile());
    return sFileList;
}

} // namespace

CPlot3DDialog::CPlot3DDialog(QWidget* pParent) : QDialog(pParent), m_pUi(new Ui::CPlot3DDialog)
{
    m_pUi->setupUi(this);
    QHeaderView* const pHeader = m_pUi->m_pFilesTreeList->header();
    pHeader->setSectionResizeMode(ColumnRole, QHeaderView::ResizeToContents);
    pHeader->setSectionResizeMode(ColumnName, QHeaderView::ResizeToContents);
    pHeader->setSectionResizeMode(ColumnLayout, QHeaderView::Stretch);
    pHeader->setSectionResizeMode(ColumnButtons, QHeaderView::ResizeToContents);
    for (QToolButton* const pButton : {m_pUi->m_pBrowseFieldViewB, m_pUi->m_pBrowseDisplayB})
        pButton->setIcon(ThemeIcon(":/Icons/Browse.png"));
    for (QToolButton* const pButton : {m_pUi->m_pDeleteFieldViewB, m_pUi->m_pDeleteDisplayB})
        pButton->setIcon(ThemeIcon(":/Icons/Delete.png"));
    Fill();
}

CPlot3DDialog::~CPlot3DDialog() = default;

void CPlot3DDialog::SetRecords(const CCaseRecords& records)
{
    m_records = records;
    Fill();
}

void CPlot3DDialog::AddFiles(const QStringList& sFileList)
{
    for (const QString& sFile : sFileList)
        if (!Choose([&] { return m_records.AddFile(sFile); }))
            break;
    Fill();
}

/** Takes a file in, a new grid with what goes with it; tells if that isn't possible. */
bool CPlot3DDialog::Choose(const std::function<SFilesProblem()>& choose)
{
    SFilesProblem problem;
    {
        const CWaitCursor wait;
        const QString sFormerGrid = m_records.grid.FileName();
        problem = choose();
        // A row that the user deleted must not come back with the next file.
        if (problem.IsNone() && (m_records.grid.IsEmpty() || m_records.grid.FileName() != sFormerGrid))
            m_records.AddCompanions();
    }
    return Tell(problem);
}

/** False if there was one. */
bool CPlot3DDialog::Tell(const SFilesProblem& problem)
{
    return problem.IsNone() || UserPrompt::Tell(PromptWarning, problem.sTitle, problem.sText);
}

void CPlot3DDialog::accept()
{
    if (Tell(m_records.Validate()))
        QDialog::accept();
}

const CFileRecord* CPlot3DDialog::RecordOf(const SRow& row) const
{
    if (row.eRole == RoleGrid)
        return m_records.grid.IsEmpty() ? nullptr : &m_records.grid;
    if (row.eRole == RoleQ)
        return m_records.q.IsEmpty() ? nullptr : &m_records.q;
    const bool bExists = row.nPlace >= 0 && row.nPlace < m_records.functions.size();
    return bExists ? &m_records.functions[row.nPlace] : nullptr;
}

void CPlot3DDialog::Fill()
{
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    QTreeWidget* const pTree = m_pUi->m_pFilesTreeList;
    pTree->clear();
    auto* const pTop = new QTreeWidgetItem(pTree, {"Simulation Files"});
    pTop->setFlags(Qt::ItemIsEnabled);
    for (const SRoleRow& role : s_roles) {
        auto* const pItem = new QTreeWidgetItem(pTop, {role.sName});
        FillRow(pItem, {role.eRole, -1});
        for (int n = 0; role.eRole == RoleFunction && n < m_records.functions.size(); ++n)
            FillRow(new QTreeWidgetItem(pItem, {QString("Function File %1").arg(n + 1)}), {RoleFunction, n});
    }
    pTree->expandAll();
    const qint64 nSeries = m_records.TransientCount();
    m_pUi->m_pTransientCB->setText(QString("Read transient data (%1 files)").arg(nSeries));
    m_pUi->m_pTransientCB->setEnabled(nSeries > 0);
    m_pUi->m_pTransientCB->setChecked(m_records.bReadTransient);
    FillDisplay();
}

void CPlot3DDialog::FillRow(QTreeWidgetItem* pItem, const SRow& row)
{
    m_pUi->m_pFilesTreeList->setItemWidget(pItem, ColumnButtons, MakeButtons(row));
    const CFileRecord* const pRecord = RecordOf(row);
    if (!pRecord)
        return;
    const QString sLayout = Get(*pRecord, FileRecordKey::LAYOUT);
    pItem->setText(ColumnName, pRecord->RowText(m_records.bReadTransient, row.eRole == RoleGrid));
    pItem->setText(ColumnLayout, sLayout);
    if (!pRecord->IsValid())
        pItem->setIcon(ColumnLayout, ThemeIcon(":/Icons/warning.png"));
    const QString sToolTip = pRecord->FileName() + '\n' + sLayout;
    for (const int nColumn : {ColumnRole, ColumnName, ColumnLayout})
        pItem->setToolTip(nColumn, sToolTip);
}

QWidget* CPlot3DDialog::MakeButtons(const SRow& row)
{
    auto* const pButtons = new QWidget;
    auto* const pLayout = new QHBoxLayout(pButtons);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(2);
    pLayout->addStretch();
    const QString sId = QString("%1%2").arg(row.eRole).arg(row.nPlace);
    const auto add = [&](const char* sName, const char* sIcon, const QString& sToolTip, auto act) {
        auto* const pButton = new QToolButton(pButtons);
        pButton->setObjectName(sName + sId);
        pButton->setIcon(ThemeIcon(sIcon));
        pButton->setToolTip(sToolTip);
        pButton->setAutoRaise(true);
        pLayout->addWidget(pButton);
        // The click makes the rows anew, this button too: not before it has come back.
        connect(pButton, &QToolButton::clicked, this, act, Qt::QueuedConnection);
        return pButton;
    };
    const bool bHasFile = RecordOf(row);
    if (row.eRole == RoleGrid)
        add("m_pBlocks", ":/Icons/select-all.png", "Select Blocks", [this] {
            ChooseBlocks();
        })->setEnabled(bHasFile && m_records.grid.BlockCount() > 0);
    add("m_pBrowse", ":/Icons/Browse.png", RoleRow(row.eRole).sTitle, [this, row] { Browse(row); });
    auto* const pDelete =
        add("m_pDelete", ":/Icons/Delete.png", "Remove the file", [this, row] { Delete(row); });
    pDelete->setEnabled(bHasFile);
    QSizePolicy policy = pDelete->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // keeps the others in line
    pDelete->setSizePolicy(policy);
    pDelete->setHidden(row.eRole == RoleFunction && row.nPlace < 0); // a row that only adds
    return pButtons;
}

void CPlot3DDialog::Browse(const SRow& row)
{
    const CFileRecord* const pFormer = RecordOf(row);
    QString sStart;
    if (pFormer || !m_records.grid.IsEmpty())
        sStart = QFileInfo((pFormer ? *pFormer : m_records.grid).FileName()).absolutePath();
    const SRoleRow& role = RoleRow(row.eRole);
    const QString sFileName = RecentFolder::AskFile({role.sTitle, sStart, role.sFilter});
    if (sFileName.isEmpty())
        return;
    Choose([&] {
        return row.eRole == RoleFunction ? m_records.SetFunction(sFileName, row.nPlace)
                                         : m_records.SetFile(sFileName, row.eRole);
    });
    Fill();
}

void CPlot3DDialog::Delete(const SRow& row)
{
    if (row.eRole == RoleGrid)
        m_records.grid = {};
    else if (row.eRole == RoleQ)
        m_records.q = {};
    else if (RecordOf(row))
        m_records.functions.remove(row.nPlace);
    Fill();
}

void CPlot3DDialog::ChooseBlocks()
{
    CBlockListDialog dialog(m_records.grid.BlockSizes(), m_records.grid.Blocks(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_records.grid.SetBlocks(dialog.GetBlocks());
    Fill();
}

void CPlot3DDialog::on_m_pTransientCB_toggled(bool bChecked)
{
    if (m_bFilling)
        return;
    m_records.bReadTransient = bChecked;
    Fill();
}

void CPlot3DDialog::on_m_pFilesTreeList_itemDoubleClicked(QTreeWidgetItem* pItem)
{
    const bool bGridRow = pItem->text(ColumnRole) == RoleRow(RoleGrid).sName;
    if (bGridRow && m_records.grid.BlockCount() > 0)
        QTimer::singleShot(0, this, [this] { ChooseBlocks(); });
}

void CPlot3DDialog::dragEnterEvent(QDragEnterEvent* pEvent)
{
    if (!LocalFiles(pEvent->mimeData()).isEmpty())
        pEvent->acceptProposedAction();
}

void CPlot3DDialog::dropEvent(QDropEvent* pEvent)
{
    pEvent->acceptProposedAction();
    AddFiles(LocalFiles(pEvent->mimeData()));
}
