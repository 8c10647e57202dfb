#pragma once

#include <QWidget>

class CSingleSlider;
class QLineEdit;

/** A slider with one handle, and a box beside it that shows its value and takes one. */
class CSliderWithValue : public QWidget
{
    Q_OBJECT

public:
    explicit CSliderWithValue(QWidget* pParent = nullptr);

    void SetRange(double dMinimum, double dMaximum);
    void SetStep(double dStep, bool bSnap);
    /** Limited to the range; no signal. */
    void SetValue(double dValue);
    double GetValue() const;

signals:
    void Changed(double dValue);
    void HandleChanged(qlonglong nHandle);
    /** Also after a value was typed. */
    void HandleReleased(qlonglong nHandle);

private:
    void ShowValue();
    void TakeText();

    CSingleSlider* m_pSlider;
    QLineEdit* m_pValueE;
};
