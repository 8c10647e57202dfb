#include "modules/plot3d/fieldview/fieldviewtext.h"

#include "modules/plot3d/fieldview/fieldviewsections.h"

#include <QRegularExpression>

namespace {

constexpr int MOST_COLORS = 100'000;

std::unique_ptr<CFieldViewSection> MakeSection(const QString& sName, SFieldViewRestart& restart)
{
    std::unique_ptr<CFieldViewSection> pItems = MakeFieldViewItems(sName, restart);
    return pItems ? std::move(pItems) : MakeFieldViewSettings(sName, restart);
}

/** "6: 0 255 255"; false for any other line. */
bool TakeColor(const QString& sLine, SFieldViewRestart& restart)
{
    static const QRegularExpression colorLine("^(\\d+):\\s+(\\d+)\\s+(\\d+)\\s+(\\d+)");
    const QRegularExpressionMatch match = colorLine.match(sLine);
    const QColor color(match.captured(2).toInt(), match.captured(3).toInt(), match.captured(4).toInt());
    if (!match.hasMatch() || !color.isValid() || restart.colorTable.size() >= MOST_COLORS)
        return false;
    restart.colorTable[match.captured(1).toInt()] = color;
    return true;
}

/** Counts, which the items themselves tell, and what has to be so here. */
bool SaysNothing(const QString& sKey, const QString& sValue)
{
    constexpr const char* COUNTS[] = {"num_of_grids", "num_grids", "num_rakes", "number_of_surfaces",
                                      "perspective_angle"};
    constexpr const char* OFF[] = {"perspective", "color_log_scale"};
    return std::find(std::begin(COUNTS), std::end(COUNTS), sKey) != std::end(COUNTS) ||
           (sValue == "0" && std::find(std::begin(OFF), std::end(OFF), sKey) != std::end(OFF));
}

bool IsEmpty(const QString& sLine)
{
    static const QRegularExpression endMark("^end(_\\w+)?$", QRegularExpression::CaseInsensitiveOption);
    return sLine.isEmpty() || endMark.match(sLine).hasMatch();
}

} // namespace

void ReadFieldViewText(const QString& sText, SFieldViewRestart& restart)
{
    constexpr const char* VERSION = "_restart_version";
    constexpr const char* COLORS_OF_SURFACE = "colormap_atts_restart_version"; // stands in one
    QString sSection = "text";
    std::unique_ptr<CFieldViewSection> pSection = MakeSection(sSection, restart);
    for (const QStringView sRaw : QStringView(sText).split('\n')) {
        const QString sLine = sRaw.trimmed().toString();
        const int nColon = sLine.indexOf(':');
        const QString sKey = sLine.left(std::max(nColon, 0)).trimmed().toLower();
        if (sKey.endsWith(VERSION) && sKey != COLORS_OF_SURFACE) {
            sSection = sKey.left(sKey.size() - int(qstrlen(VERSION)));
            pSection = MakeSection(sSection, restart);
            continue;
        }
        const QString sValue = sLine.mid(nColon + 1).trimmed();
        const bool bKey = !sKey.isEmpty();
        if (!IsEmpty(sLine) && sKey != COLORS_OF_SURFACE && !TakeColor(sLine, restart) &&
            !(bKey && (SaysNothing(sKey, sValue) || pSection->Take(sKey, sValue))))
            ++restart.passedOver[sSection];
    }
}
