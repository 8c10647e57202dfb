#pragma once

#include "data/variables/ivariable.h"

#include <QDialog>

#include <memory>

class QTreeWidgetItem;

namespace Ui {
class CExpressionDialog;
}

/** A formula over the variables of a case: name, text, and what it may refer to. */
class CExpressionDialog : public QDialog
{
    Q_OBJECT

public:
    explicit CExpressionDialog(QWidget* pParent = nullptr);
    ~CExpressionDialog() override;

    /**
     * Shows the dialog until the user closes it.
     *
     * @param eLocation    variables of this location and constants may be referred to
     * @param nVariableId  -1: a new variable is made
     * @param bReadOnly    the formula can only be read
     * @return true if the variable was made or changed; its id is in GetVariableId
     */
    bool Open(qint64 nSimulationId, VariableLocation_e eLocation, qint64 nVariableId, bool bReadOnly);
    /** Fills it as Open does, without showing it. */
    void Load(qint64 nSimulationId, VariableLocation_e eLocation, qint64 nVariableId, bool bReadOnly);

    qint64 GetVariableId() const { return m_nVariableId; }

private slots:
    void on_m_pInputTree_itemActivated(QTreeWidgetItem* pItem);
    void on_m_pSimulationCompareCB_toggled(bool checked);
    void on_m_pTimeCompareCB_toggled(bool checked);
    void on_m_pExpressionT_textChanged();
    void on_m_pOKB_clicked();
    void on_m_pCancelB_clicked();

private:
    /** How references are written at the moment. */
    struct SForm
    {
        bool bSimulations = false;
        bool bTimes = false;
    };
    SForm Form() const;

    void ConnectPad();
    void SetReadOnly();
    /** @param nBack  how many places the cursor goes back afterwards */
    void Insert(const QString& sText, int nBack = 0);
    void FillInputs();
    void AddInputs(qint64 nSimulationId);
    bool MayReferTo(const IVariable& variable) const;
    void ChangeForm(const SForm& former);
    QString FindFault() const;
    void ShowFault();
    void StoreVariable(const QString& sName);

    const std::unique_ptr<Ui::CExpressionDialog> m_pUi;
    qint64 m_nSimulationId = -1;
    VariableLocation_e m_eLocation = LocationNode;
    qint64 m_nVariableId = -1;
    QVector<qint64> m_scope; // what a reference may name
    bool m_bFilling = false;
};
