#include "modules/plot3d/layouttext.h"

#include <QStringList>

namespace {

QString Counted(qint64 nCount, const char* sWhat)
{
    return QString(nCount == 1 ? "%1 %2" : "%1 %2s").arg(nCount).arg(sWhat);
}

QString KindText(const SPlot3DFile& file)
{
    static const QMap<int, QString> s_names = {{KindGrid, "grid"},
                                               {KindQ, "Q"},
                                               {KindFunction, "function"},
                                               {KindXyz, "grid as fields"},
                                               {KindXyzb, "grid as fields"}};
    const QString sKind = s_names.value(file.eKind);
    return file.eKind == KindFunction ? sKind + ", " + Counted(VariableCount(file), "variable") : sKind;
}

QString RecordText(const SFileLayout& layout)
{
    if (layout.nMarkerSize == 0)
        return "no records";
    return layout.nMarkerSize == 4 ? QString("Fortran records")
                                   : QString("Fortran records with %1-byte markers").arg(layout.nMarkerSize);
}

} // namespace

QString DescribeLayout(const SPlot3DFile& file)
{
    if (!file.IsDetected())
        return "not identified";
    const SFileLayout& layout = file.layout;
    QStringList parts = {KindText(file), layout.bIs3D ? "3-D" : "2-D"};
    parts << (layout.bIsMultiBlock ? Counted(file.blocks.size(), "block") : QString("single block"));
    if (layout.nIsFormatted) {
        parts << "text (recognised, not read)";
        return parts.join(", ");
    }
    parts << (layout.nRealSize == 8 ? "double precision" : "single precision") << RecordText(layout);
    if (layout.nIntSize == 8)
        parts << "8-byte integers";
    if (layout.bHasBlank)
        parts << "IBlank";
    if (layout.bIsSwapped)
        parts << "byte-swapped";
    return parts.join(", ");
}
