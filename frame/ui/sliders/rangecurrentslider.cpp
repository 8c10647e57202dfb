#include "frame/ui/sliders/rangecurrentslider.h"

CRangeCurrentSlider::CRangeCurrentSlider(QWidget* pParent) : CRangeSlider(SNoHandles(), pParent)
{
    AddHandle(CSliderHandle(0.0, HandleLeftEnd));
    AddHandle(CSliderHandle(0.0, HandleBlock, true));
    AddHandle(CSliderHandle(1.0, HandleRightEnd));
}

void CRangeCurrentSlider::OnHandleChanged(int nHandle)
{
    if (nHandle == CURRENT)
        emit CurValueChanged(GetCurrentValue());
    else
        CRangeSlider::OnHandleChanged(nHandle);
}
