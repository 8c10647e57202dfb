#include "frame/ui/colorbutton.h"

#include "frame/ui/colorswatch.h"
#include "frame/userprompt.h"

#include <QMenu>
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

void CColorButton::OfferAutomatic()
{
    auto* const pMenu = new QMenu(this);
    pMenu->addAction("Automatic", this, [this] { Choose({}); });
    pMenu->addAction("Select Color...", this, &CColorButton::Ask);
    setMenu(pMenu);
}

void CColorButton::paintEvent(QPaintEvent* pEvent)
{
    // Styles shade a background, and the sheets of themes lay pictures and gradients over it.
    QPushButton::paintEvent(pEvent);
    const QRect inside = rect().adjusted(FRAME_WIDTH, FRAME_WIDTH, -FRAME_WIDTH, -FRAME_WIDTH);
    QPainter painter(this);
    PaintColorSwatch(painter, inside, m_color);
}

void CColorButton::Ask()
{
    const QColor color = UserPrompt::AskColor("Select Color", m_color.isValid() ? m_color : Qt::black);
    if (color.isValid())
        Choose(color);
}

void CColorButton::Choose(const QColor& color)
{
    if (color == m_color)
        return;
    SetColor(color);
    emit SignalColorChanged(color);
}
