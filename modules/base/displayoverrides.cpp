#include "modules/base/displayoverrides.h"

#include <QHash>
#include <QJsonArray>

#include <cmath>

namespace {

enum Type_e { TypeNumber, TypeBool, TypeString, TypePoint, TypeDirection, TypeIndices, TypePoints };

bool IsArrayOf(const QJsonValue& value, int nSize, bool (*fits)(const QJsonValue&))
{
    const QJsonArray array = value.toArray();
    return value.isArray() && (nSize < 0 || array.size() == nSize) &&
           std::all_of(array.begin(), array.end(), fits);
}
bool IsNumber(const QJsonValue& value) { return value.isDouble(); }
bool IsPoint(const QJsonValue& value) { return IsArrayOf(value, 3, IsNumber); }
bool IsInteger(const QJsonValue& value)
{
    return value.isDouble() && std::abs(value.toDouble()) < 1e15 &&
           value.toDouble() == std::floor(value.toDouble());
}

/** What a value has to be, and how that is said. */
struct STypeRow
{
    Type_e eType;
    const char* sError;
    bool (*fits)(const QJsonValue&);
};

constexpr STypeRow s_types[] = {
    {TypeNumber, "'%1': must be a number", IsNumber},
    {TypeBool, "'%1': must be true/false", [](const QJsonValue& value) { return value.isBool(); }},
    {TypeString, "'%1': must be a string", [](const QJsonValue& value) { return value.isString(); }},
    {TypePoint, "'%1': must be [x, y, z]", IsPoint},
    {TypeDirection, "'%1': must be a number (0=I, 1=J, 2=K)",
     [](const QJsonValue& v) { return IsInteger(v) && v.toDouble() >= 0.0 && v.toDouble() <= 2.0; }},
    {TypeIndices, "'%1': must be [i, j, k]",
     [](const QJsonValue& value) { return IsArrayOf(value, 3, IsInteger); }},
    {TypePoints, "'%1': must be array of [x, y, z]",
     [](const QJsonValue& value) { return IsArrayOf(value, -1, IsPoint); }},
};

/** Empty if the value is of the type. */
QString TypeError(const QString& sKey, Type_e eType, const QJsonValue& value)
{
    const STypeRow& row = s_types[eType];
    return row.fits(value) ? QString() : QString(row.sError).arg(sKey);
}

// Where a field of an entry stands: in the entry itself, or in an object or in all objects of a list in it.
enum Place_e { PlaceEntry, PlaceObject, PlaceList };

constexpr const char *SURFACE = "surface", *STREAMLINE = "streamline", *DATA_FILES = "dataFiles";
constexpr const char *BLOCKS = "meshBlocks", *FORMER_BLOCKS = "blocks", *SURFACES = "surfaces",
                     *BLOCK_NAME = "blockName", *DISPLAY = "disp";
constexpr const char *SEEDS = "seeds", *SEED_DRAWABLE = "seedDrawable", *SEED_PLACES = "xyzList";
constexpr const char* SEED_HINTS[] = {"seedZoneIds", "seedIJKs"}; // of the seeds that were

/** A field of the entries of a list. */
struct SFieldRow
{
    const char* sHead;
    const char* sList;
    const char* sField;
    Type_e eType;
    Place_e ePlace;
    const char* sPlace;
};

constexpr SFieldRow s_fields[] = {
    {"coordinateSurface", "coordinateSurfaces", "planeNormal", TypePoint, PlaceObject, "selectable"},
    {"coordinateSurface", "coordinateSurfaces", "planeValue", TypeNumber, PlaceObject, "selectable"},
    {"isoSurface", "isoSurfaces", "isoVariable", TypeString, PlaceList, "drawables"},
    {"isoSurface", "isoSurfaces", "isoValue", TypeNumber, PlaceList, "drawables"},
    {"isoSurface", "isoSurfaces", "scalarVariable", TypeString, PlaceList, "drawables"},
    {"extremePoint", "extremePoints", "extremeVariable", TypeString, PlaceEntry, ""},
    {STREAMLINE, "streamlines", "showSeeds", TypeBool, PlaceEntry, ""},
    {STREAMLINE, "streamlines", SEEDS, TypePoints, PlaceObject, SEED_DRAWABLE},
};

bool IsSeeds(const SFieldRow& row) { return row.sField == SEEDS; }
const char* MemberOf(const SFieldRow& row) { return IsSeeds(row) ? SEED_PLACES : row.sField; }

/** A field of mirror or sectors: an axis letter behind the head. */
struct SPairRow
{
    const char* sField; ///< in the table: what stands ahead of the letter
    const char* sMember;
    Type_e eType;
};

constexpr SPairRow s_mirrorFields[] = {{"", "mirror", TypeBool}, {"offset", "offset", TypeNumber}};
constexpr SPairRow s_sectorFields[] = {{"", "periodic", TypeBool}, {"sector", "sector", TypeNumber}};

/** Mirror or sectors. */
struct SPairHead
{
    const char* sHead;
    const char* sUnknown;
    const SPairRow (&rows)[2];
    QJsonObject SOverridable::*pObject;
};

const SPairHead s_pairHeads[] = {
    {"mirror", "Unknown mirror field: '%1'", s_mirrorFields, &SOverridable::mirror},
    {"periodicMirror", "Unknown periodicMirror field: '%1'", s_sectorFields, &SOverridable::sectors},
};

QString Member(const char* sStart, int nAxis) { return sStart + QString(QChar("XYZ"[nAxis])); }

const SFieldRow* FindField(const QString& sHead, const QString& sField)
{
    for (const SFieldRow& row : s_fields)
        if (sHead == row.sHead && sField == row.sField)
            return &row;
    return nullptr;
}

const SFieldRow* FindList(const QString& sHead)
{
    for (const SFieldRow& row : s_fields)
        if (sHead == row.sHead)
            return &row;
    return nullptr;
}

QJsonValue ValueIn(const QJsonObject& entry, const SFieldRow& row)
{
    if (row.ePlace == PlaceEntry)
        return entry[row.sField];
    if (row.ePlace == PlaceObject)
        return entry[row.sPlace].toObject()[MemberOf(row)];
    return entry[row.sPlace].toArray().first().toObject()[row.sField];
}

void SetIn(QJsonObject& entry, const SFieldRow& row, const QJsonValue& value)
{
    if (row.ePlace == PlaceEntry) {
        entry[row.sField] = value;
        return;
    }
    if (row.ePlace == PlaceObject) {
        QJsonObject object = entry[row.sPlace].toObject();
        object[MemberOf(row)] = value;
        entry[row.sPlace] = object;
        for (const char* const sHint : SEED_HINTS)
            if (IsSeeds(row))
                entry.remove(sHint);
        return;
    }
    QJsonArray list = entry[row.sPlace].toArray();
    for (auto object : list) {
        QJsonObject changed = object.toObject();
        changed[row.sField] = value;
        object = changed;
    }
    entry[row.sPlace] = list;
}

/** The list of blocks: new files and older ones name it differently. */
QString BlocksMember(const QJsonObject& display)
{
    return !display.contains(BLOCKS) && display.contains(FORMER_BLOCKS) ? FORMER_BLOCKS : BLOCKS;
}

/** A key in its parts. */
struct SKeyParts
{
    explicit SKeyParts(const QString& sWhole) : sKey(sWhole), sPartList(sWhole.split('.', Qt::SkipEmptyParts))
    {}
    QString Head() const { return sPartList.value(0); }
    QString FromEnd(int n) const { return sPartList.value(sPartList.size() - n); }
    /** What lies between the head and the last two parts, as it was written where that can be told. */
    QString BlockName() const
    {
        const QString sStart = Head() + '.', sEnd = QString(".%1.%2").arg(FromEnd(2), FromEnd(1));
        if (sKey.startsWith(sStart) && sKey.endsWith(sEnd) && sKey.size() > sStart.size() + sEnd.size())
            return sKey.mid(sStart.size(), sKey.size() - sStart.size() - sEnd.size());
        return QStringList(sPartList.mid(1, sPartList.size() - 3)).join('.');
    }

    QString sKey;
    QStringList sPartList;
};

/** Applies keys one by one; each gives its error, or an empty text. */
class CApplier
{
public:
    explicit CApplier(SOverridable& values) : m_values(values) {}
    ~CApplier()
    {
        if (!m_changedBlocks.isEmpty())
            m_values.display[BlocksMember(m_values.display)] = m_changedBlocks;
    }
    CApplier(const CApplier&) = delete;
    CApplier& operator=(const CApplier&) = delete;

    QString Apply(const QString& sKey, const QJsonValue& value)
    {
        const SKeyParts parts(sKey);
        if (parts.sPartList.size() < 2)
            return QString("Invalid override key: '%1'").arg(sKey);
        for (const SPairHead& head : s_pairHeads)
            if (parts.Head() == head.sHead)
                return ApplyToPair(head, parts, value);
        if (parts.Head() == SURFACE)
            return ApplyToSurface(parts, value);
        if (FindList(parts.Head()))
            return ApplyToList(parts, value);
        return parts.Head() == DATA_FILES ? QString() : QString("Unknown override key: '%1'").arg(sKey);
    }

private:
    QString ApplyToPair(const SPairHead& head, const SKeyParts& parts, const QJsonValue& value)
    {
        const QString sField = QStringList(parts.sPartList.mid(1)).join('.');
        for (const SPairRow& row : head.rows)
            for (int nAxis = 0; nAxis < 3; ++nAxis) {
                if (sField != Member(row.sField, nAxis))
                    continue;
                const QString sError = TypeError(parts.sKey, row.eType, value);
                if (sError.isEmpty())
                    (m_values.*head.pObject)[Member(row.sMember, nAxis)] = value;
                return sError;
            }
        return QString(head.sUnknown).arg(sField);
    }

    QString ApplyToList(const SKeyParts& parts, const QJsonValue& value)
    {
        const QString sHead = parts.Head(), sIndex = parts.sPartList[1];
        const QString sField = QStringList(parts.sPartList.mid(2)).join('.');
        bool bNumber = false;
        const int nIndex = sIndex.toInt(&bNumber);
        if (!bNumber)
            return QString("Invalid index: '%1'").arg(sIndex);
        const char* const sList = FindList(sHead)->sList;
        QJsonArray list = m_values.display[sList].toArray();
        if (nIndex < 0 || nIndex >= list.size())
            return QString("%1 index %2 out of range").arg(sHead, sIndex);
        if (sHead == STREAMLINE && !list[nIndex].isObject())
            return QString("streamline %1 is legacy binary, cannot override").arg(sIndex);
        const SFieldRow* const pRow = FindField(sHead, sField);
        if (!pRow)
            return QString("Unknown field: '%1'").arg(sField);
        QString sError = TypeError(parts.sKey, pRow->eType, value);
        QJsonObject entry = list[nIndex].toObject();
        if (!sError.isEmpty() || ValueIn(entry, *pRow) == value)
            return sError;
        SetIn(entry, *pRow, value);
        list[nIndex] = entry;
        m_values.display[sList] = list;
        return {};
    }

    QString ApplyToSurface(const SKeyParts& parts, const QJsonValue& value)
    {
        if (parts.sPartList.size() < 4)
            return QString("Invalid override key: '%1'").arg(parts.sKey);
        const QString sIndex = parts.FromEnd(2), sField = parts.FromEnd(1), sBlock = parts.BlockName();
        bool bNumber = false;
        const int nIndex = sIndex.toInt(&bNumber);
        if (!bNumber)
            return QString("Invalid index: '%1'").arg(sIndex);
        const int nBlock = FindBlock(sBlock);
        if (nBlock < 0)
            return QString("Block '%1' not found").arg(sBlock);
        QJsonObject block = m_blocks[nBlock].toObject();
        QJsonObject display = block[DISPLAY].toObject();
        QJsonArray surfaces = display[SURFACES].toArray();
        if (nIndex < 0 || nIndex >= surfaces.size())
            return QString("surface index %1 out of range in block '%2'").arg(sIndex, sBlock);
        const bool bDirection = sField == "constantDirection";
        if (!bDirection && sField != "constantValue")
            return QString("Unknown field: '%1'").arg(sField);
        QString sError = TypeError(parts.sKey, bDirection ? TypeDirection : TypeIndices, value);
        QJsonObject surface = surfaces[nIndex].toObject();
        if (!sError.isEmpty() || surface[sField] == value)
            return sError;
        surface[sField] = value;
        surfaces[nIndex] = surface;
        display[SURFACES] = surfaces;
        block[DISPLAY] = display;
        m_blocks[nBlock] = block;
        m_changedBlocks = m_blocks;
        return {};
    }

    /** -1 for an unknown name. A case may have thousands of blocks, and a table as many keys. */
    int FindBlock(const QString& sName)
    {
        if (!m_bBlocksKnown) {
            m_bBlocksKnown = true;
            m_blocks = m_values.display[BlocksMember(m_values.display)].toArray();
            for (int n = m_blocks.size() - 1; n >= 0; --n) // of equal names the first counts
                m_placeOfBlock.insert(m_blocks[n].toObject()[BLOCK_NAME].toString(), n);
        }
        return m_placeOfBlock.value(sName, -1);
    }

    SOverridable& m_values;
    bool m_bBlocksKnown = false;
    QJsonArray m_blocks;
    QJsonArray m_changedBlocks; // empty: none has changed
    QHash<QString, int> m_placeOfBlock;
};

void BuildPair(const SOverridable& values, QJsonObject& overrides)
{
    for (const SPairHead& head : s_pairHeads)
        for (const SPairRow& row : head.rows)
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                overrides[QString("%1.%2").arg(head.sHead, Member(row.sField, nAxis))] =
                    (values.*head.pObject)[Member(row.sMember, nAxis)];
}

void BuildLists(const QJsonObject& display, QJsonObject& overrides)
{
    for (const SFieldRow& row : s_fields) {
        const QJsonArray list = display[row.sList].toArray();
        for (int n = 0; n < list.size(); ++n)
            if (const QJsonValue value = ValueIn(list[n].toObject(), row); s_types[row.eType].fits(value))
                overrides[QString("%1.%2.%3").arg(row.sHead).arg(n).arg(row.sField)] = value;
    }
}

void BuildSurfaces(const QJsonObject& display, QJsonObject& overrides)
{
    for (const QJsonValue& value : display[BlocksMember(display)].toArray()) {
        const QJsonObject block = value.toObject();
        const QJsonArray surfaces = block[DISPLAY].toObject()[SURFACES].toArray();
        for (int n = 0; n < surfaces.size(); ++n)
            for (const char* const sField : {"constantDirection", "constantValue"})
                overrides[QString("%1.%2.%3.%4")
                              .arg(SURFACE, block[BLOCK_NAME].toString(), QString::number(n), sField)] =
                    surfaces[n].toObject()[sField];
    }
}

} // namespace

QJsonObject DisplayOverrides::Build(const SOverridable& values)
{
    QJsonObject overrides;
    BuildPair(values, overrides);
    BuildLists(values.display, overrides);
    BuildSurfaces(values.display, overrides);
    return overrides;
}

QStringList DisplayOverrides::Apply(const QJsonObject& overrides, SOverridable& values)
{
    QStringList sErrorList;
    CApplier applier(values);
    for (auto it = overrides.begin(); it != overrides.end(); ++it)
        if (const QString sError = applier.Apply(it.key(), it.value()); !sError.isEmpty())
            sErrorList.append(sError);
    return sErrorList;
}
