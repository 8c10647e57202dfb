#pragma once

#include "data/variables/ivariable.h"
#include "view/variablechoice.h"
#include "window/commands/actionid.h"

#include <QToolBar>

#include <functional>

class CWindowActions;
class QComboBox;
class QLineEdit;

/**
 * A toolbar that names the variables with which the selected items are shown, and takes others: chosen from
 * the list or typed. Without a case its boxes say so. The "Analyze Toolbar" has the scalar and the vector,
 * the "Threshold Toolbar" the threshold variable and its range.
 */
class CVariableToolBar : public QToolBar
{
    Q_OBJECT

public:
    /**
     * Lets the user choose among the variables of the active simulation.
     *
     * @param nCurrent  the one that is shown now; -1 for none
     * @return the variable, -1 for none; nCurrent if the user cancelled
     */
    using Browser = std::function<qint64(VariableKind_e eKind, qint64 nCurrent)>;

    static CVariableToolBar* MakeAnalyzeToolBar(CWindowActions& actions, QWidget* pParent);
    static CVariableToolBar* MakeThresholdToolBar(CWindowActions& actions, QWidget* pParent);

    /** The "Browse" buttons stay grey until there is one. */
    void SetBrowser(const Browser& browser);
    /** Brings all boxes to what the case offers and its selection shows. */
    void ShowActiveSimulation();

public slots:
    void SlotOnScalarFunctionEntered();
    void SlotOnVectorFunctionEntered();
    void SlotOnThresholdFunctionEntered();
    /** Of the two boxes; one that is no number, or a minimum above the maximum, changes nothing. */
    void SlotOnThresholdRangeEntered();

private:
    struct SBox
    {
        VariableRole_e eRole;
        QComboBox* pCombo;
        ActionId_e eBrowse;
    };

    CVariableToolBar(const QString& sTitle, CWindowActions& actions, QWidget* pParent);
    void AddVariableBox(const QString& sLabel, VariableRole_e eRole, ActionId_e eBrowse,
                        void (CVariableToolBar::*slot)());
    QLineEdit* AddRangeBox(const QString& sToolTip);
    QVector<ISelectable*> GetSubjects() const;
    void ShowThresholdRange();
    void Enter(VariableRole_e eRole);
    void Browse(VariableRole_e eRole);
    void Edit(const std::function<void(const QVector<ISelectable*>&)>& edit);

    CWindowActions& m_actions;
    QVector<SBox> m_boxes;
    QLineEdit* m_pMinimum = nullptr; // of the threshold; null in the other toolbar
    QLineEdit* m_pMaximum = nullptr;
    Browser m_browser;
};
