#include "frame/packs/bytestream.h"

#include <QDataStream>

#include <limits>

namespace {
constexpr quint32 NULL_LENGTH = 0xffffffff; // stands for the length of a null string or byte array
constexpr qint64 STRING_LEAST = 4;          // [bytes] its length alone
constexpr qint64 COLOR_SIZE = 11;           // [bytes] spec and five shorts
// [bytes] of a font between its two names and its list of families: point size (8), pixel size (4), style
// hint (1), strategy (2), a zero (1), weight (1), bits (1), stretch (2), more bits (1), letter and word
// spacing (4 + 4), hinting (1), capitalization (1)
constexpr qint64 FONT_MIDDLE = 31;

quint32 ToUnsigned(const char* pBytes) { return qFromBigEndian<quint32>(pBytes); }
} // namespace

void PrepareStream(QDataStream& stream)
{
    stream.setVersion(QDataStream::Qt_5_15);
    stream.setByteOrder(QDataStream::BigEndian);
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
}

void CByteWriter::Write(const QString& sText)
{
    if (sText.isNull()) {
        Write(qint32(NULL_LENGTH));
        return;
    }
    const qint64 nSize = 2 * qint64(sText.size());
    Write(qint32(nSize));
    qToBigEndian<quint16>(sText.utf16(), sText.size(), Grow(nSize));
}

void CByteWriter::Write(const QByteArray& bytes)
{
    if (bytes.isNull()) {
        Write(qint32(NULL_LENGTH));
        return;
    }
    Write(qint32(bytes.size()));
    std::memcpy(Grow(bytes.size()), bytes.constData(), bytes.size());
}

void CByteWriter::Write(const QStringList& texts)
{
    Write(qint32(texts.size()));
    for (const QString& sText : texts)
        Write(sText);
}

void CByteWriter::Write(const QVector<qint64>& values)
{
    Write(qint32(values.size()));
    WriteWords(values.constData(), values.size());
}

void CByteWriter::Write(const QPoint& point)
{
    Write(qint32(point.x()));
    Write(qint32(point.y()));
}

// Their fields can't be reached one by one; both are rare.
void CByteWriter::Write(const QColor& color) { WriteStreamed(color); }
void CByteWriter::Write(const QFont& font) { WriteStreamed(font); }

template <class T> void CByteWriter::WriteStreamed(const T& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    PrepareStream(stream);
    stream << value;
    std::memcpy(Grow(bytes.size()), bytes.constData(), bytes.size());
}

qint64 CByteWriter::BeginBytes()
{
    Write(qint32(0));
    return m_nSize;
}

void CByteWriter::EndBytes(qint64 nPlace)
{
    qToBigEndian(qint32(m_nSize - nPlace), m_bytes.data() + nPlace - 4);
}

QByteArray CByteWriter::Take()
{
    m_bytes.resize(int(m_nSize));
    m_bytes.squeeze(); // undo keeps hundreds of these
    m_nSize = 0;
    return std::exchange(m_bytes, QByteArray());
}

void CByteWriter::Enlarge(qint64 nSize)
{
    constexpr qint64 FIRST_SIZE = 1024;
    constexpr qint64 MAX_SIZE = std::numeric_limits<int>::max() - 64; // a QByteArray holds no more
    const qint64 nNeeded = m_nSize + nSize;
    m_bytes.resize(int(std::max(nNeeded, std::min(std::max(FIRST_SIZE, 2 * m_nSize), MAX_SIZE))));
}

void CByteReader::SetBad()
{
    m_bOk = false;
    m_pNext = m_pEnd;
}

const char* CByteReader::Skip(qint64 nSize)
{
    if (nSize > BytesLeft())
        SetBad();
    if (!m_bOk)
        return nullptr;
    const char* const pBytes = m_pNext;
    m_pNext += nSize;
    return pBytes;
}

const char* CByteReader::SkipCounted(qint64& nSize)
{
    nSize = 0;
    const char* const pLength = Skip(4);
    if (!pLength)
        return nullptr;
    const quint32 nLength = ToUnsigned(pLength);
    nSize = nLength == NULL_LENGTH ? -1 : qint64(nLength);
    const char* const pBytes = nSize < 0 ? nullptr : Skip(nSize);
    if (!m_bOk)
        nSize = 0;
    return pBytes;
}

bool CByteReader::Read(bool& bValue)
{
    if (const char* const pByte = Skip(1))
        bValue = *pByte != 0;
    return m_bOk;
}

bool CByteReader::Read(qint32& nValue)
{
    if (const char* const pBytes = Skip(4))
        nValue = qFromBigEndian<qint32>(pBytes);
    return m_bOk;
}

bool CByteReader::Read(qint64& nValue)
{
    if (const char* const pBytes = Skip(8))
        nValue = qFromBigEndian<qint64>(pBytes);
    return m_bOk;
}

bool CByteReader::Read(QString& sText)
{
    qint64 nSize;
    const char* const pBytes = SkipCounted(nSize);
    if (nSize % 2 == 1)
        SetBad(); // half a character
    if (!m_bOk)
        return false;
    if (!pBytes) {
        sText = QString();
        return true;
    }
    sText = QString(int(nSize / 2), Qt::Uninitialized); // empty, but not null, for 0
    qFromBigEndian<quint16>(pBytes, nSize / 2, sText.data());
    return true;
}

bool CByteReader::Read(QByteArray& bytes)
{
    qint64 nSize;
    const char* const pBytes = SkipCounted(nSize);
    if (m_bOk)
        bytes = pBytes ? QByteArray(pBytes, int(nSize)) : QByteArray();
    return m_bOk;
}

bool CByteReader::Read(QStringList& texts)
{
    texts.clear();
    const qint32 nCount = ReadCount(STRING_LEAST);
    texts.reserve(nCount);
    QString sText;
    for (qint32 n = 0; n < nCount && Read(sText); ++n)
        texts.append(sText);
    return m_bOk;
}

bool CByteReader::Read(QVector<qint64>& values)
{
    values.resize(ReadCount(sizeof(qint64)));
    return ReadWords(values.data(), values.size());
}

bool CByteReader::Read(QPoint& point)
{
    qint32 nX = 0;
    qint32 nY = 0;
    if (Read(nX) && Read(nY))
        point = QPoint(nX, nY);
    return m_bOk;
}

bool CByteReader::Read(QColor& color)
{
    const char* const pBytes = Skip(COLOR_SIZE);
    if (pBytes && (*pBytes < QColor::Invalid || *pBytes > QColor::ExtendedRgb))
        SetBad(); // QDataStream would make a colour of no kind
    return m_bOk && ReadStreamed(color, pBytes, COLOR_SIZE);
}

bool CByteReader::Read(QFont& font)
{
    // QDataStream reserves as many families as the bytes claim, so it gets only a font that was walked.
    const char* const pBegin = m_pNext;
    SkipString();
    SkipString();
    Skip(FONT_MIDDLE);
    const qint32 nFamilies = ReadCount(STRING_LEAST);
    for (qint32 n = 0; n < nFamilies && SkipString(); ++n) {
    }
    return m_bOk && ReadStreamed(font, pBegin, m_pNext - pBegin);
}

bool CByteReader::SkipString()
{
    qint64 nSize;
    SkipCounted(nSize);
    if (nSize > 0 && nSize % 2 == 1)
        SetBad();
    return m_bOk;
}

template <class T> bool CByteReader::ReadStreamed(T& value, const char* pBytes, qint64 nSize)
{
    const QByteArray view = QByteArray::fromRawData(pBytes, int(nSize));
    QDataStream stream(view);
    PrepareStream(stream);
    stream >> value;
    if (stream.status() != QDataStream::Ok)
        SetBad();
    return m_bOk;
}

bool CByteReader::ReadWords(void* pWords, qint64 nWords)
{
    if (!CheckCount(nWords, 8))
        return false;
    if (nWords == 0)
        return true;
    qFromBigEndian<quint64>(Skip(8 * nWords), nWords, pWords);
    return true;
}

qint32 CByteReader::ReadCount(qint64 nLeastSize)
{
    qint32 nCount = 0;
    return Read(nCount) && CheckCount(nCount, nLeastSize) ? nCount : 0;
}

bool CByteReader::CheckCount(qint64 nCount, qint64 nLeastSize)
{
    if (nCount < 0 || nCount > BytesLeft() / nLeastSize)
        SetBad();
    return m_bOk;
}

CByteReader CByteReader::ReadNested()
{
    qint64 nSize;
    const char* const pBytes = SkipCounted(nSize);
    CByteReader nested(pBytes, pBytes ? nSize : 0);
    nested.m_bOk = m_bOk;
    return nested;
}
