#include "modules/plot3d/block.h"

#include "data/grids/igrid.h"
#include "data/io/gridio.h"
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "data/values/blockshape.h"
#include "modules/plot3d/plot3dkeys.h"

#include <QCryptographicHash>

namespace {

constexpr qint64 RUN_COUNT = 64;  // samples of a large block ...
constexpr qint64 RUN_LENGTH = 64; // ... and the points of each

/** Runs over the block, evenly spread; one of all points if there are few. */
QVector<SPointRun> SampleRuns(qint64 nPoints)
{
    if (nPoints <= RUN_COUNT * RUN_LENGTH)
        return {{0, nPoints}};
    QVector<SPointRun> runs;
    for (qint64 n = 0; n < RUN_COUNT; ++n)
        runs.append({n * (nPoints - RUN_LENGTH) / (RUN_COUNT - 1), RUN_LENGTH});
    return runs;
}

template <class Real>
bool HashPoints(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock, QCryptographicHash& hash)
{
    for (const SPointRun& run : SampleRuns(file.blocks[int(nBlock)].PointCount())) {
        std::vector<Real> values(3 * run.nCount);
        const std::span<Real> all(values);
        const std::array<std::span<Real>, 3> xyz = {all.subspan(0, run.nCount),
                                                    all.subspan(run.nCount, run.nCount),
                                                    all.subspan(2 * run.nCount, run.nCount)};
        if (!ReadGridBlock(device, file, nBlock, xyz, run).IsOk())
            return false;
        hash.addData(reinterpret_cast<const char*>(values.data()), int(values.size() * sizeof(Real)));
    }
    return true;
}

/** The grid file in which the block has its size: the case may have it in another layout than the first. */
SPlot3DFile FileOfBlock(const QString& sFileName, qint64 nBlock, const IVector3D& size)
{
    const auto hasBlock = [&](const SPlot3DFile& file) {
        return file.blocks.value(int(nBlock)).size == size;
    };
    const SPlot3DFile file = CGridIO().Detect(sFileName);
    return hasBlock(file) ? file : DetectPlot3DGrid(sFileName, hasBlock);
}

QByteArray HashBlock(const QString& sFileName, qint64 nBlock, const IVector3D& size)
{
    const SPlot3DFile file = FileOfBlock(sFileName, nBlock, size);
    CReadFile device;
    if (file.layout.nIsFormatted || nBlock < 0 || nBlock >= file.blocks.size() || !device.Open(sFileName))
        return {};
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(QString("%1 %2 %3").arg(size.i).arg(size.j).arg(size.k).toLatin1());
    const bool bRead = file.layout.nRealSize == 8 ? HashPoints<double>(device, file, nBlock, hash)
                                                  : HashPoints<float>(device, file, nBlock, hash);
    return bRead ? hash.result() : QByteArray();
}

} // namespace

CBlock::CBlock()
{
    SetGridType(GridKindStructured);
    SetName("NONAME", 0);
}

void CBlock::SetSource(const QString& sFileName, const QString& sRelativeName, qint64 nFileIndex,
                       const IVector3D& dimensions)
{
    Set(*this, BlockKey::ABSOLUTE_FILE, sFileName);
    Set(*this, BlockKey::RELATIVE_FILE, sRelativeName);
    Set(*this, BlockKey::FILE_INDEX, nFileIndex);
    SetSize(dimensions);
    SetName(QString("Block %1").arg(nFileIndex + 1), 0);
    SetName(GetGridText(), 1);
    m_linkKey.clear();
}

qint64 CBlock::GetFileIndex() const { return Get(*this, BlockKey::FILE_INDEX); }
QString CBlock::GetFileName() const { return Get(*this, BlockKey::ABSOLUTE_FILE); }

QString CBlock::GetGridText() const
{
    return QString("(%1 x %2 x %3)").arg(GetSize().i).arg(GetSize().j).arg(GetSize().k);
}

qint64 CBlock::GetPointCount() const { return SBlockShape{GetSize()}.PointCount(); }
qint64 CBlock::GetCellCount() const { return SBlockShape{GetSize()}.CellCount(); }

QByteArray CBlock::GetLinkKey() const
{
    if (m_linkKey.isEmpty())
        m_linkKey = HashBlock(GetFileName(), GetFileIndex(), GetSize());
    return m_linkKey;
}

void CBlock::CopyDataFrom(const CItem& other)
{
    const CDataPack own(*this);
    CItem::CopyDataFrom(other);
    Set(*this, BlockKey::ABSOLUTE_FILE, Get(own, BlockKey::ABSOLUTE_FILE));
    Set(*this, BlockKey::RELATIVE_FILE, Get(own, BlockKey::RELATIVE_FILE));
    Set(*this, BlockKey::FILE_INDEX, Get(own, BlockKey::FILE_INDEX));
}
