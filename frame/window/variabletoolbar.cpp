#include "frame/window/variabletoolbar.h"

#include "frame/widgetmanager.h"
#include "frame/window/windowactions.h"

#include <QComboBox>
#include <QDoubleValidator>
#include <QLabel>
#include <QLineEdit>

namespace {

/** One end of the range; grey as long as no item has a threshold. */
QLineEdit* MakeRangeBox(const QString& sToolTip)
{
    auto* const pBox = new QLineEdit;
    pBox->setValidator(new QDoubleValidator(pBox));
    pBox->setToolTip(sToolTip);
    pBox->setAccessibleName(sToolTip);
    pBox->setMaximumWidth(pBox->fontMetrics().horizontalAdvance("-0.000000e-00"));
    pBox->setEnabled(false);
    return pBox;
}

} // namespace

void CVariableToolBar::AddVariableBox(const QString& sLabel, QAction* pBrowse)
{
    auto* const pBox = new QComboBox;
    pBox->setMinimumContentsLength(16);
    pBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    pBox->setAccessibleName(sLabel.trimmed().remove(':'));
    pBox->setEnabled(false);
    addWidget(new QLabel(sLabel));
    addWidget(pBox);
    addAction(pBrowse);
    m_boxes.append(pBox);
}

CVariableToolBar* CVariableToolBar::MakeAnalyzeToolBar(CWindowActions& actions, QWidget* pParent)
{
    auto* const pToolBar = new CVariableToolBar("Analyze Toolbar", pParent);
    pToolBar->AddVariableBox("Scalar: ", actions.Get(ActionBrowseScalar));
    pToolBar->AddVariableBox(" Vector: ", actions.Get(ActionBrowseVector));
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
    auto* const pToolBar = new CVariableToolBar("Threshold Toolbar", pParent);
    pToolBar->AddVariableBox("Threshold: ", actions.Get(ActionBrowseThreshold));
    pToolBar->addWidget(MakeRangeBox("Threshold minimum"));
    pToolBar->addWidget(MakeRangeBox("Threshold maximum"));
    return pToolBar;
}

void CVariableToolBar::ShowActiveSimulation()
{
    const QString sText = CWidgetManager::Instance().GetActiveSimulation() ? "" : "No Simulation";
    for (QComboBox* const pBox : std::as_const(m_boxes)) {
        pBox->clear();
        pBox->addItem(sText);
    }
}
