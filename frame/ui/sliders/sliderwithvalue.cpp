#include "frame/ui/sliders/sliderwithvalue.h"

#include "frame/ui/sliders/singleslider.h"

#include <QHBoxLayout>
#include <QLineEdit>

CSliderWithValue::CSliderWithValue(QWidget* pParent)
    : QWidget(pParent), m_pSlider(new CSingleSlider(this)), m_pValueE(new QLineEdit(this))
{
    auto* const pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pSlider, 1);
    pLayout->addWidget(m_pValueE);
    m_pValueE->setMaximumWidth(m_pValueE->fontMetrics().horizontalAdvance("-0.000000e-000"));
    m_pValueE->setObjectName("m_pValueE");
    m_pValueE->setAccessibleName("Value");
    setFocusProxy(m_pSlider);
    ShowValue();
    connect(m_pSlider, &CSingleSlider::Changed, this, [this](double dValue) {
        ShowValue();
        emit Changed(dValue);
    });
    connect(m_pSlider, &CSingleSlider::HandleChanged, this, &CSliderWithValue::HandleChanged);
    connect(m_pSlider, &CSingleSlider::HandleReleased, this, &CSliderWithValue::HandleReleased);
    connect(m_pValueE, &QLineEdit::editingFinished, this, &CSliderWithValue::TakeText);
}

void CSliderWithValue::SetRange(double dMinimum, double dMaximum)
{
    m_pSlider->SetRange(dMinimum, dMaximum);
    ShowValue();
}

void CSliderWithValue::SetStep(double dStep, bool bSnap) { m_pSlider->SetStep(dStep, bSnap); }

void CSliderWithValue::SetValue(double dValue)
{
    m_pSlider->SetValue(dValue);
    ShowValue();
}

double CSliderWithValue::GetValue() const { return m_pSlider->GetValue(); }

void CSliderWithValue::ShowValue() { m_pValueE->setText(QString::number(GetValue(), 'g', 6)); }

/** What is no number is shown as the value again. */
void CSliderWithValue::TakeText()
{
    bool bOk = false;
    const double dValue = m_pValueE->text().toDouble(&bOk);
    // Leaving the box without a change must not round the value to the digits on show.
    if (!bOk || m_pValueE->text() == QString::number(GetValue(), 'g', 6)) {
        ShowValue();
        return;
    }
    const double dBefore = GetValue();
    SetValue(dValue);
    if (GetValue() == dBefore)
        return;
    emit Changed(GetValue());
    emit HandleChanged(0);
    emit HandleReleased(0);
}
