#pragma once

#include "frame/ui/sliders/multiplehandleslider.h"

/** A slider for a range: one handle for its minimum, one for its maximum. */
class CRangeSlider : public CMultipleHandleSlider
{
    Q_OBJECT

public:
    explicit CRangeSlider(QWidget* pParent = nullptr);

    /** No signal. A maximum below the minimum counts as it. */
    void SetValues(double dMinimum, double dMaximum);
    double GetMinValue() const { return GetHandleValue(0); }
    double GetMaxValue() const { return GetHandleValue(GetHandleCount() - 1); }

signals:
    void MinValueChanged(double dValue);
    void MaxValueChanged(double dValue);

protected:
    /** For sliders with handles between the two. */
    struct SNoHandles
    {};
    CRangeSlider(SNoHandles, QWidget* pParent);
    virtual void OnHandleChanged(int nHandle);
};
