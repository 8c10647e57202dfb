#include "data/io/plot3dprobe.h"

#include "data/io/fileheader.h"
#include "data/io/plot3dtext.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace {

constexpr quint8 s_recordMarkers[] = {4, 8};
constexpr quint8 s_noMarkers[] = {0};
constexpr quint8 s_intSizes[] = {4, 8};

bool IsIn(qint64 nValue, qint64 nMax) { return nValue >= 1 && nValue <= nMax; }

/** Tries one layout on one file. */
class CLayoutProbe
{
public:
    CLayoutProbe(CFileHeader& header, FileKind_e eKind, const SFileLayout& layout, Fit_e eFit)
        : m_header(header), m_eKind(eKind), m_layout(layout), m_eFit(eFit)
    {}

    /** The blocks, or none if the layout doesn't fit. */
    QVector<SPlot3DBlock> Run()
    {
        const qint64 nBlocks = ReadBlockCount();
        if (!IsIn(nBlocks, MAX_BLOCKS) || !m_header.Provide(HeaderSize(m_layout, m_eKind, nBlocks)))
            return {};
        if (!HasDimensionMarkers(nBlocks) || !ReadBlocks(nBlocks) || !IsEndAt(m_nEnd))
            return {};
        return std::move(m_blocks);
    }

private:
    /** An integer of the layout's size, 0 behind the end of the file. */
    qint64 ReadInt(qint64 nOffset)
    {
        return m_header.ReadInt(nOffset, m_layout.nIntSize, m_layout.bIsSwapped);
    }

    bool HasMarker(qint64 nOffset, qint64 nBytes)
    {
        return m_header.ReadInt(nOffset, m_layout.nMarkerSize, m_layout.bIsSwapped) == nBytes;
    }

    /** True if markers of the record's size stand before and behind it, and where there are no markers. */
    bool HasMarkers(qint64 nRecordOffset, qint64 nBytes)
    {
        return m_layout.nMarkerSize == 0 ||
               (HasMarker(nRecordOffset, nBytes) &&
                HasMarker(nRecordOffset + m_layout.nMarkerSize + nBytes, nBytes));
    }

    qint64 ReadBlockCount()
    {
        if (!m_layout.bIsMultiBlock)
            return 1;
        return HasMarkers(0, m_layout.nIntSize) ? ReadInt(m_layout.nMarkerSize) : 0;
    }

    bool HasDimensionMarkers(qint64 nBlocks)
    {
        const qint64 nBytes = DimensionsSize(m_layout, m_eKind, nBlocks);
        return HasMarkers(HeaderSize(m_layout, m_eKind, nBlocks) - nBytes - 2 * m_layout.nMarkerSize, nBytes);
    }

    bool ReadBlocks(qint64 nBlocks)
    {
        const qint64 nStep = DimensionsSize(m_layout, m_eKind, 1);
        m_nEnd = HeaderSize(m_layout, m_eKind, nBlocks);
        const qint64 nFirst = m_nEnd - m_layout.nMarkerSize - nBlocks * nStep;
        for (qint64 n = 0; n < nBlocks; ++n)
            if (!ReadBlock(nFirst + n * nStep))
                return false;
        return true;
    }

    bool ReadBlock(qint64 nOffset)
    {
        SPlot3DBlock block;
        block.size.k = 1;
        for (int nAxis = 0; nAxis < m_layout.Dimensions(); ++nAxis, nOffset += m_layout.nIntSize) {
            block.size[nAxis] = ReadInt(nOffset);
            if (!IsIn(block.size[nAxis], MAX_DIMENSION))
                return false;
        }
        const qint64 nStated = m_eKind == KindFunction ? ReadInt(nOffset) : 1;
        if (!IsIn(nStated, MAX_VARIABLES))
            return false;
        block.nVariables = RealArrayCount(m_layout, m_eKind, int(nStated));
        return Append(block);
    }

    /** False if the block doesn't end within the file; so m_nEnd can't overflow however many follow. */
    bool Append(SPlot3DBlock block)
    {
        block.nOffset = m_nEnd;
        m_nEnd += BlockSize(m_layout, m_eKind, block);
        m_blocks.append(block);
        return m_nEnd <= m_header.FileSize();
    }

    bool IsEndAt(qint64 nEnd)
    {
        if (m_eFit == FitExact)
            return nEnd == m_header.FileSize();
        return m_header.IsZeroFrom(nEnd, MAX_PADDING) && HaveDataMarkers();
    }

    bool HaveDataMarkers()
    {
        return std::ranges::all_of(m_blocks, [this](const SPlot3DBlock& block) {
            const qint64 nHeader = QHeaderSize(m_layout, m_eKind);
            return (nHeader == 0 || HasDataMarkers(block.nOffset, Q_HEADER_REALS * m_layout.nRealSize)) &&
                   HasDataMarkers(block.nOffset + nHeader, DataSize(m_layout, block));
        });
    }

    /** Straight from the file: the records stand far from each other. */
    bool HasDataMarkers(qint64 nRecordOffset, qint64 nBytes)
    {
        const int nSize = m_layout.nMarkerSize;
        return nSize == 0 ||
               (m_header.IsIntInFile(nRecordOffset, nSize, m_layout.bIsSwapped, nBytes) &&
                m_header.IsIntInFile(nRecordOffset + nSize + nBytes, nSize, m_layout.bIsSwapped, nBytes));
    }

    CFileHeader& m_header;
    const FileKind_e m_eKind;
    const SFileLayout m_layout;
    const Fit_e m_eFit;
    QVector<SPlot3DBlock> m_blocks;
    qint64 m_nEnd = 0; // of what is known so far
};

SPlot3DFile MakeFile(const SPlot3DFormat& format, const SFileLayout& layout, QVector<SPlot3DBlock> blocks)
{
    return {format.nCode, format.eKind, layout, std::move(blocks)};
}

/** All layouts of a binary code, in their order. */
std::vector<SFileLayout> LayoutsOf(const SPlot3DFormat& format)
{
    std::vector<SFileLayout> layouts;
    SFileLayout layout = LayoutOfCode(format.nCode);
    const std::span<const quint8> markers =
        format.bFortran ? std::span<const quint8>(s_recordMarkers) : std::span<const quint8>(s_noMarkers);
    for (const quint8 nMarkerSize : markers)
        for (const quint8 nIntSize : s_intSizes)
            for (const bool bSwapped : {false, true}) {
                layout.nMarkerSize = nMarkerSize;
                layout.nIntSize = nIntSize;
                layout.bIsSwapped = bSwapped;
                layouts.push_back(layout);
            }
    return layouts;
}

/** The file in one layout; not detected if it doesn't fit. */
SPlot3DFile ProbeLayout(CFileHeader& header, const SPlot3DFormat& format, const SFileLayout& layout,
                        Fit_e eFit)
{
    QVector<SPlot3DBlock> blocks = CLayoutProbe(header, format.eKind, layout, eFit).Run();
    return blocks.isEmpty() ? SPlot3DFile() : MakeFile(format, layout, std::move(blocks));
}

bool IsFound(const SPlot3DFile& file, const FileTest& isWanted)
{
    return file.IsDetected() && (!isWanted || isWanted(file));
}

SPlot3DFile ProbeBinary(CFileHeader& header, const SPlot3DFormat& format, Fit_e eFit,
                        const FileTest& isWanted)
{
    for (const SFileLayout& layout : LayoutsOf(format))
        if (SPlot3DFile file = ProbeLayout(header, format, layout, eFit); IsFound(file, isWanted))
            return file;
    return {};
}

SPlot3DFile ProbeText(const CReadFile& file, const SPlot3DFormat& format, const FileTest& isWanted)
{
    if (!format.bDouble) // text tells no precision: what fits was taken under the code of doubles already
        return {};
    QVector<SPlot3DBlock> blocks = ScanTextGrid(file, format.bMultiBlock, format.b3D);
    if (blocks.isEmpty())
        return {};
    SPlot3DFile found = MakeFile(format, LayoutOfCode(format.nCode), std::move(blocks));
    return IsFound(found, isWanted) ? found : SPlot3DFile();
}

SPlot3DFile Probe(const CReadFile& file, std::span<const SPlot3DFormat> formats, Fit_e eFit,
                  const FileTest& isWanted = {})
{
    if (!file.IsOpen() || file.Size() == 0)
        return {};
    CFileHeader header(file);
    for (const SPlot3DFormat& format : formats) {
        if (format.bFormatted && eFit == FitPadded)
            continue;
        SPlot3DFile found = format.bFormatted ? ProbeText(file, format, isWanted)
                                              : ProbeBinary(header, format, eFit, isWanted);
        if (found.IsDetected())
            return found;
    }
    return {};
}

SPlot3DFile Detect(const QString& sFileName, std::span<const SPlot3DFormat> formats, const FileTest& isWanted)
{
    CReadFile file;
    file.Open(sFileName);
    const SPlot3DFile found = Probe(file, formats, FitExact, isWanted);
    return found.IsDetected() ? found : Probe(file, formats, FitPadded, isWanted);
}

} // namespace

SPlot3DFile ProbeGrid(const CReadFile& file, Fit_e eFit) { return Probe(file, GridFormats(), eFit); }

SPlot3DFile ProbeSolution(const CReadFile& file, Fit_e eFit) { return Probe(file, SolutionFormats(), eFit); }

SPlot3DFile DetectPlot3DGrid(const QString& sFileName, const FileTest& isWanted)
{
    return Detect(sFileName, GridFormats(), isWanted);
}

SPlot3DFile DetectPlot3DSolution(const QString& sFileName, const FileTest& isWanted)
{
    return Detect(sFileName, SolutionFormats(), isWanted);
}

FileTest HasBlocksOf(const SPlot3DFile& like)
{
    if (!like.IsDetected())
        return {};
    return [like](const SPlot3DFile& file) {
        return file.eKind == like.eKind && BlockDimensions(file) == BlockDimensions(like);
    };
}

SPlot3DFile DetectPlot3DLike(const QString& sFileName, const SPlot3DFile& like)
{
    CReadFile file;
    const SPlot3DFormat format = FindFormat(like.nCode);
    if (format.eKind == KindNone || format.bFormatted || !file.Open(sFileName) || file.Size() == 0)
        return {};
    CFileHeader header(file);
    const SPlot3DFile found = ProbeLayout(header, format, like.layout, FitExact);
    return found.IsDetected() ? found : ProbeLayout(header, format, like.layout, FitPadded);
}
