#include "frame/ui/colorbutton.h"

#include "frame/userprompt.h"

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

void CColorButton::Ask()
{
    const QColor color = UserPrompt::AskColor("Select Color", m_color);
    if (!color.isValid() || color == m_color)
        return;
    SetColor(color);
    emit SignalColorChanged(color);
}
