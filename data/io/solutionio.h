#pragma once

#include "data/io/filecache.h"
#include "frame/tasks/taskcreator.h"

#include <QVector>

#include <array>
#include <optional>

/** Tells what solution files are, as CGridIO does of grid files, with a cache of its own. */
class CSolutionIO : public CTaskCreator
{
public:
    int DetectSolutionFormat(const QString& sFileName, const SPlot3DFile& like = {}) const
    {
        return Detect(sFileName, like).nCode;
    }
    /** @param like  as CGridIO::Detect */
    SPlot3DFile Detect(const QString& sFileName, const SPlot3DFile& like = {}) const;
    static CFileCache& Cache();
    QVector<IVector3D> GetSolutionBlockDimensions(const QString& sFileName) const;
    int GetSolutionVariableCount(const QString& sFileName) const;
    /** Mach number, angle of attack [degrees], Reynolds number, time; nothing for other kinds than Q. */
    std::optional<std::array<double, 4>> GetSolutionHeader(const QString& sFileName, qint64 nBlock,
                                                           const SPlot3DFile& like = {}) const;
};
