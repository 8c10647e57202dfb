#include "frame/ui/sliders/multiplehandleslider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainterPath>
#include <QToolTip>

#include <cmath>

namespace {
constexpr double STEPS = 100.0;  // of the range, where no step is set
constexpr int PAGE = 10;         // steps
constexpr double GRIP_REACH = 8; // a press so near to a handle doesn't move it [pixels]
} // namespace

CMultipleHandleSlider::CMultipleHandleSlider(QWidget* pParent) : QWidget(pParent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void CMultipleHandleSlider::AddHandle(const CSliderHandle& handle)
{
    m_handles.append(handle);
    SetHandleValue(m_handles.size() - 1, handle.GetValue());
    update();
}

void CMultipleHandleSlider::SetRange(double dMinimum, double dMaximum)
{
    if (!std::isfinite(dMinimum) || !std::isfinite(dMaximum))
        return;
    m_dMinimum = dMinimum;
    m_dMaximum = std::max(dMinimum, dMaximum);
    for (CSliderHandle& handle : m_handles)
        handle.SetValue(std::clamp(handle.GetValue(), m_dMinimum, m_dMaximum));
    update();
}

void CMultipleHandleSlider::SetStep(double dStep, bool bSnap)
{
    m_dStep = dStep;
    m_bSnap = bSnap;
}

double CMultipleHandleSlider::Step() const
{
    return m_dStep > 0.0 ? m_dStep : (m_dMaximum - m_dMinimum) / STEPS;
}

double CMultipleHandleSlider::Snapped(double dValue) const
{
    const double dStep = Step();
    if (!m_bSnap || dStep <= 0.0)
        return dValue;
    return std::min(m_dMinimum + std::round((dValue - m_dMinimum) / dStep) * dStep, m_dMaximum);
}

double CMultipleHandleSlider::LowerBound(int nHandle) const
{
    for (int n = nHandle - 1; n >= 0; --n)
        if (!m_handles[n].IsPushed())
            return m_handles[n].GetValue();
    return m_dMinimum;
}

double CMultipleHandleSlider::UpperBound(int nHandle) const
{
    for (int n = nHandle + 1; n < m_handles.size(); ++n)
        if (!m_handles[n].IsPushed())
            return m_handles[n].GetValue();
    return m_dMaximum;
}

QVector<int> CMultipleHandleSlider::Move(int nHandle, double dValue)
{
    const double dLower = LowerBound(nHandle);
    const double dNew = std::clamp(dValue, dLower, std::max(dLower, UpperBound(nHandle)));
    QVector<int> changed;
    const auto Put = [&](int n, double d) {
        if (m_handles[n].GetValue() == d)
            return;
        m_handles[n].SetValue(d);
        changed.append(n);
    };
    Put(nHandle, dNew);
    for (int n = 0; n < nHandle; ++n)
        Put(n, std::min(m_handles[n].GetValue(), dNew));
    for (int n = nHandle + 1; n < m_handles.size(); ++n)
        Put(n, std::max(m_handles[n].GetValue(), dNew));
    update();
    return changed;
}

void CMultipleHandleSlider::SetHandleValue(int nHandle, double dValue)
{
    if (std::isfinite(dValue))
        Move(nHandle, dValue);
}

void CMultipleHandleSlider::MoveByUser(int nHandle, double dValue)
{
    for (const int n : Move(nHandle, Snapped(dValue)))
        emit HandleChanged(n);
}

/** Of handles at one place the one that can be moved from there, else the one on the pointer's side. */
int CMultipleHandleSlider::NearestHandle(double dX) const
{
    int nNearest = -1;
    double dLeast = 0.0;
    for (int n = 0; n < m_handles.size(); ++n) {
        const double dValue = m_handles[n].GetValue();
        const double dDistance = std::abs(PlaceOf(dValue) - dX);
        const bool bRightOne = dValue < m_dMaximum && (dValue <= m_dMinimum || dX > PlaceOf(dValue));
        if (nNearest < 0 || dDistance < dLeast || (dDistance == dLeast && bRightOne)) {
            nNearest = n;
            dLeast = dDistance;
        }
    }
    return nNearest;
}

void CMultipleHandleSlider::mousePressEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton || m_handles.isEmpty()) {
        QWidget::mousePressEvent(pEvent);
        return;
    }
    m_nActive = m_nDragged = NearestHandle(pEvent->localPos().x());
    m_dGrip = pEvent->localPos().x() - PlaceOf(m_handles[m_nDragged].GetValue());
    if (std::abs(m_dGrip) > GRIP_REACH) {
        m_dGrip = 0.0;
        MoveByUser(m_nDragged, ValueAt(pEvent->localPos().x()));
    }
    update();
}

void CMultipleHandleSlider::mouseMoveEvent(QMouseEvent* pEvent)
{
    if (m_nDragged < 0) {
        const int nNearest = NearestHandle(pEvent->localPos().x());
        m_nHovered = nNearest >= 0 && HandlePath(nNearest).contains(pEvent->localPos()) ? nNearest : -1;
        update();
        return;
    }
    MoveByUser(m_nDragged, ValueAt(pEvent->localPos().x() - m_dGrip));
    const QPoint above(GetHandlePoint(m_nDragged).x(), -3 * height()); // tips stand below their place
    QToolTip::showText(mapToGlobal(above), QString::number(m_handles[m_nDragged].GetValue(), 'g', 6), this);
}

void CMultipleHandleSlider::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton || m_nDragged < 0)
        return;
    const int nReleased = std::exchange(m_nDragged, -1);
    update();
    emit HandleReleased(nReleased);
}

void CMultipleHandleSlider::leaveEvent(QEvent* pEvent)
{
    m_nHovered = -1;
    update();
    QWidget::leaveEvent(pEvent);
}

/** Where the key takes the active handle; its own value for a key that moves nothing. */
double CMultipleHandleSlider::KeyTarget(int nKey) const
{
    const double dValue = m_handles[m_nActive].GetValue();
    switch (nKey) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return dValue - Step();
    case Qt::Key_Right:
    case Qt::Key_Up:
        return dValue + Step();
    case Qt::Key_PageDown:
        return dValue - PAGE * Step();
    case Qt::Key_PageUp:
        return dValue + PAGE * Step();
    case Qt::Key_Home:
        return m_dMinimum;
    case Qt::Key_End:
        return m_dMaximum;
    default:
        return dValue;
    }
}

void CMultipleHandleSlider::keyPressEvent(QKeyEvent* pEvent)
{
    static const QVector<int> s_keys = {Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,   Qt::Key_Down,
                                        Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    if (m_handles.isEmpty() || !s_keys.contains(pEvent->key())) {
        QWidget::keyPressEvent(pEvent);
        return;
    }
    m_bKeyMoved = true;
    MoveByUser(m_nActive, KeyTarget(pEvent->key()));
}

void CMultipleHandleSlider::keyReleaseEvent(QKeyEvent* pEvent)
{
    if (!m_bKeyMoved || pEvent->isAutoRepeat()) {
        QWidget::keyReleaseEvent(pEvent);
        return;
    }
    EndKeyMove();
}

void CMultipleHandleSlider::EndKeyMove()
{
    if (std::exchange(m_bKeyMoved, false))
        emit HandleReleased(m_nActive);
}

/** The release of a key that is down goes to another widget. */
void CMultipleHandleSlider::focusOutEvent(QFocusEvent* pEvent)
{
    EndKeyMove();
    QWidget::focusOutEvent(pEvent);
}

void CMultipleHandleSlider::focusInEvent(QFocusEvent* pEvent)
{
    if (pEvent->reason() == Qt::TabFocusReason)
        m_nActive = 0;
    else if (pEvent->reason() == Qt::BacktabFocusReason)
        m_nActive = std::max(0, int(m_handles.size()) - 1);
    QWidget::focusInEvent(pEvent);
}

bool CMultipleHandleSlider::focusNextPrevChild(bool bNext)
{
    const int nNext = m_nActive + (bNext ? 1 : -1);
    if (!hasFocus() || nNext < 0 || nNext >= m_handles.size())
        return QWidget::focusNextPrevChild(bNext);
    m_nActive = nNext;
    update();
    return true;
}

void CMultipleHandleSlider::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::EnabledChange || pEvent->type() == QEvent::PaletteChange ||
        pEvent->type() == QEvent::FontChange)
        update();
    QWidget::changeEvent(pEvent);
}
