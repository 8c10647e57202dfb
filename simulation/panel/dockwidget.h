#pragma once

#include "scene/imouseclickreceiver.h"

#include <QDockWidget>
#include <QVector>

/**
 * Base class of every dock. The main window connects each: SignalCloseExcept goes back to all docks, so
 * that one that opens closes those that don't go with it; SignalMouseClickReceiver hands it the clicks of
 * the views while it picks. What selectables tell comes from there too; of changes only what is on show
 * hears. The hooks do nothing here.
 *
 * A dock that is an IMimeDataHandler too gets what is dragged over it and dropped on it.
 */
class CDockWidget : public QDockWidget, public IMouseClickReceiver
{
    Q_OBJECT

public:
    using QDockWidget::QDockWidget;
    ~CDockWidget() override;

    void PointPicked(DVector3D, IVector3D, ISelectable*) override {}
    /** The views have taken their clicks back. One that overrides it calls this one too. */
    void PickEnded() override { m_bPicking = false; }
    bool IsPicking() const { return m_bPicking; }

signals:
    /** The dock has been opened. */
    void SignalCloseExcept(QWidget* pRequestingWidget);
    /** The dock takes over the clicks of the views; null: it gives them back. */
    void SignalMouseClickReceiver(IMouseClickReceiver* pMouseClickReceiver);

public slots:
    /** Closes the dock unless it is the requester or goes with it. */
    virtual void SlotCloseExcept(QWidget* pRequestingWidget);
    virtual void SlotSelectableDoubleClicked(ISelectable*) {}
    virtual void SlotSelectableDoubleClicked(QVector<ISelectable*>) {}
    virtual void Check(QVector<ISelectable*>) {}
    virtual void SlotSelectableDeleted(ISelectable*) {}
    virtual void SlotSelectableChanged(ISelectable*) {}
    virtual void SlotSelectableDisplayOnNodes(ISelectable* pSelectable)
    {
        SlotSelectableChanged(pSelectable);
    }
    /** Variables have come or gone. */
    virtual void SlotRefreshRelativeLists() {}
    virtual void SlotRefreshAll() {}

protected:
    /** Whether the dock may stay open beside the one that opens. */
    virtual bool GoesWith(QWidget*) const { return false; }

    /** Takes over the clicks of the views until EndPick, or until the dock is hidden. */
    void BeginPick();
    void EndPick();

    bool event(QEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dragMoveEvent(QDragMoveEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;

private:
    bool m_bPicking = false; // has the clicks of the views
};
