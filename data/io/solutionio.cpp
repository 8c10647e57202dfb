#include "data/io/solutionio.h"

#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"

CFileCache& CSolutionIO::Cache()
{
    static CFileCache* const pCache = new CFileCache; // never destroyed: a load may be under way at the end
    return *pCache;
}

SPlot3DFile CSolutionIO::Detect(const QString& sFileName, const SPlot3DFile& like) const
{
    return Cache().Find(sFileName, like, [&] {
        const SPlot3DFile file = DetectPlot3DLike(sFileName, like);
        return file.IsDetected() ? file : DetectPlot3DSolution(sFileName, HasBlocksOf(like));
    });
}

QVector<IVector3D> CSolutionIO::GetSolutionBlockDimensions(const QString& sFileName) const
{
    return BlockDimensions(Detect(sFileName));
}

int CSolutionIO::GetSolutionVariableCount(const QString& sFileName) const
{
    return VariableCount(Detect(sFileName));
}

std::optional<std::array<double, 4>> CSolutionIO::GetSolutionHeader(const QString& sFileName, qint64 nBlock,
                                                                    const SPlot3DFile& like) const
{
    CReadFile device;
    return device.Open(sFileName) ? ReadQHeader(device, Detect(sFileName, like), nBlock) : std::nullopt;
}
