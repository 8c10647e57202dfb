#include "frame/ui/colorbutton.h"

#include "frame/userprompt.h"

#include <QPainter>

static constexpr int FRAME_WIDTH = 4; // [pixels] left to the style, for frame and focus

CColorButton::CColorButton(QWidget* pParent) : QPushButton(pParent)
{
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, &CColorButton::Ask);
}

void CColorButton::SetColor(const QColor& color)
{
    m_color = color;
    setStyleSheet(QString("background-color: %1").arg(color.name()));
}

void CColorButton::paintEvent(QPaintEvent* pEvent)
{
    // Styles shade a background, and the sheets of themes lay pictures and gradients over it.
    QPushButton::paintEvent(pEvent);
    const QRect inside = rect().adjusted(FRAME_WIDTH, FRAME_WIDTH, -FRAME_WIDTH, -FRAME_WIDTH);
    QPainter(this).fillRect(inside, m_color);
}

void CColorButton::Ask()
{
    const QColor color = UserPrompt::AskColor("Select Color", m_color);
    if (!color.isValid() || color == m_color)
        return;
    SetColor(color);
    emit SignalColorChanged(color);
}
