#pragma once

#include "data/variables/ivariable.h"

#include <QDialog>

#include <memory>
#include <optional>

class CVariableTreeItem;
class QTreeWidgetItem;

namespace Ui {
class CVariableDialog;
}

/** Which buttons the list of variables has. */
enum VariableFace_e {
    FaceManager, ///< variables are made, changed and deleted
    FacePicker,  ///< one is chosen
};

/** The variables of a case: to look after them, or to choose one. */
class CVariableDialog : public QDialog
{
    Q_OBJECT

public:
    /** @param kind  only variables of this kind are listed; nothing: all */
    CVariableDialog(qint64 nSimulationId, VariableFace_e eFace,
                    std::optional<VariableKind_e> kind = std::nullopt, QWidget* pParent = nullptr);
    ~CVariableDialog() override;

    /**
     * Lets the user choose a variable.
     *
     * @param nCurrentId  the one that is selected at first
     * @param bNone       offers "None"
     * @return the id, -1 for "None"; nothing if the user cancelled
     */
    static std::optional<qint64> Choose(qint64 nSimulationId, VariableKind_e eKind, qint64 nCurrentId,
                                        bool bNone, QWidget* pParent);

    /** Adds the button "None", which accepts with no variable. */
    void OfferNone();
    /** Selects the variable's row. */
    void SetVariableId(qint64 nId);
    /** The variable that was chosen; -1 for none. Good after the dialog was accepted. */
    qint64 GetVariableId() const { return m_nChosenId; }

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private slots:
    void on_m_pFilterE_textChanged(QString arg1);
    void on_m_pVariableTree_itemSelectionChanged();
    void on_m_pVariableTree_itemDoubleClicked();
    void on_m_pCreateB_clicked();
    void on_m_pEditB_clicked();
    void on_m_pDeleteB_clicked();
    void on_m_pNoneB_clicked();
    void on_m_pOKB_clicked();
    void on_m_pCancelB_clicked();
    void on_m_pCloseB_clicked();

private:
    void ShowFace();
    void Fill();
    void AddRows(QTreeWidgetItem& parent, const QVector<qint64>& ids);
    QVector<CVariableTreeItem*> SelectedRows() const;
    /** Of the selected variable, else of the first one that isn't a constant. */
    VariableLocation_e LocationForNew() const;
    bool Delete(qint64 nId);

    const qint64 m_nSimulationId;
    const VariableFace_e m_eFace;
    const std::optional<VariableKind_e> m_kind;
    const std::unique_ptr<Ui::CVariableDialog> m_pUi;
    qint64 m_nChosenId = -1;
};
