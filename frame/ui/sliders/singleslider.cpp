#include "frame/ui/sliders/singleslider.h"

CSingleSlider::CSingleSlider(QWidget* pParent) : CMultipleHandleSlider(pParent)
{
    AddHandle(CSliderHandle(0.0));
    connect(this, &CMultipleHandleSlider::HandleChanged, this, [this] { emit Changed(GetValue()); });
}
