#include "tests/support/plot3dfile.h"

#include <QDataStream>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/** Appends items in the layout's sizes and byte order. */
class CItemWriter
{
public:
    explicit CItemWriter(const SFileLayout& layout) : m_layout(layout) {}

    void Int(qint64 nValue) { AppendInt(nValue, m_layout.nIntSize); }
    void Real(double dValue)
    {
        if (m_layout.nRealSize == 8)
            Append(dValue);
        else
            Append(float(dValue));
    }
    /** What write appends becomes one record. */
    void Record(const std::function<void()>& write)
    {
        const QByteArray former = std::exchange(m_bytes, {});
        write();
        const QByteArray data = std::exchange(m_bytes, former);
        Marker(data.size());
        m_bytes.append(data);
        Marker(data.size());
    }

    QByteArray m_bytes;

private:
    void Marker(qint64 nBytes)
    {
        if (m_layout.nMarkerSize > 0)
            AppendInt(nBytes, m_layout.nMarkerSize);
    }
    void AppendInt(qint64 nValue, int nSize)
    {
        if (nSize == 8)
            Append(nValue);
        else
            Append(qint32(nValue));
    }
    template <class T> void Append(T value)
    {
        auto* const pBytes = reinterpret_cast<char*>(&value);
        if (m_layout.bIsSwapped)
            std::reverse(pBytes, pBytes + sizeof value);
        m_bytes.append(pBytes, sizeof value);
    }

    const SFileLayout m_layout;
};

void WriteDimensions(CItemWriter& out, const SFileLayout& layout, FileKind_e eKind,
                     const Plot3DFixture::SBlock& block)
{
    for (int nAxis = 0; nAxis < (layout.bIs3D ? 3 : 2); ++nAxis)
        out.Int(block.size[nAxis]);
    if (eKind == KindFunction)
        out.Int(block.nVariables);
}

int ArrayCount(const SFileLayout& layout, FileKind_e eKind, const Plot3DFixture::SBlock& block)
{
    const int nDimensions = layout.bIs3D ? 3 : 2;
    return eKind == KindFunction ? block.nVariables : eKind == KindQ ? nDimensions + 2 : nDimensions;
}

void WriteData(CItemWriter& out, const SFileLayout& layout, int nArrays, qint64 nBlock, qint64 nPoints)
{
    for (int nArray = 0; nArray < nArrays; ++nArray)
        for (qint64 n = 0; n < nPoints; ++n)
            out.Real(Plot3DFixture::Value(nBlock, nArray, n));
    for (qint64 n = 0; layout.bHasBlank && n < nPoints; ++n)
        out.Int(Plot3DFixture::Blank(nBlock, n));
}

void WriteQHeader(CItemWriter& out, qint64 nBlock)
{
    for (int n = 0; n < 4; ++n)
        out.Real(Plot3DFixture::HeaderReal(nBlock, n));
}

} // namespace

double Plot3DFixture::Value(qint64 nBlock, int nArray, qint64 nPoint)
{
    return 0.25 + 10000.0 * double(nBlock + 1) + 500.0 * nArray + double(nPoint);
}

int Plot3DFixture::Blank(qint64 nBlock, qint64 nPoint) { return int((nBlock + nPoint) % 4) - 1; }

double Plot3DFixture::HeaderReal(qint64 nBlock, int n) { return 0.5 + double(nBlock) + 10.0 * n; }

QByteArray Plot3DFixture::MakeFile(const SFileLayout& layout, FileKind_e eKind, const QVector<SBlock>& blocks)
{
    CItemWriter out(layout);
    if (layout.bIsMultiBlock)
        out.Record([&] { out.Int(blocks.size()); });
    out.Record([&] {
        for (const SBlock& block : blocks)
            WriteDimensions(out, layout, eKind, block);
    });
    for (int n = 0; n < blocks.size(); ++n) {
        const IVector3D& size = blocks[n].size;
        if (eKind == KindQ)
            out.Record([&] { WriteQHeader(out, n); });
        out.Record([&] {
            WriteData(out, layout, ArrayCount(layout, eKind, blocks[n]), n, size.i * size.j * size.k);
        });
    }
    return out.m_bytes;
}

QVector<Plot3DFixture::SBlock> Plot3DFixture::Blocks(const QVector<IVector3D>& sizes)
{
    QVector<SBlock> blocks;
    for (const IVector3D& size : sizes)
        blocks.append({size, 0});
    return blocks;
}

QString Plot3DFixture::Write(const QString& sFileName, int nCode, FileKind_e eKind,
                             const QVector<SBlock>& blocks)
{
    return Files::Write(sFileName, MakeFile(LayoutOfCode(nCode), eKind, blocks));
}

QString Plot3DFixture::WriteValues(const QString& sFileName, FileKind_e eKind,
                                   const QVector<IVector3D>& sizes, int nArrays, const Values& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    stream << qint32(sizes.size());
    for (const IVector3D& size : sizes) {
        stream << qint32(size.i) << qint32(size.j) << qint32(size.k);
        if (eKind == KindFunction)
            stream << qint32(nArrays);
    }
    for (int nBlock = 0; nBlock < sizes.size(); ++nBlock) {
        for (int n = 0; eKind == KindQ && n < 4; ++n)
            stream << 0.5F;
        const IVector3D& size = sizes[nBlock];
        for (int nArray = 0; nArray < nArrays; ++nArray)
            for (qint64 n = 0; n < size.i * size.j * size.k; ++n)
                stream << float(
                    value(nBlock, nArray, {n % size.i, n / size.i % size.j, n / size.i / size.j}));
    }
    return Files::Write(sFileName, bytes);
}
