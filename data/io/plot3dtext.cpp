#include "data/io/plot3dtext.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace {

constexpr qint64 FIRST_CHUNK = 4096; // [bytes] tells that a binary file isn't text
constexpr qint64 MAX_CHUNK = 1 << 18;
constexpr int END = -1;

enum Scan_e { ScanNumber, ScanOther, ScanEnd };

bool IsBlank(int nChar) { return nChar == ' ' || (nChar >= '\t' && nChar <= '\r'); }
bool IsDigit(int nChar) { return nChar >= '0' && nChar <= '9'; }

/** Numbers of a text from front to back, by the rules of scanf: a number ends where it can't go on. */
class CTextScanner
{
public:
    explicit CTextScanner(const CReadFile& file) : m_file(file) {}

    /** Where the next character stands. */
    qint64 Offset() const { return m_nChunkOffset + qint64(m_nNext); }

    /** An integer from 1 to nMax, or 0. */
    qint64 ScanCount(qint64 nMax)
    {
        SkipBlanks();
        SkipSign('+');
        if (!IsDigit(Peek()))
            return 0;
        qint64 nValue = 0;
        for (; IsDigit(Peek()); Skip())
            nValue = std::min<qint64>(10 * nValue + (Peek() - '0'), std::numeric_limits<qint32>::max());
        return nValue <= nMax ? nValue : 0;
    }

    Scan_e ScanReal()
    {
        SkipBlanks();
        if (Peek() == END)
            return ScanEnd;
        if (!SkipSign('+'))
            SkipSign('-');
        if (Lower() == 'n')
            return SkipWord("nan");
        if (Lower() == 'i')
            return SkipWord("inf");
        return SkipDecimal() ? ScanNumber : ScanOther;
    }

private:
    int Peek() { return m_nNext < m_chunk.size() || ReadChunk() ? quint8(m_chunk[m_nNext]) : END; }
    int Lower() { return Peek() | 0x20; }
    void Skip() { ++m_nNext; }

    void SkipBlanks()
    {
        while (IsBlank(Peek()))
            Skip();
    }

    bool SkipSign(int nSign)
    {
        const bool bFound = Peek() == nSign;
        if (bFound)
            Skip();
        return bFound;
    }

    bool SkipDigits()
    {
        const bool bFound = IsDigit(Peek());
        while (IsDigit(Peek()))
            Skip();
        return bFound;
    }

    Scan_e SkipWord(const char* sWord)
    {
        for (; *sWord != '\0'; ++sWord, Skip())
            if (Lower() != *sWord)
                return ScanOther;
        return ScanNumber;
    }

    bool SkipDecimal()
    {
        bool bDigits = SkipDigits();
        if (Peek() == '.') {
            Skip();
            bDigits = SkipDigits() || bDigits;
        }
        if (!bDigits || Lower() != 'e')
            return bDigits;
        Skip();
        if (!SkipSign('+'))
            SkipSign('-');
        return SkipDigits();
    }

    bool ReadChunk()
    {
        const qint64 nOffset = Offset();
        const qint64 nSize =
            std::min(m_file.Size() - nOffset, std::clamp(2 * nOffset, FIRST_CHUNK, MAX_CHUNK));
        m_nChunkOffset = nOffset;
        m_nNext = 0;
        m_chunk.resize(std::max<qint64>(nSize, 0));
        if (!m_chunk.empty() && !m_file.Read(nOffset, std::as_writable_bytes(std::span(m_chunk))))
            m_chunk.clear();
        return !m_chunk.empty();
    }

    const CReadFile& m_file;
    std::vector<char> m_chunk;
    qint64 m_nChunkOffset = 0;
    size_t m_nNext = 0; // in m_chunk
};

bool ScanDimensions(CTextScanner& scanner, bool b3D, SPlot3DBlock& block)
{
    block.size.k = 1;
    block.nVariables = b3D ? 3 : 2;
    for (int nAxis = 0; nAxis < block.nVariables; ++nAxis) {
        block.size[nAxis] = scanner.ScanCount(MAX_DIMENSION);
        if (block.size[nAxis] == 0)
            return false;
    }
    return true;
}

bool ScanReals(CTextScanner& scanner, qint64 nCount)
{
    for (qint64 n = 0; n < nCount; ++n)
        if (scanner.ScanReal() != ScanNumber)
            return false;
    return true;
}

bool ScanHeader(CTextScanner& scanner, bool bMultiBlock, bool b3D, QVector<SPlot3DBlock>& blocks)
{
    const qint64 nBlocks = bMultiBlock ? scanner.ScanCount(MAX_BLOCKS) : 1;
    for (qint64 n = 0; n < nBlocks; ++n) {
        blocks.append(SPlot3DBlock());
        if (!ScanDimensions(scanner, b3D, blocks.last()))
            return false;
    }
    return nBlocks > 0;
}

} // namespace

QVector<SPlot3DBlock> ScanTextGrid(const CReadFile& file, bool bMultiBlock, bool b3D)
{
    CTextScanner scanner(file);
    QVector<SPlot3DBlock> blocks;
    if (!ScanHeader(scanner, bMultiBlock, b3D, blocks))
        return {};
    for (SPlot3DBlock& block : blocks) {
        block.nOffset = scanner.Offset();
        const qint64 nReals = block.PointCount() * block.nVariables;
        if (nReals > file.Size() - block.nOffset) // each takes a byte at least
            return {};
        if (!ScanReals(scanner, nReals))
            return {};
    }
    return scanner.ScanReal() == ScanOther ? blocks : QVector<SPlot3DBlock>();
}
