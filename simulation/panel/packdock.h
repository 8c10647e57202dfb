#pragma once

#include "frame/packs/packkey.h"
#include "frame/ui/commonfields.h"
#include "scene/imimedata.h"
#include "simulation/item.h"
#include "simulation/panel/dockwidget.h"
#include "simulation/undostep.h"

#include <functional>

class QSlider;

/**
 * Base of the docks that edit what is selected, several selectables of one case at once. It opens with what
 * is double-clicked, takes more by drops, follows changes and closes with the last one. A derived class says
 * what it can edit, fills its widgets and stores what they hold.
 */
class CPackDock : public CDockWidget, public IMimeDataHandler
{
    Q_OBJECT

public:
    using CDockWidget::CDockWidget;

    bool CanDrop(const QMimeData* pData) const override;
    /** What is dropped joins what is on show. */
    void Drop(const QPoint& position, const QMimeData* pData) override;

    /** Shows these; what can't be edited here, or is of another case than the first, is left out. */
    void SetSelectables(const QVector<ISelectable*>& selectables);
    const QVector<ISelectable*>& GetSelectables() const { return m_selectables; }

public slots:
    void SlotSelectableDoubleClicked(ISelectable* pSelectable) override;
    void SlotSelectableDoubleClicked(QVector<ISelectable*> pSelectableList) override;
    void SlotSelectableDeleted(ISelectable* pSelectable) override;
    void SlotSelectableChanged(ISelectable* pSelectable) override;
    void SlotRefreshAll() override { FillNow(); }

protected:
    virtual bool CanEdit(const ISelectable& selectable) const = 0;
    /** Shows in the widgets what there is. Their signals count as no edit meanwhile. */
    virtual void Fill() = 0;

    void FillNow();
    qint64 CaseId() const; ///< of what is on show; -1 for nothing
    /** An edit of the user, one step of undo; false, and nothing is done, while the dock fills itself. */
    bool Edit(const std::function<void()>& edit);
    /** A drag of the slider is one step. */
    void ConnectDrag(QSlider* pSlider);

    /** A setting of the items on show, in a field. */
    template <class T, class Field> void Show(Field* pField, const SKey<T>& key) const
    {
        CommonFields::Show(pField, CommonValue(Items(), [&](const CItem& item) { return Get(item, key); }));
    }
    /** What the user has put into the field becomes the setting of all of them, in one step. */
    template <class T, class Field> void Store(const Field* pField, const SKey<T>& key)
    {
        if (const auto value = CommonFields::Of(pField))
            EditItems([&](CItem& item) { Set(item, key, *value); });
    }

    void showEvent(QShowEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;

private:
    QVector<ISelectable*> Droppable(const QMimeData* pData) const;
    QVector<CItem*> Items() const;
    void EditItems(const std::function<void(CItem&)>& edit);

    QVector<ISelectable*> m_selectables; // of one case
    std::optional<CUndoStep> m_drag;     // while a slider is dragged
    bool m_bFilling = false;             // widgets take values, or an edit is on its way: neither is an edit
    bool m_bFillPending = false;         // something has changed; it is read when the event loop runs
};
