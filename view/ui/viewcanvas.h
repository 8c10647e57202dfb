#pragma once

#include <QWidget>

/** The drawing surface of a view: the background of the preferences, until there is a scene to draw. */
class CViewCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit CViewCanvas(QWidget* pParent = nullptr);

signals:
    void SignalActivated();
    void SignalPopupMenu();

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void focusInEvent(QFocusEvent* pEvent) override;
};
