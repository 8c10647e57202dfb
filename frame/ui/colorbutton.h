#pragma once

#include <QPushButton>

/** Shows a colour, and asks for another one when it is pressed. An invalid one is the automatic colour. */
class CColorButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CColorButton(QWidget* pParent = nullptr);

    QColor GetColor() const { return m_color; }
    void SetColor(const QColor& color);
    /** A press gives the choice between the automatic colour and one to ask for. */
    void OfferAutomatic();

signals:
    /** The user has chosen another colour. */
    void SignalColorChanged(const QColor& color);

protected:
    /** The exact colour inside of what the style makes of it. */
    void paintEvent(QPaintEvent* pEvent) override;

private:
    void Ask();
    void Choose(const QColor& color);

    QColor m_color;
};
