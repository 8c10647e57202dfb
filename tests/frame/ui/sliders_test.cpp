#include "frame/ui/sliders/rangecurrentslider.h"
#include "frame/ui/sliders/singleslider.h"
#include "frame/ui/sliders/sliderwithvalue.h"

#include <QLineEdit>

namespace {

/** Presses at a handle, moves to a handle's place or by pixels, and lets go. */
void Drag(CMultipleHandleSlider& slider, int nHandle, const QPoint& target)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, slider.GetHandlePoint(nHandle));
    QMouseEvent move(QEvent::MouseMove, target, Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&slider, &move);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, target);
}

} // namespace

TEST(Sliders, TheEndsOfARangeStopAtEachOther)
{
    CRangeSlider slider;
    slider.resize(220, 24);
    slider.SetRange(0.0, 100.0);
    slider.SetValues(20.0, 60.0);
    QSignalSpy minimum(&slider, &CRangeSlider::MinValueChanged),
        released(&slider, &CRangeSlider::HandleReleased);
    Drag(slider, 0, {215, 12});
    EXPECT_EQ(slider.GetMinValue(), 60.0);
    EXPECT_EQ(minimum.takeLast()[0].toDouble(), 60.0);
    EXPECT_EQ(released.takeLast()[0].toLongLong(), 0);
    slider.SetValues(100.0, 100.0); // the one on top can't go on: the other one is taken
    Drag(slider, 1, {110, 12});
    EXPECT_LT(slider.GetMinValue(), 60.0);
    EXPECT_EQ(slider.GetMaxValue(), 100.0);
    slider.SetValues(70.0, 30.0);
    EXPECT_EQ(slider.GetMaxValue(), 70.0);
}

TEST(Sliders, TheEndsPushTheCurrentValueAlong)
{
    CRangeCurrentSlider slider;
    slider.resize(220, 24);
    slider.SetRange(0.0, 10.0);
    slider.SetValues(0.0, 10.0);
    slider.SetCurrentValue(3.0);
    QSignalSpy current(&slider, &CRangeCurrentSlider::CurValueChanged);
    Drag(slider, 0, {110, 12});
    EXPECT_NEAR(slider.GetMinValue(), 5.0, 0.2);
    EXPECT_EQ(slider.GetCurrentValue(), slider.GetMinValue());
    EXPECT_EQ(current.count(), 1);
}

TEST(Sliders, KeysMoveTheHandleOfTheFocus)
{
    CRangeSlider slider;
    slider.SetRange(0.0, 100.0);
    slider.SetValues(10.0, 90.0);
    QSignalSpy changed(&slider, &CRangeSlider::HandleChanged),
        released(&slider, &CRangeSlider::HandleReleased);
    const auto Press = [&](int nKey) { QTest::keyClick(&slider, Qt::Key(nKey)); };
    Press(Qt::Key_Right);
    EXPECT_EQ(slider.GetMinValue(), 11.0);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(slider.GetMinValue(), 21.0);
    Press(Qt::Key_Home);
    EXPECT_EQ(slider.GetMinValue(), 0.0);
    EXPECT_EQ(changed.count(), 3);
    EXPECT_EQ(released.count(), 3);
}

TEST(Sliders, StepsSnapOnlyWhereThatIsAsked)
{
    CSingleSlider slider;
    slider.resize(220, 24);
    slider.SetRange(1.0, 5.0);
    slider.SetStep(1.0, true);
    QTest::mousePress(&slider, Qt::LeftButton, {}, {120, 12});
    EXPECT_EQ(slider.GetValue(), 3.0);
    slider.SetValue(std::nan(""));
    EXPECT_EQ(slider.GetValue(), 3.0);
    slider.SetRange(4.0, 5.0);
    EXPECT_EQ(slider.GetValue(), 4.0);
}

TEST(Sliders, ATypedValueIsLimitedAndSentOnce)
{
    CSliderWithValue slider;
    slider.SetRange(0.0, 1.0);
    slider.SetValue(0.123456789);
    QSignalSpy changed(&slider, &CSliderWithValue::Changed);
    auto* const pBox = slider.findChild<QLineEdit*>();
    QTest::keyClick(pBox, Qt::Key_Return); // no edit: no rounding to what is shown
    EXPECT_EQ(slider.GetValue(), 0.123456789);
    pBox->setText("7");
    QTest::keyClick(pBox, Qt::Key_Return);
    EXPECT_EQ(slider.GetValue(), 1.0);
    EXPECT_EQ(pBox->text(), "1");
    pBox->setText("x");
    QTest::keyClick(pBox, Qt::Key_Return);
    EXPECT_EQ(pBox->text(), "1");
    EXPECT_EQ(changed.count(), 1);
}
