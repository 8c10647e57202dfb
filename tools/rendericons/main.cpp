// rendericons TABLE FOLDER PREFIX OUT: draws the rows of TABLE, SVG files in FOLDER, into the folder OUT and
// writes OUT/resource.qrc, which gives each drawing its names under PREFIX.
//
// A row with a colour gives one PNG of the drawing's own size, and one of twice that. A row without is an
// icon: a file under its bare name, and images for light and for dark backgrounds in the sizes that ThemeIcon
// takes.
#include "tools/rendericons/drawingtable.h"
#include "tools/rendericons/iconfile.h"
#include "tools/rendericons/svgpainter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <cstdio>

namespace {

constexpr int SIZES[] = {16, 24, 32, 48}; // menus and toolbars at 100 % and at 200 % [pixels]

/** Writes files below one folder and lists the resource name of each. */
class CResourceWriter
{
public:
    CResourceWriter(const QString& sFolder, const QString& sPrefix) : m_folder(sFolder), m_sPrefix(sPrefix) {}

    bool Write(const QString& sAlias, const QByteArray& data)
    {
        const QString sPath = m_folder.filePath(sAlias);
        QDir().mkpath(QFileInfo(sPath).path());
        QFile file(sPath);
        m_sAliasList.append(sAlias);
        return file.open(QIODevice::WriteOnly) && file.write(data) == data.size();
    }

    bool WriteList()
    {
        QFile file(m_folder.filePath("resource.qrc"));
        if (!file.open(QIODevice::WriteOnly))
            return false;
        QTextStream out(&file);
        out << "<RCC><qresource prefix=\"" << m_sPrefix << "\">\n";
        for (const QString& sAlias : m_sAliasList)
            out << "<file>" << sAlias.toHtmlEscaped() << "</file>\n";
        out << "</qresource></RCC>\n";
        return true;
    }

private:
    QDir m_folder;
    QString m_sPrefix;
    QStringList m_sAliasList;
};

/** PNG files of the drawing at its own size and at twice that, where Qt looks for it. */
bool WritePng(CResourceWriter& writer, const QString& sName, const QByteArray& svg, int nSide)
{
    const QString sTwice = QString(sName).replace(".png", "@2x.png");
    return writer.Write(sName, PngFile(CSvgPainter::Draw(svg, nSide))) &&
           writer.Write(sTwice, PngFile(CSvgPainter::Draw(svg, 2 * nSide)));
}

/** What stands under an icon's bare name, for light backgrounds: a file of the kind that its ending says. */
bool WriteBare(CResourceWriter& writer, const QString& sName, const QByteArray& svg, int nSide)
{
    const QString sKind = QFileInfo(sName).suffix();
    if (sKind == "svg")
        return writer.Write(sName, svg);
    if (sKind == "ico")
        return writer.Write(sName,
                            IcoFile({CSvgPainter::Draw(svg, nSide), CSvgPainter::Draw(svg, 2 * nSide)}));
    return WritePng(writer, sName, svg, nSide);
}

bool WriteVariants(CResourceWriter& writer, const QString& sName, const CSvgPainter& painter)
{
    for (const IconVariant_e eVariant : {LightIcons, DarkIcons}) {
        for (const int nSize : SIZES) {
            const QString sAlias = QString("%1/%2/%3").arg(VariantName(eVariant)).arg(nSize).arg(sName);
            if (!writer.Write(sAlias, PngFile(CSvgPainter::Draw(painter.Svg(eVariant), nSize))))
                return false;
        }
    }
    return true;
}

bool WriteRow(CResourceWriter& writer, const SDrawingRow& row, const CSvgPainter& painter)
{
    if (row.nSide > 0)
        return writer.Write(row.sName, PngFile(CSvgPainter::Draw(painter.Svg(LightIcons), row.nSide)));
    if (!row.sColor.isEmpty())
        return WritePng(writer, row.sName, painter.Svg(row.sColor), painter.Side());
    return WriteBare(writer, row.sName, painter.Svg(LightIcons), painter.Side()) &&
           WriteVariants(writer, row.sName, painter);
}

int Fail(const QString& sMessage)
{
    std::fprintf(stderr, "rendericons: %s\n", qPrintable(sMessage));
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 5)
        return Fail("expected a table, the folder of its drawings, a resource prefix and an output folder");
    const QString sTable = QFile::decodeName(argv[1]);
    const SDrawingTable table = ReadDrawingTable(sTable);
    if (!table.sError.isEmpty())
        return Fail(sTable + table.sError);
    CResourceWriter writer(QFile::decodeName(argv[4]), argv[3]);
    for (const SDrawingRow& row : table.rows) {
        CSvgPainter painter;
        const QString sPath = QString("%1/%2.svg").arg(QFile::decodeName(argv[2]), row.sSource);
        if (!painter.Load(sPath))
            return Fail(sPath + " can't be drawn");
        if (!WriteRow(writer, row, painter))
            return Fail("can't write " + row.sName);
    }
    return writer.WriteList() ? 0 : Fail("can't write the list");
}
