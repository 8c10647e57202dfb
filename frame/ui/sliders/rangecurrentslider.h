#pragma once

#include "frame/ui/sliders/rangeslider.h"

/** A range with a current value inside, which the ends of the range push along. */
class CRangeCurrentSlider : public CRangeSlider
{
    Q_OBJECT

public:
    explicit CRangeCurrentSlider(QWidget* pParent = nullptr);

    /** Stays inside the range; no signal. */
    void SetCurrentValue(double dValue) { SetHandleValue(CURRENT, dValue); }
    double GetCurrentValue() const { return GetHandleValue(CURRENT); }

signals:
    void CurValueChanged(double dValue);

protected:
    void OnHandleChanged(int nHandle) override;

private:
    static constexpr int CURRENT = 1; // its handle
};
