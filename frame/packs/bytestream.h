#pragma once

#include "frame/transform.h"

#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QtEndian>

#include <cstring>

class QDataStream;

/**
 * Gives the stream the one form in which all binary streams of the program are written and read: Qt_5_15,
 * big-endian, double precision. Every QDataStream of the program goes through here, since another version
 * would change files.
 */
void PrepareStream(QDataStream& stream);

/**
 * Appends values to a byte array, byte for byte as a prepared QDataStream would, at several times its speed.
 *
 *     CByteWriter writer;
 *     writer.Write(sName);
 *     writer.Write(qint64(nRows));
 *     return writer.Take();
 */
class CByteWriter
{
public:
    void Write(bool bValue) { *Grow(1) = bValue ? 1 : 0; }
    void Write(qint32 nValue) { qToBigEndian(nValue, Grow(4)); }
    void Write(qint64 nValue) { qToBigEndian(nValue, Grow(8)); }
    void Write(double dValue) { WriteWords(&dValue, 1); }
    void Write(const QString& sText); // a null one and an empty one differ
    void Write(const QByteArray& bytes);
    void Write(const QStringList& texts);
    void Write(const QVector<qint64>& values);
    void Write(const QPoint& point);
    void Write(const QColor& color);
    void Write(const QFont& font);
    void Write(const char*) = delete; // it would pass as a bool

    /** Values of 8 bytes one after the other, without a count. */
    void WriteWords(const void* pWords, qint64 nWords)
    {
        qToBigEndian<quint64>(pWords, nWords, Grow(8 * nWords));
    }

    /**
     * What is written between the two is one byte array, as if it had been put together apart and written
     * then. BeginBytes gives what EndBytes takes; pairs may nest.
     */
    qint64 BeginBytes();
    void EndBytes(qint64 nPlace);

    /** All that was written; the writer is empty afterwards. */
    QByteArray Take();

private:
    /** Room for nSize more bytes; valid until the next call. */
    char* Grow(qint64 nSize)
    {
        if (m_nSize + nSize > m_bytes.size())
            Enlarge(nSize);
        char* const pPlace = m_bytes.data() + m_nSize;
        m_nSize += nSize;
        return pPlace;
    }
    void Enlarge(qint64 nSize);
    template <class T> void WriteStreamed(const T& value);

    QByteArray m_bytes; // longer than what is written: growing in steps keeps Grow inline
    qint64 m_nSize = 0;
};

/**
 * Reads what CByteWriter or a prepared QDataStream wrote, and trusts nothing: every length is held against
 * the bytes that are left before anything is allocated. After the first failure all reads fail; a failed read
 * leaves its value as it was, or, for a list, with the elements that could be read.
 *
 * It looks at foreign memory and must not outlive it; nothing that it gives keeps a view on it.
 */
class CByteReader
{
public:
    explicit CByteReader(const QByteArray& bytes) : CByteReader(bytes.constData(), bytes.size()) {}
    CByteReader(const char* pBytes, qint64 nSize) : m_pNext(pBytes), m_pEnd(pBytes + nSize) {}

    bool IsOk() const { return m_bOk; }
    /** For the caller who finds the content wrong. */
    void SetBad();
    qint64 BytesLeft() const { return m_pEnd - m_pNext; }

    /** All give IsOk(). Any byte but 0 is true. */
    bool Read(bool& bValue);
    bool Read(qint32& nValue);
    bool Read(qint64& nValue);
    bool Read(double& dValue) { return ReadWords(&dValue, 1); }
    bool Read(QString& sText);
    bool Read(QByteArray& bytes);
    bool Read(QStringList& texts);
    bool Read(QVector<qint64>& values);
    bool Read(QPoint& point);
    bool Read(QColor& color);
    bool Read(QFont& font);

    /** Values of 8 bytes one after the other. */
    bool ReadWords(void* pWords, qint64 nWords);

    /**
     * Reads a count of elements that take nLeastSize bytes or more each.
     *
     * @return 0, with the reader bad, for a count that is negative or can't be in the bytes that are left
     */
    qint32 ReadCount(qint64 nLeastSize);
    /** Whether so many elements can be in the bytes that are left; the reader is bad if not. */
    bool CheckCount(qint64 nCount, qint64 nLeastSize);

    /** Reads a byte array without copying it: a reader of its content, bad if it isn't all there. */
    CByteReader ReadNested();

private:
    /** The next nSize bytes, null (and bad) if there are fewer. */
    const char* Skip(qint64 nSize);
    /** The bytes of a string or byte array; null with nSize -1 for a null one, and with nSize 0 if bad. */
    const char* SkipCounted(qint64& nSize);
    bool SkipString();
    template <class T> bool ReadStreamed(T& value, const char* pBytes, qint64 nSize);

    const char* m_pNext;
    const char* m_pEnd;
    bool m_bOk = true;
};
