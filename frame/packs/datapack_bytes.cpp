// The wire format of packs, docs/formats/datapack.md.
#include "frame/packs/datapack.h"

#include "frame/packs/bytestream.h"

namespace {
constexpr int MAX_DEPTH = 200;          // levels of children that are read; nobody nests deeper
constexpr qint64 NAME_SIZE = 4;         // [bytes] of the shortest name: its length alone
constexpr qint64 EMPTY_PACK_SIZE = 100; // [bytes] 15 key lists and 10 counts of values, four bytes each

template <class T, class... Types> constexpr bool IS_ONE_OF = (std::is_same_v<T, Types> || ...);

// Values that are 8-byte numbers in memory as in the stream, and are converted a whole table at a time.
template <class T>
constexpr bool IS_WORDS = IS_ONE_OF<T, double, qint64, QPointF, IVector3D, DVector3D, DMatrix4x4>;
static_assert(sizeof(QPointF) == 16 && sizeof(IVector3D) == 24 && sizeof(DMatrix4x4) == 128);

// The tables that came last have no count before their values: there is one for each key.
template <class T> constexpr bool IS_COUNTED = !IS_ONE_OF<T, IVector3D, DVector3D, DMatrix4x4, STransform>;

// Bytes that a value takes in the stream at the least.
template <class T> constexpr qint64 LEAST_SIZE = IS_WORDS<T> ? sizeof(T) : 4; // 4: a length or a count
template <> constexpr qint64 LEAST_SIZE<bool> = 1;
template <> constexpr qint64 LEAST_SIZE<QPoint> = 8;
template <> constexpr qint64 LEAST_SIZE<QColor> = 11;
template <> constexpr qint64 LEAST_SIZE<QFont> = 43;
template <> constexpr qint64 LEAST_SIZE<STransform> = sizeof(DMatrix4x4);

void WriteValue(CByteWriter& writer, const STransform& value)
{
    writer.WriteWords(value.Matrix().d.data(), 16);
}
template <class T> void WriteValue(CByteWriter& writer, const T& value) { writer.Write(value); }

template <class T> bool ReadValue(CByteReader& reader, T& value) { return reader.Read(value); }
bool ReadValue(CByteReader& reader, STransform& value)
{
    DMatrix4x4 matrix;
    if (reader.ReadWords(matrix.d.data(), 16))
        value = STransform(matrix);
    return reader.IsOk();
}

template <class T> void WriteValues(CByteWriter& writer, const QVector<T>& values)
{
    if constexpr (IS_COUNTED<T>)
        writer.Write(qint32(values.size()));
    if constexpr (IS_WORDS<T>)
        writer.WriteWords(values.constData(), values.size() * qint64(sizeof(T) / 8));
    else
        for (const T& value : values)
            WriteValue(writer, value);
}

/** Reads as many values as there are keys; where they end early, the reader is bad. */
template <class T> void ReadValues(CByteReader& reader, QVector<T>& values, qint64 nKeys)
{
    const qint64 nCount = IS_COUNTED<T> ? reader.ReadCount(LEAST_SIZE<T>) : nKeys;
    if (nCount != nKeys)
        reader.SetBad();
    if (!reader.CheckCount(nCount, LEAST_SIZE<T>) || nCount == 0)
        return; // most tables are empty, and a vector that isn't touched costs nothing
    if constexpr (IS_WORDS<T>) {
        values.resize(int(nCount));
        reader.ReadWords(values.data(), nCount * qint64(sizeof(T) / 8));
    } else {
        values.reserve(int(nCount));
        T value{};
        while (values.size() < nCount && ReadValue(reader, value))
            values.append(value);
    }
}

template <class Table> void WriteTable(CByteWriter& writer, const Table& table)
{
    writer.Write(table.keys);
    WriteValues(writer, table.values);
}

template <class Table> void ReadTable(CByteReader& reader, Table& table)
{
    reader.Read(table.keys);
    ReadValues(reader, table.values, table.keys.size());
    while (table.keys.size() > table.values.size()) // what was read before the bytes ended stays
        table.keys.removeLast();
}
} // namespace

QByteArray CDataPack::ToBytes() const
{
    if (m_bytes.isEmpty()) {
        CByteWriter writer;
        WriteTo(writer);
        m_bytes = writer.Take();
    }
    return m_bytes;
}

void CDataPack::WriteTo(CByteWriter& writer) const
{
    std::apply([&writer](const auto&... tables) { (WriteTable(writer, tables), ...); }, m_tables);
    writer.Write(m_childNames);
    for (const CDataPack& child : m_children) {
        const qint64 nPlace = writer.BeginBytes();
        child.WriteTo(writer);
        writer.EndBytes(nPlace);
    }
}

bool CDataPack::FromBytes(const QByteArray& bytes, double)
{
    if (!m_bytes.isEmpty() && bytes == m_bytes)
        return true;               // nothing new
    const QByteArray kept = bytes; // they may be a value of this pack
    CByteReader reader(kept);
    return ReadFrom(reader, 0);
}

bool CDataPack::ReadFrom(CByteReader& reader, int nDepth)
{
    m_bytes.clear();
    m_tables = Tables();
    m_childNames.clear();
    m_children.clear();
    std::apply([&reader](auto&... tables) { (ReadTable(reader, tables), ...); }, m_tables);
    ReadChildren(reader, nDepth);
    return reader.IsOk();
}

void CDataPack::ReadChildren(CByteReader& reader, int nDepth)
{
    QStringList names;
    reader.Read(names);
    if (!reader.CheckCount(names.size(), NAME_SIZE + EMPTY_PACK_SIZE))
        return;
    m_childNames.reserve(names.size());
    m_children.reserve(names.size());
    for (const QString& sName : names) {
        CByteReader nested = reader.ReadNested();
        if (!reader.IsOk() || nDepth == MAX_DEPTH) {
            reader.SetBad();
            return;
        }
        const qint64 nChild = AddSubPack(sName);
        if (!m_children[int(nChild)].ReadFrom(nested, nDepth + 1)) {
            reader.SetBad();
            return;
        }
    }
}
