#include "window/variabletoolbar.h"

#include "frame/commonvalue.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/undostep.h"
#include "view/iviewer.h"
#include "window/commands/activepair.h"
#include "window/commands/windowactions.h"

#include <QComboBox>
#include <QCompleter>
#include <QDoubleValidator>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int RANGE_DIGITS = 10;

/** Fills the list of a box anew if it has changed. */
void ShowNames(QComboBox& combo, const QStringList& sNameList)
{
    QStringList sShownList;
    for (int n = 0; n < combo.count(); ++n)
        sShownList.append(combo.itemText(n));
    if (sShownList == sNameList)
        return;
    combo.clear();
    combo.addItems(sNameList);
}

/** So that Ctrl+Z takes back what was chosen; in a box it takes back what was typed. */
void LeaveKeysToView()
{
    const CWidgetManager& manager = CWidgetManager::Instance();
    if (IViewer* const pViewer = manager.GetViewerById(manager.GetActiveViewId()))
        pViewer->GetWidget()->setFocus(Qt::OtherFocusReason);
}

} // namespace

CVariableToolBar::CVariableToolBar(const QString& sTitle, CWindowActions& actions, QWidget* pParent)
    : QToolBar(sTitle, pParent), m_actions(actions)
{}

void CVariableToolBar::AddVariableBox(const QString& sLabel, VariableRole_e eRole, ActionId_e eBrowse,
                                      void (CVariableToolBar::*slot)())
{
    auto* const pBox = new QComboBox;
    pBox->setEditable(true);
    pBox->setInsertPolicy(QComboBox::NoInsert);
    // A list below the box, not text in it: Enter takes what was typed, not the first name that begins so.
    pBox->completer()->setCompletionMode(QCompleter::PopupCompletion);
    pBox->completer()->setFilterMode(Qt::MatchContains);
    pBox->setMinimumContentsLength(16);
    pBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    pBox->setAccessibleName(sLabel.trimmed().remove(':'));
    pBox->setObjectName(pBox->accessibleName());
    addWidget(new QLabel(sLabel));
    addWidget(pBox);
    addAction(m_actions.Get(eBrowse));
    m_boxes.append({eRole, pBox, eBrowse});
    connect(pBox, QOverload<int>::of(&QComboBox::activated), this, slot);
    connect(pBox->lineEdit(), &QLineEdit::returnPressed, this, slot);
}

/** One end of the range; grey as long as no item has a threshold. */
QLineEdit* CVariableToolBar::AddRangeBox(const QString& sToolTip)
{
    auto* const pBox = new QLineEdit;
    pBox->setValidator(new QDoubleValidator(pBox));
    pBox->setToolTip(sToolTip);
    pBox->setAccessibleName(sToolTip);
    pBox->setObjectName(sToolTip);
    pBox->setMaximumWidth(pBox->fontMetrics().horizontalAdvance("-0.000000e-00"));
    addWidget(pBox);
    connect(pBox, &QLineEdit::editingFinished, this, &CVariableToolBar::SlotOnThresholdRangeEntered);
    return pBox;
}

CVariableToolBar* CVariableToolBar::MakeAnalyzeToolBar(CWindowActions& actions, QWidget* pParent)
{
    auto* const pToolBar = new CVariableToolBar("Analyze Toolbar", actions, pParent);
    pToolBar->AddVariableBox("Scalar: ", RoleScalar, ActionBrowseScalar,
                             &CVariableToolBar::SlotOnScalarFunctionEntered);
    pToolBar->AddVariableBox(" Vector: ", RoleVector, ActionBrowseVector,
                             &CVariableToolBar::SlotOnVectorFunctionEntered);
    pToolBar->addAction(actions.Get(ActionBindToLocal));
    pToolBar->addSeparator();
    for (const ActionId_e eId : {ActionToggleLegend, ActionColormapDialog, ActionVectorDialog})
        pToolBar->addAction(actions.Get(eId));
    pToolBar->addSeparator();
    pToolBar->addAction(actions.Get(ActionAnalyzeWindow));
    return pToolBar;
}

CVariableToolBar* CVariableToolBar::MakeThresholdToolBar(CWindowActions& actions, QWidget* pParent)
{
    auto* const pToolBar = new CVariableToolBar("Threshold Toolbar", actions, pParent);
    pToolBar->AddVariableBox("Threshold: ", RoleThreshold, ActionBrowseThreshold,
                             &CVariableToolBar::SlotOnThresholdFunctionEntered);
    pToolBar->m_pMinimum = pToolBar->AddRangeBox("Threshold minimum");
    pToolBar->m_pMaximum = pToolBar->AddRangeBox("Threshold maximum");
    return pToolBar;
}

void CVariableToolBar::SetBrowser(const Browser& browser)
{
    const bool bFirst = !m_browser;
    m_browser = browser;
    for (const SBox& box : std::as_const(m_boxes))
        if (bFirst)
            m_actions.Bind(box.eBrowse, this, [this, eRole = box.eRole] { Browse(eRole); });
}

QVector<ISelectable*> CVariableToolBar::GetSubjects() const
{
    return SActivePair().GetSubjects(m_actions.Get(ActionApplyToChildren)->isChecked());
}

void CVariableToolBar::ShowActiveSimulation()
{
    const SActivePair pair;
    const QVector<ISelectable*> subjects = GetSubjects();
    for (const SBox& box : std::as_const(m_boxes)) {
        const QSignalBlocker showing(box.pCombo);
        ShowNames(*box.pCombo, pair.pSimulation
                                   ? VariableChoice::ListNames(pair.pSimulation->GetId(), box.eRole)
                                   : QStringList());
        box.pCombo->setEditText(pair.pSimulation ? VariableChoice::CommonName(subjects, box.eRole)
                                                 : "No Simulation");
        box.pCombo->lineEdit()->setPlaceholderText(subjects.isEmpty() ? "Nothing selected" : "");
        box.pCombo->lineEdit()->setCursorPosition(0);
        box.pCombo->setEnabled(!subjects.isEmpty());
    }
    if (m_pMinimum)
        ShowThresholdRange();
}

void CVariableToolBar::ShowThresholdRange()
{
    QVector<ISelectable*> subjects = GetSubjects();
    subjects.erase(std::remove_if(subjects.begin(), subjects.end(),
                                  [](const ISelectable* p) { return !p->thresholdEnable(); }),
                   subjects.end());
    const QPointF range = subjects.isEmpty() ? QPointF() : subjects.first()->thresholdRange();
    const bool bSame = std::all_of(subjects.begin(), subjects.end(),
                                   [&](const ISelectable* p) { return p->thresholdRange() == range; });
    const auto show = [&](QLineEdit* pBox, double dValue) {
        const QSignalBlocker showing(pBox);
        pBox->setText(!subjects.isEmpty() && bSame ? QString::number(dValue, 'g', RANGE_DIGITS) : "");
        pBox->setPlaceholderText(bSame ? "" : MULTIPLE);
        pBox->setModified(false);
        pBox->setEnabled(!subjects.isEmpty());
    };
    show(m_pMinimum, range.x());
    show(m_pMaximum, range.y());
}

void CVariableToolBar::Edit(const std::function<void(const QVector<ISelectable*>&)>& edit)
{
    const SActivePair pair;
    const QVector<ISelectable*> subjects = GetSubjects();
    if (subjects.isEmpty())
        return;
    const CWaitCursor wait; // the range of a variable may have to be read
    {
        const CUndoStep step(pair.pSimulation->GetId());
        edit(subjects);
    }
    for (ISelectable* const pSubject : subjects)
        CSelectableManager::Instance().NotifyUpdated(pSubject);
    CWidgetManager::Instance().UpdateActiveViewer();
    ShowActiveSimulation();
}

void CVariableToolBar::Enter(VariableRole_e eRole)
{
    const auto box = std::find_if(m_boxes.cbegin(), m_boxes.cend(),
                                  [eRole](const SBox& candidate) { return candidate.eRole == eRole; });
    const ISimulation* const pSimulation = CWidgetManager::Instance().GetActiveSimulation();
    if (box == m_boxes.cend() || !pSimulation)
        return;
    const QString sName = box->pCombo->currentText().trimmed();
    if (sName == MULTIPLE)
        return;
    const qint64 nId = VariableChoice::Find(pSimulation->GetId(), sName, eRole);
    if (nId == NO_ID && !sName.isEmpty()) {
        ShowActiveSimulation();
        UserPrompt::Tell(PromptWarning, "Invalid Value", VariableChoice::InvalidText(eRole));
        return;
    }
    Edit([&](const QVector<ISelectable*>& subjects) { VariableChoice::Show(subjects, eRole, nId); });
    LeaveKeysToView();
}

void CVariableToolBar::SlotOnScalarFunctionEntered() { Enter(RoleScalar); }
void CVariableToolBar::SlotOnVectorFunctionEntered() { Enter(RoleVector); }
void CVariableToolBar::SlotOnThresholdFunctionEntered() { Enter(RoleThreshold); }

void CVariableToolBar::SlotOnThresholdRangeEntered()
{
    if (!m_pMinimum->isModified() && !m_pMaximum->isModified())
        return; // the focus has only gone through
    bool bMinimum = false, bMaximum = false;
    const QPointF range(m_pMinimum->text().toDouble(&bMinimum), m_pMaximum->text().toDouble(&bMaximum));
    if (!bMinimum || !bMaximum)
        return; // the other end of a mixed range is still to come
    if (range.x() > range.y()) {
        CWidgetManager::Instance().SetStatusText("The minimum of a threshold can't lie above its maximum");
        ShowThresholdRange();
        return;
    }
    Edit([&](const QVector<ISelectable*>& subjects) {
        for (ISelectable* const pSubject : subjects)
            if (pSubject->thresholdEnable())
                pSubject->setThresholdRange(range);
    });
}

void CVariableToolBar::Browse(VariableRole_e eRole)
{
    const qint64 nCurrent = VariableChoice::CommonId(GetSubjects(), eRole);
    const qint64 nChosen = m_browser(eRole == RoleVector ? KindVector : KindScalar, nCurrent);
    if (nChosen != nCurrent)
        Edit([&](const QVector<ISelectable*>& subjects) { VariableChoice::Show(subjects, eRole, nChosen); });
}
