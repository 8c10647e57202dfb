#pragma once

/** How a handle looks. */
enum SliderHandleShape_e { HandleBlock, HandleLeftEnd, HandleRightEnd };

/** One handle of a slider: its value, and how it gets along with its neighbours. */
class CSliderHandle
{
public:
    explicit CSliderHandle(double dValue, SliderHandleShape_e eShape = HandleBlock, bool bPushed = false)
        : m_dValue(dValue), m_eShape(eShape), m_bPushed(bPushed)
    {}

    double GetValue() const { return m_dValue; }
    void SetValue(double dValue) { m_dValue = dValue; }
    SliderHandleShape_e GetShape() const { return m_eShape; }
    /** A neighbour that comes its way moves it along; otherwise the neighbour stops there. */
    bool IsPushed() const { return m_bPushed; }

private:
    double m_dValue;
    SliderHandleShape_e m_eShape;
    bool m_bPushed;
};
