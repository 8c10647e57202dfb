#pragma once

#include "frame/ui/sliders/sliderhandle.h"

#include <QWidget>

/**
 * A horizontal slider over real values with any number of handles, counted from 0 at the left, which never
 * change places. A click on the groove takes the nearest handle there. Keys move the handle that has the
 * focus: arrows by a step, Page Up and Down by ten, Home and End as far as it goes; Tab goes on to the next
 * handle, then to the next widget.
 */
class CMultipleHandleSlider : public QWidget
{
    Q_OBJECT

public:
    explicit CMultipleHandleSlider(QWidget* pParent = nullptr);

    /** Adds one at the right end; it should have the greatest value. */
    void AddHandle(const CSliderHandle& handle);
    int GetHandleCount() const { return m_handles.size(); }

    /** Handles outside are moved inside, without signals. A maximum below the minimum counts as it. */
    void SetRange(double dMinimum, double dMaximum);
    double GetMinimum() const { return m_dMinimum; }
    double GetMaximum() const { return m_dMaximum; }
    /**
     * What an arrow key does.
     *
     * @param dStep  0: the hundredth part of the range
     * @param bSnap  the pointer too only gives whole steps from the minimum
     */
    void SetStep(double dStep, bool bSnap);

    /** Moves a handle as far as its neighbours let it; no signal. Values that are no number are ignored. */
    void SetHandleValue(int nHandle, double dValue);
    double GetHandleValue(int nHandle) const { return m_handles[nHandle].GetValue(); }

    /** The middle of the handle [pixels]. */
    QPoint GetHandlePoint(int nHandle) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /** The user has moved it, and may still hold it. */
    void HandleChanged(qlonglong nHandle);
    /** The user has let it go. */
    void HandleReleased(qlonglong nHandle);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void keyReleaseEvent(QKeyEvent* pEvent) override;
    void focusInEvent(QFocusEvent* pEvent) override;
    void focusOutEvent(QFocusEvent* pEvent) override;
    bool focusNextPrevChild(bool bNext) override;
    void changeEvent(QEvent* pEvent) override;

private:
    double Step() const;
    double Snapped(double dValue) const;
    double LowerBound(int nHandle) const;
    double UpperBound(int nHandle) const;
    /** Gives the handles whose value has changed. */
    QVector<int> Move(int nHandle, double dValue);
    void MoveByUser(int nHandle, double dValue);
    double KeyTarget(int nKey) const;
    void EndKeyMove();
    int NearestHandle(double dX) const;
    double ValueAt(double dX) const;
    double PlaceOf(double dValue) const; // [pixels]
    QRectF GrooveRect() const;
    QPainterPath HandlePath(int nHandle) const;
    void PaintHandle(QPainter& painter, int nHandle) const;

    QVector<CSliderHandle> m_handles;
    double m_dMinimum = 0.0;
    double m_dMaximum = 1.0;
    double m_dStep = 0.0; // 0: from the range
    bool m_bSnap = false;
    int m_nActive = 0;   // the one that keys move
    int m_nDragged = -1; // -1: none
    int m_nHovered = -1;
    bool m_bKeyMoved = false; // a key has moved the active one and is still down
    double m_dGrip = 0.0;     // from the handle's middle to the pointer at the press [pixels]
};
