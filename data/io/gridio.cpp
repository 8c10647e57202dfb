#include "data/io/gridio.h"

#include "data/io/plot3dprobe.h"

namespace {

bool IsStructuredCode(int nCode) { return nCode >= 2 && nCode <= CODE_CGNS_STRUCTURED; }
bool IsUnstructuredCode(int nCode) { return nCode == CODE_STAR_CD || nCode == CODE_CGNS_UNSTRUCTURED; }

} // namespace

CFileCache& CGridIO::Cache()
{
    static CFileCache* const pCache = new CFileCache; // never destroyed: a load may be under way at the end
    return *pCache;
}

SPlot3DFile CGridIO::Detect(const QString& sFileName, const SPlot3DFile& like) const
{
    return Cache().Find(sFileName, like, [&] {
        const SPlot3DFile file = DetectPlot3DLike(sFileName, like);
        return file.IsDetected() ? file : DetectPlot3DGrid(sFileName, HasBlocksOf(like));
    });
}

int CGridIO::DetectGridFormat(const QString& sFileName, bool bStructured, bool bUnstructured,
                              const SPlot3DFile& like) const
{
    const int nCode = Detect(sFileName, like).nCode;
    if ((IsStructuredCode(nCode) && !bStructured) || (IsUnstructuredCode(nCode) && !bUnstructured))
        return CODE_UNKNOWN;
    return nCode;
}

QVector<IVector3D> CGridIO::GetGridBlockDimensions(const QString& sFileName) const
{
    return BlockDimensions(Detect(sFileName));
}

IVector3D CGridIO::GetGridBlockDimensions(const QString& sFileName, qint64 nBlock) const
{
    return GetGridBlockDimensions(sFileName).value(int(nBlock));
}
