#include "view/dialogs/expressiondialog.h"

#include "data/variables/expressionvariable.h"
#include "data/variables/storedvariables.h"
#include "data/variables/variablemanager.h"
#include "frame/novalue.h"
#include "frame/ui/fontincrement.h"
#include "frame/userprompt.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "ui_expressiondialog.h"
#include "view/dialogs/variabletreeitem.h"
#include "view/takenranges.h"

#include <QScopedValueRollback>
#include <QShortcut>

namespace {

constexpr qint64 COMPARISON = -1; // as a simulation: those that draw on several

/** What a button of the pad inserts. */
struct SPadKey
{
    const char* sButton;
    const char* sText;
    int nBack; // places that the cursor goes back, into the brackets
};
constexpr SPadKey PAD_KEYS[] = {
    {"m_p0B", "0", 0},
    {"m_p1B", "1", 0},
    {"m_p2B", "2", 0},
    {"m_p3B", "3", 0},
    {"m_p4B", "4", 0},
    {"m_p5B", "5", 0},
    {"m_p6B", "6", 0},
    {"m_p7B", "7", 0},
    {"m_p8B", "8", 0},
    {"m_p9B", "9", 0},
    {"m_pDotB", ".", 0},
    {"m_pPlusB", "+", 0},
    {"m_pMinusB", "-", 0},
    {"m_pMultiplyB", "*", 0},
    {"m_pDevideB", "/", 0},
    {"m_pOpenBracketB", "(", 0},
    {"m_pCloseBracketB", ")", 0},
    {"m_pPiB", "pi", 0},
    {"m_pTanB", "tan()", 1},
    {"m_pCosB", "cos()", 1},
    {"m_pSinB", "sin()", 1},
    {"m_pLogB", "log()", 1},
    {"m_pAbsB", "abs()", 1},
    {"m_pFloorB", "floor()", 1},
    {"m_pCeilB", "ceil()", 1},
    {"m_pExpB", "exp()", 1},
    {"m_pSqrtB", "sqrt()", 1},
    {"m_pMaxB", "max(,)", 2},
    {"m_pMinB", "min(,)", 2},
    {"m_pPowB", "pow(,)", 2},
};

/** The text of the head of a simulation's variables. */
QString HeadOf(qint64 nSimulationId)
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nSimulationId);
    return nSimulationId == COMPARISON
               ? "(0): Compare"
               : QString("(%1): %2").arg(nSimulationId).arg(pSimulation ? pSimulation->GetName() : "");
}

/** "<2@R>", "<0@R>" for one that draws on several simulations; "<R>" without simulations. */
QString ReferenceOf(const IVariable& variable, qint64 nSimulationId, bool bSimulations)
{
    const qint64 nShown = nSimulationId == COMPARISON ? 0 : nSimulationId;
    return FormulaText::Reference({variable.GetId(), variable.GetName(), nShown}, STEADY_TIME,
                                  {bSimulations, false});
}

} // namespace

CExpressionDialog::CExpressionDialog(QWidget* pParent) : QDialog(pParent), m_pUi(new Ui::CExpressionDialog)
{
    m_pUi->setupUi(this);
    ApplyFontIncrement(this);
    VariableTree::SetUp(*m_pUi->m_pInputTree);
    m_pUi->m_pInputTree->sortByColumn(0, Qt::AscendingOrder);
    m_pUi->m_pSplitter->setStretchFactor(0, 2);
    m_pUi->m_pSplitter->setStretchFactor(1, 3);
    ConnectPad();
    auto* const pAccept = new QShortcut(QKeySequence("Ctrl+Return"), this);
    connect(pAccept, &QShortcut::activated, m_pUi->m_pOKB, &QPushButton::click);
}

CExpressionDialog::~CExpressionDialog() = default;

void CExpressionDialog::ConnectPad()
{
    for (const SPadKey& key : PAD_KEYS) {
        auto* const pButton = findChild<QPushButton*>(key.sButton);
        connect(pButton, &QPushButton::clicked, this, [this, &key] { Insert(key.sText, key.nBack); });
        pButton->setAccessibleName(QString("Insert %1").arg(key.sText));
        pButton->setMinimumWidth(pButton->fontMetrics().horizontalAdvance("floor") + 12);
    }
}

void CExpressionDialog::Insert(const QString& sText, int nBack)
{
    QPlainTextEdit& edit = *m_pUi->m_pExpressionT;
    if (edit.isReadOnly())
        return;
    edit.insertPlainText(sText);
    QTextCursor cursor = edit.textCursor();
    cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::MoveAnchor, nBack);
    edit.setTextCursor(cursor);
    edit.setFocus();
}

bool CExpressionDialog::Open(qint64 nSimulationId, VariableLocation_e eLocation, qint64 nVariableId,
                             bool bReadOnly)
{
    Load(nSimulationId, eLocation, nVariableId, bReadOnly);
    return exec() == Accepted;
}

void CExpressionDialog::Load(qint64 nSimulationId, VariableLocation_e eLocation, qint64 nVariableId,
                             bool bReadOnly)
{
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    m_nSimulationId = nSimulationId;
    m_eLocation = eLocation;
    m_nVariableId = nVariableId;
    if (const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nVariableId)) {
        const QVector<qint64> simulations = pVariable->GetSimulations();
        const bool bSimulations = simulations.size() >= 2 || !simulations.contains(nSimulationId);
        m_pUi->m_pSimulationCompareCB->setChecked(bSimulations);
        m_pUi->m_pTimeCompareCB->setChecked(pVariable->IsTimeDependent());
        m_pUi->m_pVariableNameE->setText(pVariable->GetName());
        m_pUi->m_pExpressionT->setPlainText(
            pVariable->GetExpressionText(bSimulations, pVariable->IsTimeDependent()));
    }
    FillInputs();
    setWindowTitle(bReadOnly ? "Show Variable" : "Edit Variable");
    if (bReadOnly)
        SetReadOnly();
    ShowFault();
}

void CExpressionDialog::SetReadOnly()
{
    m_pUi->m_pVariableNameE->setReadOnly(true);
    m_pUi->m_pExpressionT->setReadOnly(true);
    m_pUi->m_pInputTree->setEnabled(false);
    for (QAbstractButton* const pButton : findChildren<QAbstractButton*>())
        pButton->setEnabled(pButton == m_pUi->m_pCancelB);
    m_pUi->m_pCancelB->setText("Close");
}

CExpressionDialog::SForm CExpressionDialog::Form() const
{
    return {m_pUi->m_pSimulationCompareCB->isChecked(), m_pUi->m_pTimeCompareCB->isChecked()};
}

void CExpressionDialog::FillInputs()
{
    m_scope.clear();
    m_pUi->m_pInputTree->clear();
    if (!Form().bSimulations) {
        AddInputs(m_nSimulationId);
    } else {
        for (const qint64 nSimulationId : CSimulationManager::Instance().GetSimulationIds())
            AddInputs(nSimulationId);
        AddInputs(COMPARISON);
    }
    m_pUi->m_pInputTree->expandAll();
}

/** No vector, none at another place, and none that rests on the variable being edited. */
bool CExpressionDialog::MayReferTo(const IVariable& variable) const
{
    return variable.GetId() != m_nVariableId && variable.GetKind() == KindScalar &&
           (m_nVariableId == -1 || !variable.DependsOn(m_nVariableId)) &&
           (variable.GetLocation() == m_eLocation || variable.GetLocation() == LocationNone);
}

void CExpressionDialog::AddInputs(qint64 nSimulationId)
{
    auto* const pHead = new CVariableTreeItem(GroupFile, HeadOf(nSimulationId));
    m_pUi->m_pInputTree->addTopLevelItem(pHead);
    for (const qint64 nId : CVariableManager::Instance().ListVariables(nSimulationId, false)) {
        const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nId);
        if (!MayReferTo(*pVariable))
            continue;
        m_scope.append(nId);
        auto* const pRow = new CVariableTreeItem(*pVariable);
        pRow->setStatusTip(0, ReferenceOf(*pVariable, nSimulationId, Form().bSimulations));
        pHead->addChild(pRow);
    }
    VariableTree::AddSeparators(*pHead);
    pHead->sortChildren(0, Qt::AscendingOrder);
}

void CExpressionDialog::on_m_pInputTree_itemActivated(QTreeWidgetItem* pItem)
{
    if (pItem && !pItem->statusTip(0).isEmpty())
        Insert(pItem->statusTip(0));
}

void CExpressionDialog::on_m_pSimulationCompareCB_toggled(bool checked)
{
    ChangeForm({!checked, Form().bTimes});
}

void CExpressionDialog::on_m_pTimeCompareCB_toggled(bool checked)
{
    ChangeForm({Form().bSimulations, !checked});
}

/**
 * References are written anew in the new form, unless it has no room for what they name: then the text stays
 * for the user to change.
 */
void CExpressionDialog::ChangeForm(const SForm& former)
{
    if (m_bFilling)
        return;
    CExpressionVariable present(m_nSimulationId, false);
    present.SetScope(m_scope);
    present.SetExpression(m_pUi->m_pExpressionT->toPlainText(), former.bSimulations, former.bTimes);
    FillInputs();
    const SForm form = Form();
    const QVector<SVariableInput>& inputs = present.GetInputs();
    const bool bFits = std::all_of(inputs.begin(), inputs.end(), [&](const SVariableInput& input) {
        return m_scope.contains(input.nVariableId) && (form.bTimes || input.dTime == STEADY_TIME);
    });
    const QString sText = present.GetExpressionText(form.bSimulations, form.bTimes);
    if (bFits && sText != m_pUi->m_pExpressionT->toPlainText())
        m_pUi->m_pExpressionT->setPlainText(sText);
    ShowFault();
}

void CExpressionDialog::on_m_pExpressionT_textChanged()
{
    if (!m_bFilling)
        ShowFault();
}

/** Why the text isn't a formula; empty if it is. */
QString CExpressionDialog::FindFault() const
{
    const QString sText = m_pUi->m_pExpressionT->toPlainText();
    if (sText.trimmed().isEmpty())
        return "Enter a formula";
    CExpressionVariable trial(m_nSimulationId, false);
    trial.SetScope(m_scope);
    if (trial.SetExpression(sText, Form().bSimulations, Form().bTimes))
        return {};
    return QString("Not a formula: look at character %1 (a variable is written as <R>)")
        .arg(trial.GetErrorPosition());
}

/** Says where the text isn't a formula, as long as it isn't; meanwhile it can't be accepted. */
void CExpressionDialog::ShowFault()
{
    const QString sFault = FindFault();
    m_pUi->m_pMessageL->setText(sFault);
    m_pUi->m_pOKB->setEnabled(sFault.isEmpty() && !m_pUi->m_pExpressionT->isReadOnly());
    m_pUi->m_pOKB->setToolTip(sFault.isEmpty() ? "Ctrl+Enter" : sFault);
}

void CExpressionDialog::on_m_pOKB_clicked()
{
    const QString sName = m_pUi->m_pVariableNameE->text();
    if (!CVariableManager::Instance().IsNameValid(m_nVariableId, sName, m_nSimulationId, m_eLocation)) {
        UserPrompt::Tell(PromptCritical, "Invalid Name",
                         "The entered variable name is not valid or already in use");
        m_pUi->m_pVariableNameE->setFocus();
        return;
    }
    StoreVariable(sName);
    accept();
}

void CExpressionDialog::StoreVariable(const QString& sName)
{
    auto* pVariable =
        dynamic_cast<CExpressionVariable*>(CVariableManager::Instance().GetVariable(m_nVariableId));
    const bool bNew = !pVariable;
    if (bNew)
        pVariable = new CExpressionVariable(m_nSimulationId, true);
    m_nVariableId = pVariable->GetId();
    const QString sFormerName = bNew ? sName : pVariable->GetName();
    const VariableLocation_e eFormerLocation = bNew ? m_eLocation : pVariable->GetLocation();
    const CTakenRanges ranges(m_nVariableId);
    pVariable->SetName(sName);
    pVariable->SetScope(m_scope);
    pVariable->SetExpression(m_pUi->m_pExpressionT->toPlainText(), Form().bSimulations, Form().bTimes);
    ranges.TakeAnew();
    pVariable->OnVariableChanged();
    StoredVariables::Keep(*pVariable, sFormerName, eFormerLocation);
}

void CExpressionDialog::on_m_pCancelB_clicked() { reject(); }
