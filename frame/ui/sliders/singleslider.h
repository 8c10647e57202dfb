#pragma once

#include "frame/ui/sliders/multiplehandleslider.h"

/** A slider with one handle. */
class CSingleSlider : public CMultipleHandleSlider
{
    Q_OBJECT

public:
    explicit CSingleSlider(QWidget* pParent = nullptr);

    /** Limited to the range; no signal. */
    void SetValue(double dValue) { SetHandleValue(0, dValue); }
    double GetValue() const { return GetHandleValue(0); }

signals:
    void Changed(double dValue);
};
