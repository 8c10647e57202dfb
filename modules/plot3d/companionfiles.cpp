#include "modules/plot3d/companionfiles.h"

#include "modules/plot3d/filerecords.h"
#include "modules/plot3d/transientseries.h"

#include <QDir>
#include <QFileInfo>

QStringList GridSuffixes() { return {"x", "xyz", "xyzb", "g", "grd", "p3d"}; }

QString FindCompanion(const QString& sFileName, const QStringList& sSuffixList)
{
    const QFileInfo origin(sFileName);
    QStringList candidates;
    for (const QFileInfo& file : origin.absoluteDir().entryInfoList(QDir::Files, QDir::Name)) {
        if (!sSuffixList.contains(file.suffix().toLower()) || file == origin)
            continue;
        if (file.completeBaseName() == origin.completeBaseName())
            return file.absoluteFilePath();
        candidates.append(file.absoluteFilePath());
    }
    if (candidates.size() == 1)
        return candidates.first();
    const QStringList sSeries =
        candidates.isEmpty() ? QStringList() : FindTransientSeries(candidates[0]).sFileList;
    return sSeries.size() == candidates.size() ? sSeries.value(0) : QString();
}

CFileRecord FindGridFor(const CFileRecord& solution)
{
    const QString sFileName = FindCompanion(solution.FileName(), GridSuffixes());
    if (sFileName.isEmpty())
        return {};
    const CFileRecord grid(sFileName, RoleGrid);
    const bool bFits =
        grid.IsValid() && !PlacesOfBlocks(solution.BlockSizes(), grid.BlockSizes(), grid.Blocks()).isEmpty();
    return bFits ? grid : CFileRecord();
}
