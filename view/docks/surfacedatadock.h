#pragma once

#include "scene/imimedata.h"
#include "simulation/panel/dockwidget.h"
#include "view/selectables/surfacegroup.h"

#include <memory>

class QSlider;
class QSpinBox;

namespace Ui {
class CSurfaceDataDock;
}

/**
 * Edits the index plane and the display of surfaces, several at once. It follows the surfaces by the signals
 * of CSelectableManager. A drag of a slider is one step of undo.
 */
class CSurfaceDataDock : public CDockWidget, public IMimeDataHandler
{
    Q_OBJECT

public:
    explicit CSurfaceDataDock(QWidget* pParent = nullptr);
    ~CSurfaceDataDock() override;

    bool CanDrop(const QMimeData* pData) const override;
    void Drop(const QPoint& position, const QMimeData* pData) override;

    /** Shows these surfaces; what can't be edited here is left out. */
    void SetSelectables(const QVector<ISelectable*>& selectables);
    const CSurfaceGroup& GetGroup() const { return m_group; }

public slots:
    void SlotSelectableDoubleClicked(ISelectable* pSelectable) override;
    void SlotSelectableDoubleClicked(QVector<ISelectable*> pSelectableList) override;
    void SlotSelectableDeleted(ISelectable* pSelectable) override;
    void SlotSelectableChanged(ISelectable* pSelectable) override;
    void SlotSelectableDisplayOnNodes(ISelectable* pSelectable);
    void SlotRefreshAll() override;
    // Sliders.
    void SlotMMinChanged(int nValue);
    void SlotMMaxChanged(int nValue);
    void SlotNMinChanged(int nValue);
    void SlotNMaxChanged(int nValue);
    void SlotConstValueChanged(int nValue);
    void SlotTransparencyChanged(int nPercent);
    void SlotTransparencySliderReleased();

protected:
    void hideEvent(QHideEvent* pEvent) override;

private slots:
    void on_m_pConstDirectionCB_currentIndexChanged(int nIndex);
    void on_m_pConstValueE_valueChanged(int nValue);
    void on_m_pMDirectionStartE_valueChanged(int nValue);
    void on_m_pMDirectionEndE_valueChanged(int nValue);
    void on_m_pNDirectionStartE_valueChanged(int nValue);
    void on_m_pNDirectionEndE_valueChanged(int nValue);
    void on_m_pDisplayOnCB_currentIndexChanged(int nIndex);
    void on_m_pLineThicknessSurfaceE_valueChanged(double dValue);
    void on_m_pContoursE_valueChanged(int nValue);
    void on_m_pColormapB_clicked();
    void on_m_pCloseB_clicked();

private:
    QVector<ISelectable*> Droppable(const QMimeData* pData) const;
    void ConnectSelectables();
    void ConnectSlider(QSlider* pSlider, void (CSurfaceDataDock::*slot)(int));
    void BeginDrag();
    void EndDrag();

    void Fill();
    void FillPlane();
    void FillRange(int nOffset, QSlider* pMin, QSlider* pMax, QSpinBox* pStart, QSpinBox* pEnd);
    void FillDisplay();
    /** Does an edit of the user, unless the dock is filling itself. */
    template <class Edit> void Do(const Edit& edit);
    void SetStart(int nOffset, int nValue);
    void SetEnd(int nOffset, int nValue);

    const std::unique_ptr<Ui::CSurfaceDataDock> m_pUi;
    CSurfaceGroup m_group;
    bool m_bFilling = false;     // widgets take values, or an edit is on its way: neither is an edit
    bool m_bFillPending = false; // something has changed; it is read when the event loop runs
    qint64 m_nDraggedCase = -1;  // whose step of undo is open while a slider is dragged
};
