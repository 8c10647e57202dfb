#include "view/dialogs/variabledialog.h"

#include "data/variables/storedvariables.h"
#include "data/variables/variablemanager.h"
#include "frame/ui/fontincrement.h"
#include "frame/userprompt.h"
#include "ui_variabledialog.h"
#include "view/dialogs/expressiondialog.h"
#include "view/dialogs/variabletreeitem.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace {
constexpr int NAME_COLUMN = 0, KIND_COLUMN = 1;
constexpr qint64 COMPARISON = -1; // as a simulation: those that draw on several
} // namespace

CVariableDialog::CVariableDialog(qint64 nSimulationId, VariableFace_e eFace,
                                 std::optional<VariableKind_e> kind, QWidget* pParent)
    : QDialog(pParent),
      m_nSimulationId(nSimulationId),
      m_eFace(eFace),
      m_kind(kind),
      m_pUi(new Ui::CVariableDialog)
{
    m_pUi->setupUi(this);
    ApplyFontIncrement(this);
    VariableTree::SetUp(*m_pUi->m_pVariableTree);
    m_pUi->m_pVariableTree->header()->setSectionResizeMode(NAME_COLUMN, QHeaderView::Stretch);
    m_pUi->m_pVariableTree->header()->setSectionResizeMode(KIND_COLUMN, QHeaderView::ResizeToContents);
    m_pUi->m_pVariableTree->header()->setStretchLastSection(false);
    m_pUi->m_pVariableTree->sortByColumn(NAME_COLUMN, Qt::AscendingOrder);
    m_pUi->m_pFilterE->installEventFilter(this);
    m_pUi->m_pVariableTree->installEventFilter(this);
    ShowFace();
    Fill();
}

CVariableDialog::~CVariableDialog() = default;

std::optional<qint64> CVariableDialog::Choose(qint64 nSimulationId, VariableKind_e eKind, qint64 nCurrentId,
                                              bool bNone, QWidget* pParent)
{
    CVariableDialog dialog(nSimulationId, FacePicker, eKind, pParent);
    if (bNone)
        dialog.OfferNone();
    dialog.SetVariableId(nCurrentId);
    return dialog.exec() == Accepted ? std::optional(dialog.GetVariableId()) : std::nullopt;
}

void CVariableDialog::ShowFace()
{
    const bool bManager = m_eFace == FaceManager;
    for (QPushButton* const pButton :
         {m_pUi->m_pCreateB, m_pUi->m_pEditB, m_pUi->m_pDeleteB, m_pUi->m_pCloseB})
        pButton->setVisible(bManager);
    for (QPushButton* const pButton : {m_pUi->m_pOKB, m_pUi->m_pCancelB})
        pButton->setVisible(!bManager);
    m_pUi->m_pNoneB->hide();
    (bManager ? m_pUi->m_pEditB : m_pUi->m_pOKB)->setDefault(true);
    if (bManager)
        m_pUi->m_pVariableTree->setSelectionMode(QAbstractItemView::ExtendedSelection);
}

void CVariableDialog::OfferNone() { m_pUi->m_pNoneB->show(); }

void CVariableDialog::Fill()
{
    QTreeWidget& tree = *m_pUi->m_pVariableTree;
    tree.setSortingEnabled(false);
    tree.clear();
    const CVariableManager& manager = CVariableManager::Instance();
    AddRows(*tree.invisibleRootItem(), manager.ListVariables(m_nSimulationId, false));
    const QVector<qint64> comparison = manager.ListVariables(COMPARISON, false);
    tree.setRootIsDecorated(!comparison.isEmpty());
    if (!comparison.isEmpty()) {
        auto* const pHead = new CVariableTreeItem(GroupComparison, "Compare");
        tree.addTopLevelItem(pHead);
        AddRows(*pHead, comparison);
        pHead->setExpanded(true);
    }
    VariableTree::AddSeparators(*tree.invisibleRootItem());
    tree.setSortingEnabled(true);
    VariableTree::Filter(*tree.invisibleRootItem(), m_pUi->m_pFilterE->text());
    on_m_pVariableTree_itemSelectionChanged();
}

void CVariableDialog::AddRows(QTreeWidgetItem& parent, const QVector<qint64>& ids)
{
    for (const qint64 nId : ids) {
        const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nId);
        if (!pVariable->IsListed() || (m_kind && *m_kind != pVariable->GetKind()))
            continue;
        auto* const pRow = new CVariableTreeItem(*pVariable);
        pRow->setText(KIND_COLUMN, pVariable->GetKind() == KindVector ? "Vector" : "Scalar");
        pRow->setToolTip(KIND_COLUMN, pVariable->GetComment());
        ApplyItemFont(pRow, KIND_COLUMN);
        parent.addChild(pRow);
    }
}

void CVariableDialog::SetVariableId(qint64 nId)
{
    CVariableTreeItem* const pRow = VariableTree::FindRow(*m_pUi->m_pVariableTree, nId);
    m_pUi->m_pVariableTree->setCurrentItem(pRow);
    if (pRow)
        m_pUi->m_pVariableTree->scrollToItem(pRow);
}

QVector<CVariableTreeItem*> CVariableDialog::SelectedRows() const
{
    QVector<CVariableTreeItem*> rows;
    for (QTreeWidgetItem* const pItem : m_pUi->m_pVariableTree->selectedItems())
        if (auto* const pRow = static_cast<CVariableTreeItem*>(pItem); !pRow->isHidden())
            rows.append(pRow);
    return rows;
}

void CVariableDialog::on_m_pFilterE_textChanged(QString arg1)
{
    VariableTree::Filter(*m_pUi->m_pVariableTree->invisibleRootItem(), arg1);
    on_m_pVariableTree_itemSelectionChanged();
}

void CVariableDialog::on_m_pVariableTree_itemSelectionChanged()
{
    const QVector<CVariableTreeItem*> rows = SelectedRows();
    const IVariable* const pVariable =
        rows.size() == 1 ? CVariableManager::Instance().GetVariable(rows.first()->GetVariableId()) : nullptr;
    m_pUi->m_pEditB->setEnabled(pVariable && pVariable->IsExpression());
    m_pUi->m_pEditB->setText(pVariable && GroupOf(pVariable) == GroupBuiltIn ? "Show" : "Edit");
    m_pUi->m_pOKB->setEnabled(pVariable);
    const auto IsOfFile = [](const CVariableTreeItem* pRow) { return pRow->GetGroup() == GroupFile; };
    m_pUi->m_pDeleteB->setEnabled(!std::all_of(rows.begin(), rows.end(), IsOfFile));
}

void CVariableDialog::on_m_pVariableTree_itemDoubleClicked()
{
    if (m_eFace == FacePicker)
        on_m_pOKB_clicked();
    else
        on_m_pEditB_clicked();
}

VariableLocation_e CVariableDialog::LocationForNew() const
{
    const CVariableManager& manager = CVariableManager::Instance();
    QVector<qint64> candidates;
    for (const CVariableTreeItem* const pRow : SelectedRows())
        candidates.append(pRow->GetVariableId());
    candidates += manager.ListVariables(m_nSimulationId, false);
    for (const qint64 nId : candidates)
        if (const IVariable* const pVariable = manager.GetVariable(nId);
            pVariable && pVariable->GetLocation() != LocationNone)
            return pVariable->GetLocation();
    return LocationNode;
}

void CVariableDialog::on_m_pCreateB_clicked()
{
    CExpressionDialog dialog(this);
    if (!dialog.Open(m_nSimulationId, LocationForNew(), -1, false))
        return;
    Fill();
    SetVariableId(dialog.GetVariableId());
}

void CVariableDialog::on_m_pEditB_clicked()
{
    const QVector<CVariableTreeItem*> rows = SelectedRows();
    const IVariable* const pVariable =
        rows.size() == 1 ? CVariableManager::Instance().GetVariable(rows.first()->GetVariableId()) : nullptr;
    if (!pVariable)
        return;
    const qint64 nId = pVariable->GetId();
    if (!pVariable->IsExpression()) {
        UserPrompt::Tell(PromptInformation, "Edit Variable",
                         QString("'%1' is not a calculated variable and cannot be edited.\n"
                                 "Use Create to define a new calculated variable.")
                             .arg(pVariable->GetName()));
        return;
    }
    const bool bReadOnly = GroupOf(pVariable) == GroupBuiltIn;
    // A constant may become a field.
    const VariableLocation_e eLocation =
        pVariable->GetLocation() == LocationNone && !bReadOnly ? LocationForNew() : pVariable->GetLocation();
    CExpressionDialog dialog(this);
    if (!dialog.Open(pVariable->GetSimulationId(), eLocation, nId, bReadOnly))
        return;
    Fill();
    SetVariableId(nId);
}

/** After a question; false for a file variable and where the user refuses. */
bool CVariableDialog::Delete(qint64 nId)
{
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nId);
    if (!pVariable || pVariable->IsFileVariable())
        return false;
    constexpr int YES = 0, NO = 1;
    SPrompt prompt;
    prompt.eKind = PromptWarning;
    prompt.sTitle = "Delete Variable";
    prompt.sText = QString("Would you like to delete the variable %1?\n"
                           "This action will also delete any variable using it")
                       .arg(pVariable->GetName());
    prompt.sButtonList = QStringList{"Yes", "No"};
    prompt.nDefault = prompt.nEscape = NO;
    if (UserPrompt::Ask(prompt) != YES)
        return false;
    StoredVariables::RemoveForGood(nId);
    return true;
}

void CVariableDialog::on_m_pDeleteB_clicked()
{
    QVector<qint64> ids;
    for (const CVariableTreeItem* const pRow : SelectedRows())
        ids.append(pRow->GetVariableId());
    bool bDeleted = false;
    for (const qint64 nId : std::as_const(ids))
        bDeleted |= Delete(nId);
    if (bDeleted)
        Fill();
}

void CVariableDialog::on_m_pNoneB_clicked()
{
    m_nChosenId = -1;
    accept();
}

void CVariableDialog::on_m_pOKB_clicked()
{
    const QVector<CVariableTreeItem*> rows = SelectedRows();
    if (rows.size() != 1 || rows.first()->GetVariableId() == -1)
        return;
    m_nChosenId = rows.first()->GetVariableId();
    accept();
}

void CVariableDialog::on_m_pCancelB_clicked() { reject(); }
void CVariableDialog::on_m_pCloseB_clicked() { accept(); }

/** From the filter line the list is one key away; there Delete deletes. */
bool CVariableDialog::eventFilter(QObject* pObject, QEvent* pEvent)
{
    const int nKey = pEvent->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(pEvent)->key() : 0;
    if (pObject == m_pUi->m_pFilterE && nKey == Qt::Key_Down) {
        m_pUi->m_pVariableTree->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (pObject == m_pUi->m_pVariableTree && nKey == Qt::Key_Delete && m_eFace == FaceManager) {
        on_m_pDeleteB_clicked();
        return true;
    }
    return QDialog::eventFilter(pObject, pEvent);
}
