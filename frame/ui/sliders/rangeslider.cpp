#include "frame/ui/sliders/rangeslider.h"

CRangeSlider::CRangeSlider(QWidget* pParent) : CRangeSlider(SNoHandles(), pParent)
{
    AddHandle(CSliderHandle(0.0, HandleLeftEnd));
    AddHandle(CSliderHandle(1.0, HandleRightEnd));
}

CRangeSlider::CRangeSlider(SNoHandles, QWidget* pParent) : CMultipleHandleSlider(pParent)
{
    connect(this, &CMultipleHandleSlider::HandleChanged, this,
            [this](qlonglong nHandle) { OnHandleChanged(int(nHandle)); });
}

// The maximum goes out of the way first, so that neither value depends on where the handles were.
void CRangeSlider::SetValues(double dMinimum, double dMaximum)
{
    const int nLast = GetHandleCount() - 1;
    SetHandleValue(nLast, GetMaximum());
    SetHandleValue(0, dMinimum);
    SetHandleValue(nLast, dMaximum);
}

void CRangeSlider::OnHandleChanged(int nHandle)
{
    if (nHandle == 0)
        emit MinValueChanged(GetMinValue());
    else if (nHandle == GetHandleCount() - 1)
        emit MaxValueChanged(GetMaxValue());
}
