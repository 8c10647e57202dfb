#pragma once

#include "scene/imouseclickreceiver.h"

#include <QDockWidget>
#include <QVector>

/**
 * Base class of every dock. The main window connects each: SignalCloseExcept goes back to all docks, so
 * that one that opens closes those that don't go with it; SignalMouseClickReceiver hands it the clicks of
 * the views while it picks. The hooks do nothing here.
 */
class CDockWidget : public QDockWidget, public IMouseClickReceiver
{
    Q_OBJECT

public:
    using QDockWidget::QDockWidget;

    void PointPicked(DVector3D, IVector3D, ISelectable*) override {}
    void PickEnded() override {}

signals:
    void SignalCloseExcept(QWidget* pRequestingWidget);
    void SignalMouseClickReceiver(IMouseClickReceiver* pMouseClickReceiver);

public slots:
    /** Closes the dock unless it is the requester or goes with it. */
    virtual void SlotCloseExcept(QWidget* pRequestingWidget);
    virtual void SlotSelectableDoubleClicked(ISelectable*) {}
    virtual void SlotSelectableDoubleClicked(QVector<ISelectable*>) {}
    virtual void Check(QVector<ISelectable*>) {}
    virtual void SlotSelectableDeleted(ISelectable*) {}
    virtual void SlotSelectableChanged(ISelectable*) {}
    virtual void SlotRefreshAll() {}

protected:
    /** Whether the dock may stay open beside the one that opens. */
    virtual bool GoesWith(QWidget*) const { return false; }
};
