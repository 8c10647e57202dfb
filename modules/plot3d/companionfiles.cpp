#include "modules/plot3d/companionfiles.h"

#include "modules/plot3d/transientseries.h"

#include <QDir>
#include <QFileInfo>

namespace {

/** How the names of files of a role end, in lower case. */
struct SRoleNames
{
    FileRole_e eRole;
    QStringList sSuffixList; // behind the last point
    QStringList sWordList;   // ahead of it, the longest first
};

const SRoleNames& NamesOf(FileRole_e eRole)
{
    static const SRoleNames s_rows[] = {
        {RoleGrid, {"x", "xyz", "xyzb", "g", "grd", "p3d"}, {"grid", "xyzb", "xyz", "x", "g"}},
        {RoleQ, {"q"}, {"q"}},
        {RoleFunction, {"f"}, {"f"}},
    };
    return *std::find_if(std::begin(s_rows), std::end(s_rows) - 1,
                         [eRole](const SRoleNames& row) { return row.eRole == eRole; });
}

/** "wingq.bin" for "wingxyz.bin", if it is there. */
QString FindByWord(const QFileInfo& origin, const SRoleNames& own, const SRoleNames& wanted)
{
    const QString sStem = origin.completeBaseName();
    for (const QString& sOwnWord : own.sWordList) {
        if (!sStem.endsWith(sOwnWord, Qt::CaseInsensitive))
            continue;
        for (const QString& sWord : wanted.sWordList) {
            const QFileInfo file(origin.absoluteDir(),
                                 sStem.chopped(sOwnWord.size()) + sWord + '.' + origin.suffix());
            if (file.isFile())
                return file.absoluteFilePath();
        }
    }
    return {};
}

} // namespace

bool HasGridSuffix(const QString& sFileName)
{
    return NamesOf(RoleGrid).sSuffixList.contains(QFileInfo(sFileName).suffix().toLower());
}

QString FindCompanion(const QString& sFileName, FileRole_e eOwnRole, FileRole_e eWanted)
{
    const QFileInfo origin(sFileName);
    const SRoleNames& wanted = NamesOf(eWanted);
    QStringList candidates;
    for (const QFileInfo& file : origin.absoluteDir().entryInfoList(QDir::Files, QDir::Name)) {
        if (!wanted.sSuffixList.contains(file.suffix().toLower()) || file == origin)
            continue;
        if (file.completeBaseName() == origin.completeBaseName())
            return file.absoluteFilePath();
        candidates.append(file.absoluteFilePath());
    }
    if (const QString sByWord = FindByWord(origin, NamesOf(eOwnRole), wanted); !sByWord.isEmpty())
        return sByWord;
    if (candidates.size() <= 1)
        return candidates.value(0);
    const QStringList sSeries = FindTransientSeries(candidates.first()).sFileList;
    return sSeries.size() == candidates.size() ? sSeries.first() : QString();
}
