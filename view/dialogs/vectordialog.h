#pragma once

#include "simulation/undostep.h"

#include <QDialog>
#include <QVector>

#include <memory>
#include <optional>

class ISelectable;

namespace Ui {
class CVectorDialog;
}

/** How the vectors of the selected items of a view are drawn. Each edit shows at once. */
class CVectorDialog : public QDialog
{
    Q_OBJECT

public:
    CVectorDialog(qint64 nSimulationId, qint64 nViewId, QWidget* pParent = nullptr);
    ~CVectorDialog() override;

    void done(int nResult) override;

private slots:
    void on_m_pPlaneCB_currentIndexChanged(int index);
    void on_m_pHeadScaleE_valueChanged(double arg1);
    void on_m_pBodyScaleE_valueChanged(double arg1);
    void on_m_pSkipE_valueChanged(int arg1);
    void on_m_pCloseB_clicked();

private:
    void Fill();
    template <class Member, class Value> void Store(Member member, Value value);

    const qint64 m_nSimulationId;
    const std::unique_ptr<Ui::CVectorDialog> m_pUi;
    QVector<ISelectable*> m_items;
    bool m_bFilling = false;
    std::optional<CUndoStep> m_step; // until it is closed
};
