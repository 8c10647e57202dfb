#include "frame/themeicon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

namespace {

constexpr const char* FOLDER = ":/Icons/";
constexpr int SIZES[] = {16, 24, 32, 48}; // as resources/icons are drawn [pixels]
constexpr int LARGEST = SIZES[std::size(SIZES) - 1];
constexpr double DISABLED_OPACITY = 0.4;

bool s_bDark = false;

QString ImageName(const QString& sName, bool bDark, int nSize)
{
    return QString("%1%2/%3/%4").arg(FOLDER, bDark ? "dark" : "light").arg(nSize).arg(sName);
}

bool IsSelectionDark()
{
    return QGuiApplication::palette().color(QPalette::HighlightedText).lightness() > 127;
}

/** The drawn size that gives the sharpest image: the next one that isn't smaller. */
int DrawnSize(int nSide)
{
    const int* const pSize = std::lower_bound(std::begin(SIZES), std::end(SIZES), nSide);
    return pSize == std::end(SIZES) ? LARGEST : *pSize;
}

/** Without colour and faint, so that it reads as disabled on light and on dark alike. */
QImage Disabled(const QImage& image)
{
    QImage grey = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < grey.height(); ++y) {
        QRgb* const pLine = reinterpret_cast<QRgb*>(grey.scanLine(y));
        for (int x = 0; x < grey.width(); ++x) {
            const int nGrey = qGray(pLine[x]);
            pLine[x] = qRgba(nGrey, nGrey, nGrey, int(qAlpha(pLine[x]) * DISABLED_OPACITY));
        }
    }
    return grey;
}

QPixmap ReadPixmap(const QString& sName, bool bDark, int nSide, QIcon::Mode eMode)
{
    QImage image(ImageName(sName, bDark, DrawnSize(nSide)), "PNG");
    if (image.width() != nSide)
        image = image.scaled(nSide, nSide, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return QPixmap::fromImage(eMode == QIcon::Disabled ? Disabled(image) : image);
}

/** Chooses variant and size whenever it is asked for an image; the pixmap cache keeps what was read. */
class CThemeIconEngine : public QIconEngine
{
public:
    explicit CThemeIconEngine(const QString& sName) : m_sName(sName) {}

    QIconEngine* clone() const override { return new CThemeIconEngine(*this); }
    QString key() const override { return "zento"; }

    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        const int nSide = std::min({size.width(), size.height(), LARGEST});
        return QSize(nSide, nSide);
    }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) const override
    {
        QList<QSize> sizes;
        for (const int nSize : SIZES)
            sizes.append(QSize(nSize, nSize));
        return sizes;
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode eMode, QIcon::State eState) override
    {
        const int nSide = actualSize(size, eMode, eState).width();
        if (nSide <= 0)
            return QPixmap();
        const bool bDark = eMode == QIcon::Selected ? IsSelectionDark() : s_bDark;
        const QString sKey = QString("zento/%1/%2/%3").arg(ImageName(m_sName, bDark, nSide)).arg(eMode);
        QPixmap pixmap;
        if (QPixmapCache::find(sKey, &pixmap))
            return pixmap;
        pixmap = ReadPixmap(m_sName, bDark, nSide, eMode);
        QPixmapCache::insert(sKey, pixmap);
        return pixmap;
    }

    void paint(QPainter* pPainter, const QRect& rect, QIcon::Mode eMode, QIcon::State eState) override
    {
        const qreal dRatio = pPainter->device()->devicePixelRatioF();
        QPixmap image = pixmap((QSizeF(rect.size()) * dRatio).toSize(), eMode, eState);
        image.setDevicePixelRatio(dRatio);
        const QPointF place = QRectF(rect).center() * dRatio - QPointF(image.width(), image.height()) / 2.0;
        pPainter->drawPixmap(QPointF(place.toPoint()) / dRatio, image); // on whole pixels it stays sharp
    }

private:
    QString m_sName; // behind FOLDER
};

} // namespace

QIcon ThemeIcon(const QString& sResource)
{
    const QString sName = sResource.mid(int(qstrlen(FOLDER)));
    if (!sResource.startsWith(FOLDER) || !QFile::exists(ImageName(sName, false, LARGEST)))
        return QIcon(sResource);
    return QIcon(new CThemeIconEngine(sName));
}

void SetDarkIcons(bool bDark) { s_bDark = bDark; }
