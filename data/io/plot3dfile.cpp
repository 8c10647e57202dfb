#include "data/io/plot3dfile.h"

#include <algorithm>

SPlot3DFile AsFields(const SPlot3DFile& grid)
{
    const SPlot3DFormat format = FindFormat(grid.nCode);
    const FileKind_e eKind = format.bBlank ? KindXyzb : KindXyz;
    const std::span<const SPlot3DFormat> formats = SolutionFormats();
    const auto found = std::ranges::find_if(formats, [&](const SPlot3DFormat& other) {
        return other.eKind == eKind && other.bDouble == format.bDouble && other.bFortran == format.bFortran &&
               other.bMultiBlock == format.bMultiBlock && other.b3D == format.b3D;
    });
    if (grid.eKind != KindGrid || format.bFormatted || found == formats.end())
        return {};
    return {found->nCode, eKind, grid.layout, grid.blocks};
}

QVector<IVector3D> BlockDimensions(const SPlot3DFile& file)
{
    QVector<IVector3D> sizes;
    sizes.reserve(file.blocks.size());
    for (const SPlot3DBlock& block : file.blocks)
        sizes.append(block.size);
    return sizes;
}

int VariableCount(const SPlot3DFile& file) { return VariableCount(file, 0); }

int VariableCount(const SPlot3DFile& file, qint64 nBlock)
{
    if (nBlock < 0 || nBlock >= file.blocks.size())
        return 0;
    switch (file.eKind) {
    case KindQ:
    case KindFunction:
        return file.blocks[nBlock].nVariables;
    case KindXyzb:
        return 4;
    case KindXyz:
        return 3;
    default:
        return 0;
    }
}

bool IsIntegerVariable(const SPlot3DFile& file, int nVariable)
{
    return file.eKind == KindXyzb && nVariable == 3;
}

int IntegersPerBlock(const SFileLayout& layout, FileKind_e eKind)
{
    return layout.Dimensions() + (eKind == KindFunction ? 1 : 0);
}

int RealArrayCount(const SFileLayout& layout, FileKind_e eKind, int nStated)
{
    switch (eKind) {
    case KindQ:
        return layout.Dimensions() + 2;
    case KindFunction:
        return nStated;
    default:
        return layout.Dimensions();
    }
}

qint64 HeaderSize(const SFileLayout& layout, FileKind_e eKind, qint64 nBlocks)
{
    const qint64 nCountRecord = layout.bIsMultiBlock ? layout.nIntSize + 2 * layout.nMarkerSize : 0;
    return nCountRecord + DimensionsSize(layout, eKind, nBlocks) + 2 * layout.nMarkerSize;
}

qint64 DimensionsSize(const SFileLayout& layout, FileKind_e eKind, qint64 nBlocks)
{
    return nBlocks * IntegersPerBlock(layout, eKind) * layout.nIntSize;
}

qint64 QHeaderSize(const SFileLayout& layout, FileKind_e eKind)
{
    return eKind == KindQ ? Q_HEADER_REALS * layout.nRealSize + 2 * layout.nMarkerSize : 0;
}

qint64 DataSize(const SFileLayout& layout, const SPlot3DBlock& block)
{
    const qint64 nPointSize = block.nVariables * layout.nRealSize + (layout.bHasBlank ? layout.nIntSize : 0);
    return block.PointCount() * nPointSize;
}

qint64 BlockSize(const SFileLayout& layout, FileKind_e eKind, const SPlot3DBlock& block)
{
    return QHeaderSize(layout, eKind) + DataSize(layout, block) + 2 * layout.nMarkerSize;
}

qint64 QHeaderOffset(const SFileLayout& layout, const SPlot3DBlock& block)
{
    return block.nOffset + layout.nMarkerSize;
}

qint64 ArrayOffset(const SPlot3DFile& file, const SPlot3DBlock& block, int nArray)
{
    const SFileLayout& layout = file.layout;
    const qint64 nData = block.nOffset + QHeaderSize(layout, file.eKind) + layout.nMarkerSize;
    return nData + nArray * block.PointCount() * layout.nRealSize;
}
