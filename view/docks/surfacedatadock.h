#pragma once

#include "simulation/panel/packdock.h"
#include "view/selectables/surfacegroup.h"

#include <memory>

class QSlider;
class QSpinBox;

namespace Ui {
class CSurfaceDataDock;
}

/** Edits the index plane and the display of surfaces, several at once. A drag of a slider is one step of
 * undo. */
class CSurfaceDataDock : public CPackDock
{
    Q_OBJECT

public:
    explicit CSurfaceDataDock(QWidget* pParent = nullptr);
    ~CSurfaceDataDock() override;

public slots:
    // Sliders.
    void SlotMMinChanged(int nValue);
    void SlotMMaxChanged(int nValue);
    void SlotNMinChanged(int nValue);
    void SlotNMaxChanged(int nValue);
    void SlotConstValueChanged(int nValue);
    void SlotTransparencyChanged(int nPercent);
    void SlotTransparencySliderReleased();

protected:
    bool CanEdit(const ISelectable& selectable) const override { return CSurfaceGroup::CanEdit(selectable); }
    void Fill() override;

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
    void ConnectSlider(QSlider* pSlider, void (CSurfaceDataDock::*slot)(int));
    CSurfaceGroup Group() const { return CSurfaceGroup(GetSelectables()); }
    void FillPlane(const CSurfaceGroup& group);
    void FillRange(const CSurfaceGroup& group, int nOffset, QSlider* pMin, QSlider* pMax, QSpinBox* pStart,
                   QSpinBox* pEnd);
    void FillDisplay(const CSurfaceGroup& group);
    /** Does an edit of the user, with the group. */
    template <class Edits> void Do(const Edits& edits);
    void SetStart(int nOffset, int nValue);
    void SetEnd(int nOffset, int nValue);

    const std::unique_ptr<Ui::CSurfaceDataDock> m_pUi;
};
