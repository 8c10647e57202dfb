#pragma once

#include <QPushButton>

/** Shows a colour, and asks for another one when it is pressed. */
class CColorButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CColorButton(QWidget* pParent = nullptr);

    QColor GetColor() const { return m_color; }
    void SetColor(const QColor& color);

signals:
    /** The user has chosen another colour. */
    void SignalColorChanged(const QColor& color);

protected:
    /** The exact colour inside of what the style makes of it. */
    void paintEvent(QPaintEvent* pEvent) override;

private:
    void Ask();

    QColor m_color;
};
