#include "tools/rendericons/iconfile.h"

#include <QBuffer>
#include <QDataStream>
#include <QImageWriter>

namespace {

/** Opaque pixels as they are; edges with 16 grades of cover, which is all that a line's edge needs. */
QRgb Coarse(QRgb color)
{
    constexpr int GRADE = 17; // 15 * 17 = 255
    const int nAlpha = (qAlpha(color) + GRADE / 2) / GRADE * GRADE;
    if (nAlpha == 255 || nAlpha == 0)
        return nAlpha ? color | 0xff000000 : 0;
    const auto coarse = [](int nChannel) { return (nChannel & ~15) | 8; };
    return qRgba(coarse(qRed(color)), coarse(qGreen(color)), coarse(qBlue(color)), nAlpha);
}

/** The image with a table of its colours, which makes a much smaller file; as it is where they are too many.
 */
QImage Indexed(const QImage& image)
{
    QImage indexed(image.size(), QImage::Format_Indexed8);
    QVector<QRgb> table;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb color = Coarse(image.pixel(x, y));
            int nIndex = table.indexOf(color);
            if (nIndex < 0) {
                nIndex = table.size();
                table.append(color);
            }
            if (nIndex > 255)
                return image;
            indexed.scanLine(y)[x] = uchar(nIndex);
        }
    }
    indexed.setColorTable(table);
    return indexed;
}

} // namespace

QByteArray PngFile(const QImage& image)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, "png");
    writer.setCompression(100);
    writer.write(Indexed(image));
    return buffer.data();
}

// Qt's own writer takes a single image; the container is a count and a directory in front of the images.
QByteArray IcoFile(const QVector<QImage>& images)
{
    constexpr quint32 HEADER_BYTES = 6, ENTRY_BYTES = 16;
    constexpr quint16 TYPE_ICON = 1, PLANES = 1, BITS = 32;
    QByteArray data, bodies;
    QDataStream out(&data, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint16(0) << TYPE_ICON << quint16(images.size());
    quint32 nOffset = HEADER_BYTES + ENTRY_BYTES * quint32(images.size());
    for (const QImage& image : images) {
        const QByteArray body = PngFile(image);
        out << quint8(image.width()) << quint8(image.height()) << quint8(0)
            << quint8(0) // 256 wraps to 0, as it is meant
            << PLANES << BITS << quint32(body.size()) << nOffset;
        nOffset += quint32(body.size());
        bodies += body;
    }
    return data + bodies;
}
