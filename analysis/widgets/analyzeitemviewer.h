#pragma once

#include "view/iviewer.h"

#include <QWidget>

#include <memory>

namespace Ui {
class CAnalyzeItemViewer;
}

/**
 * A view of an analysis item: a head line around the item's chart or table. "Analyze" stands in the head
 * line while it has none. A view index in its signals is its id.
 */
class CAnalyzeItemViewer : public QWidget, public IViewer
{
    Q_OBJECT

public:
    explicit CAnalyzeItemViewer(qint64 nViewId, QWidget* pParent = nullptr);
    ~CAnalyzeItemViewer() override;

    QWidget* GetWidget() override { return this; }
    qint64 GetViewId() const override { return m_nViewId; }
    void SetActive(bool bActive) override;
    void SetExpanded(bool bExpanded) override;
    void SetExpandable(bool bExpandable) override;
    void Refresh() override { update(); }

signals:
    void SignalSplit(qlonglong nViewIndex, Qt::Orientation eOrientation, ViewSplit_e eSplit, qlonglong nType);
    void SignalSplit(qlonglong nViewIndex, Qt::Orientation eOrientation, ViewSplit_e eSplit);
    void SignalExpand(qlonglong nViewIndex, bool bExpand);
    void SignalActivated(qlonglong nViewIndex);
    void SignalClose(qlonglong nViewIndex);
    void SignalAnalyzeItemLoaded(qlonglong nViewIndex, qlonglong nAnalyzeItemId);

protected:
    void mousePressEvent(QMouseEvent* pEvent) override;

private slots:
    void on_m_pExpandViewB_clicked();
    void on_m_pCloseViewB_clicked();
    void on_actionHEmpty_triggered();
    void on_actionVEmpty_triggered();

private:
    const qint64 m_nViewId;
    const std::unique_ptr<Ui::CAnalyzeItemViewer> m_pUi;
};
