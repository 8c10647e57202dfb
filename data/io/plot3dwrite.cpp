#include "data/io/plot3dwrite.h"

#include "data/io/plot3dformat.h"

#include <QSaveFile>

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

namespace {

constexpr size_t BUFFER_SIZE = size_t(1) << 20; // [bytes]

/** Gives a block back when it has been written. */
class CBlockLease
{
public:
    CBlockLease(IGridSource& source, qint64 nBlock)
        : m_coordinates(source.Acquire(nBlock)), m_source(source), m_nBlock(nBlock)
    {}
    ~CBlockLease() { m_source.Release(m_nBlock); }
    CBlockLease(const CBlockLease&) = delete;
    CBlockLease& operator=(const CBlockLease&) = delete;

    const SBlockCoordinates m_coordinates;

private:
    IGridSource& m_source;
    const qint64 m_nBlock;
};

qint64 CountOf(const IVector3D& size) { return size.i * size.j * size.k; }

bool IsPartOfBlock(const SBlockPart& part)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (part.first[nAxis] < 0 || part.count[nAxis] < 1 ||
            part.first[nAxis] + part.count[nAxis] > part.size[nAxis])
            return false;
    return true;
}

/** One file being written. Every Write is false once the file has failed or the user has cancelled. */
class CGridWriter
{
public:
    CGridWriter(const QString& sFileName, int nCode, IGridSource& source, IProgress* pProgress)
        : m_file(sFileName),
          m_source(source),
          m_pProgress(pProgress),
          m_bDouble(IsDoublePrecisionFormat(nCode)),
          m_bFortran(IsFortranFormat(nCode))
    {}

    SSaveResult Run()
    {
        if (const QString sWhy = CheckParts(); !sWhy.isEmpty())
            return {SaveFailed, sWhy};
        if (!m_file.open(QIODevice::WriteOnly) || !WriteAll() || !m_file.commit())
            return m_bCancelled ? SSaveResult{SaveCancelled, {}} : SSaveResult{SaveFailed, WhatFailed()};
        return {};
    }

private:
    QString WhatFailed() const
    {
        return m_sFailed.isEmpty() ? QString("%1: %2").arg(m_file.fileName(), m_file.errorString())
                                   : m_sFailed;
    }

    /** Why it can't be done; empty if it can. Counts what there is to do. */
    QString CheckParts()
    {
        if (m_source.GetBlockCount() > std::numeric_limits<qint32>::max() / 12)
            return QString("%1 blocks are more than a file can count").arg(m_source.GetBlockCount());
        for (qint64 n = 0; n < m_source.GetBlockCount(); ++n) {
            const SBlockPart part = m_source.GetPart(n);
            if (!IsPartOfBlock(part))
                return QString("Block %1: the range lies outside of the grid").arg(n + 1);
            if (m_bFortran && DataBytes(part) > MAX_RECORD)
                return QString("Block %1: %2 bytes are more than a record can hold")
                    .arg(n + 1)
                    .arg(DataBytes(part));
            m_nTotal += DataBytes(part);
        }
        return {};
    }

    qint64 DataBytes(const SBlockPart& part) const { return 3 * CountOf(part.count) * (m_bDouble ? 8 : 4); }

    bool WriteAll()
    {
        if (!WriteHeader())
            return false;
        for (qint64 n = 0; n < m_source.GetBlockCount(); ++n)
            if (!AskProgress() || !WriteBlock(n))
                return false;
        return Flush();
    }

    bool WriteHeader()
    {
        const qint64 nBlocks = m_source.GetBlockCount();
        std::vector<qint32> sizes;
        for (qint64 n = 0; n < nBlocks; ++n) {
            const IVector3D count = m_source.GetPart(n).count;
            sizes.insert(sizes.end(), {qint32(count.i), qint32(count.j), qint32(count.k)});
        }
        const qint32 nCount = qint32(nBlocks);
        return WriteIntRecord({&nCount, 1}) && WriteIntRecord(sizes);
    }

    bool WriteIntRecord(std::span<const qint32> integers)
    {
        const qint64 nBytes = qint64(integers.size_bytes());
        return WriteMarker(nBytes) && Write<qint32>(integers) && WriteMarker(nBytes);
    }

    bool WriteMarker(qint64 nBytes)
    {
        const qint32 nMarker = qint32(nBytes);
        return !m_bFortran || Write<qint32>(std::span(&nMarker, 1));
    }

    bool WriteBlock(qint64 nBlock)
    {
        const SBlockPart part = m_source.GetPart(nBlock);
        const CBlockLease lease(m_source, nBlock);
        if (!WriteMarker(DataBytes(part)))
            return false;
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            if (!WriteAxis(lease.m_coordinates, nAxis, part)) {
                m_sFailed =
                    m_sFailed.isEmpty() ? m_sFailed : QString("Block %1: ").arg(nBlock + 1) + m_sFailed;
                return false;
            }
        return WriteMarker(DataBytes(part));
    }

    bool WriteAxis(const SBlockCoordinates& coordinates, int nAxis, const SBlockPart& part)
    {
        if (qint64(coordinates.doubles[nAxis].size()) == CountOf(part.size))
            return WritePart(coordinates.doubles[nAxis], part);
        if (qint64(coordinates.singles[nAxis].size()) == CountOf(part.size))
            return WritePart(coordinates.singles[nAxis], part);
        m_sFailed = "the grid could not be loaded";
        return false;
    }

    template <class Stored> bool WritePart(std::span<const Stored> values, const SBlockPart& part)
    {
        return m_bDouble ? WriteRows<double>(values, part) : WriteRows<float>(values, part);
    }

    template <class Real, class Stored> bool WriteRows(std::span<const Stored> values, const SBlockPart& part)
    {
        if (part.count == part.size)
            return Write<Real>(values);
        for (qint64 k = 0; k < part.count.k; ++k)
            for (qint64 j = 0; j < part.count.j; ++j) {
                const qint64 nRow = (part.first.k + k) * part.size.j + part.first.j + j;
                if (!Write<Real>(values.subspan(nRow * part.size.i + part.first.i, part.count.i)))
                    return false;
            }
        return true;
    }

    /** Appends the values to the buffer as numbers of another type, or the same. */
    template <class Written, class Stored> bool Write(std::span<const Stored> values)
    {
        while (!values.empty()) {
            if (BUFFER_SIZE - m_nUsed < sizeof(Written) && !Flush())
                return false;
            const size_t nCount = std::min(values.size(), (BUFFER_SIZE - m_nUsed) / sizeof(Written));
            for (size_t n = 0; n < nCount; ++n, m_nUsed += sizeof(Written)) {
                const Written value = Written(values[n]);
                std::memcpy(m_buffer.data() + m_nUsed, &value, sizeof value);
            }
            values = values.subspan(nCount);
        }
        return true;
    }

    bool Flush()
    {
        const bool bWritten = m_file.write(m_buffer.data(), qint64(m_nUsed)) == qint64(m_nUsed);
        m_nDone += qint64(m_nUsed);
        m_nUsed = 0;
        return bWritten && AskProgress();
    }

    bool AskProgress()
    {
        const double dDone = m_nTotal > 0 ? std::min(1.0, double(m_nDone) / double(m_nTotal)) : 0.0;
        m_bCancelled = m_bCancelled || (m_pProgress && !m_pProgress->Step(dDone));
        return !m_bCancelled;
    }

    QSaveFile m_file;
    IGridSource& m_source;
    IProgress* const m_pProgress;
    const bool m_bDouble;
    const bool m_bFortran;
    std::vector<char> m_buffer = std::vector<char>(BUFFER_SIZE);
    size_t m_nUsed = 0;  // of the buffer
    qint64 m_nTotal = 0; // bytes of coordinates
    qint64 m_nDone = 0;
    bool m_bCancelled = false;
    QString m_sFailed; // if it isn't the file that failed
};

} // namespace

SSaveResult WritePlot3DGrid(const QString& sFileName, int nCode, IGridSource& source, IProgress* pProgress)
{
    return CGridWriter(sFileName, nCode, source, pProgress).Run();
}
