#pragma once

#include <QToolBar>

class CWindowActions;
class QComboBox;
class QLabel;

/**
 * A toolbar that names the variables with which the selected items are shown. Without a case its boxes say
 * so. The "Analyze Toolbar" has the scalar and the vector, the "Threshold Toolbar" the threshold variable
 * and its range.
 */
class CVariableToolBar : public QToolBar
{
    Q_OBJECT

public:
    static CVariableToolBar* MakeAnalyzeToolBar(CWindowActions& actions, QWidget* pParent);
    static CVariableToolBar* MakeThresholdToolBar(CWindowActions& actions, QWidget* pParent);

    void ShowActiveSimulation();

private:
    using QToolBar::QToolBar;
    void AddVariableBox(const QString& sLabel, QAction* pBrowse);

    QVector<QComboBox*> m_boxes;
};
