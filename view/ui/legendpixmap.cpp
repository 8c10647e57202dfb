#include "view/ui/legendpixmap.h"

#include "view/colormaps/colormaptables.h"

#include <QPainter>

QPixmap legendPixmap(const SColormapRecord& record, int nHeight)
{
    if (!FindColormap(record.nId))
        return {};
    constexpr int WIDTH = 2;
    QPixmap pixmap(WIDTH, std::max(nHeight, 1));
    QLinearGradient gradient(0, 0, 0, pixmap.height());
    gradient.setStops(LegendStops(record.nId));
    QPainter(&pixmap).fillRect(pixmap.rect(), gradient);
    return pixmap;
}
