#include "cases/display/displayoverrides.h"

#include "cases/display/overrideblocks.h"
#include "cases/display/overridefields.h"
#include "view/mesh/surfaceplane.h"

namespace {

constexpr const char *SURFACE = "surface", *DATA_FILES = "dataFiles";

/** A field of a surface of a block. */
struct SSurfaceRow
{
    const char* sField;
    OverrideType_e eType;
};

constexpr SSurfaceRow s_surfaceFields[] = {
    {Definitions::KeyOf(&SSurfacePlane::nDirection), OverrideDirection},
    {Definitions::KeyOf(&SSurfacePlane::constants), OverrideIndices}};

/** A field of mirror or sectors: an axis letter behind the head. */
struct SPairRow
{
    const char* sField; ///< in the table: what stands ahead of the letter
    const char* sMember;
    OverrideType_e eType;
};

constexpr SPairRow s_mirrorFields[] = {{"", "mirror", OverrideBool}, {"offset", "offset", OverrideNumber}};
constexpr SPairRow s_sectorFields[] = {{"", "periodic", OverrideBool}, {"sector", "sector", OverrideNumber}};

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

/** A key in its parts. */
struct SKeyParts
{
    explicit SKeyParts(const QString& sWhole) : sKey(sWhole), sPartList(sWhole.split('.', Qt::SkipEmptyParts))
    {}
    QString Head() const { return sPartList.value(0); }
    QString FromEnd(int n) const { return sPartList.value(sPartList.size() - n); }
    QString From(int n) const { return QStringList(sPartList.mid(n)).join('.'); }
    /** What lies between the head and the last two parts, as it was written where that can be told. */
    QString BlockName() const
    {
        const QString sStart = Head() + '.', sEnd = QString(".%1.%2").arg(FromEnd(2), FromEnd(1));
        if (sKey.startsWith(sStart) && sKey.endsWith(sEnd) && sKey.size() > sStart.size() + sEnd.size())
            return sKey.mid(sStart.size(), sKey.size() - sStart.size() - sEnd.size());
        return QStringList(sPartList.mid(1, sPartList.size() - 3)).join('.');
    }
    QString Invalid() const { return QString("Invalid override key: '%1'").arg(sKey); }

    QString sKey;
    QStringList sPartList;
};

/** The index that a part of a key is; with an error if it is no number. */
struct SIndex
{
    explicit SIndex(const QString& sPart)
    {
        bool bNumber = false;
        n = sPart.toInt(&bNumber);
        if (!bNumber)
            sError = QString("Invalid index: '%1'").arg(sPart);
    }
    bool IsIn(const QJsonArray& list) const { return n >= 0 && n < list.size(); }

    int n = -1;
    QString sError;
};

QString UnknownField(const QString& sField) { return QString("Unknown field: '%1'").arg(sField); }

/** Applies keys one by one; each gives its error, or an empty text. */
class CApplier
{
public:
    explicit CApplier(SOverridable& values) : m_values(values), m_blocks(values.display) {}

    QString Apply(const SKeyParts& parts, const QJsonValue& value)
    {
        if (parts.sPartList.size() < 2)
            return parts.Invalid();
        for (const SPairHead& head : s_pairHeads)
            if (parts.Head() == head.sHead)
                return ApplyToPair(head, parts, value);
        if (parts.Head() == SURFACE)
            return ApplyToSurface(parts, value);
        if (const char* const sList = OverrideFields::ListOf(parts.Head()))
            return ApplyToList(sList, parts, value);
        return parts.Head() == DATA_FILES ? QString() : QString("Unknown override key: '%1'").arg(parts.sKey);
    }

private:
    QString ApplyToPair(const SPairHead& head, const SKeyParts& parts, const QJsonValue& value)
    {
        const QString sField = parts.From(1);
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

    QString ApplyToList(const char* sList, const SKeyParts& parts, const QJsonValue& value)
    {
        const QString sHead = parts.Head(), sIndex = parts.sPartList[1], sField = parts.From(2);
        const SIndex index(sIndex);
        if (!index.sError.isEmpty())
            return index.sError;
        QJsonArray list = m_values.display[sList].toArray();
        if (!index.IsIn(list))
            return QString("%1 index %2 out of range").arg(sHead, sIndex);
        if (sHead == OverrideFields::STREAMLINE && !list[index.n].isObject())
            return QString("streamline %1 is legacy binary, cannot override").arg(sIndex);
        const SOverrideField* const pField = OverrideFields::Find(sHead, sField);
        if (!pField)
            return UnknownField(sField);
        QString sError = TypeError(parts.sKey, pField->eType, value);
        QJsonObject entry = list[index.n].toObject();
        if (!sError.isEmpty() || pField->ValueIn(entry) == value)
            return sError;
        pField->SetIn(entry, value);
        list[index.n] = entry;
        m_values.display[sList] = list;
        return {};
    }

    QString ApplyToSurface(const SKeyParts& parts, const QJsonValue& value)
    {
        if (parts.sPartList.size() < 4)
            return parts.Invalid();
        const QString sIndex = parts.FromEnd(2), sField = parts.FromEnd(1), sBlock = parts.BlockName();
        const SIndex index(sIndex);
        if (!index.sError.isEmpty())
            return index.sError;
        const int nBlock = m_blocks.Find(sBlock);
        if (nBlock < 0)
            return QString("Block '%1' not found").arg(sBlock);
        QJsonArray surfaces = m_blocks.GetSurfaces(nBlock);
        if (!index.IsIn(surfaces))
            return QString("surface index %1 out of range in block '%2'").arg(sIndex, sBlock);
        const SSurfaceRow* const pRow =
            std::find_if(std::begin(s_surfaceFields), std::end(s_surfaceFields),
                         [&](const SSurfaceRow& row) { return sField == row.sField; });
        if (pRow == std::end(s_surfaceFields))
            return UnknownField(sField);
        QString sError = TypeError(parts.sKey, pRow->eType, value);
        QJsonObject surface = surfaces[index.n].toObject();
        if (!sError.isEmpty() || surface[sField] == value)
            return sError;
        surface[sField] = value;
        surfaces[index.n] = surface;
        m_blocks.SetSurfaces(nBlock, surfaces);
        return {};
    }

    SOverridable& m_values;
    COverrideBlocks m_blocks;
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
    for (const SOverrideField& field : OverrideFields::All()) {
        const QJsonArray list = display[field.sList].toArray();
        for (int n = 0; n < list.size(); ++n)
            if (const QJsonValue value = field.ValueIn(list[n].toObject()); IsOfType(field.eType, value))
                overrides[QString("%1.%2.%3").arg(field.sHead).arg(n).arg(field.sField)] = value;
    }
}

void BuildSurfaces(const QJsonObject& display, QJsonObject& overrides)
{
    for (const QJsonValue& value : display[COverrideBlocks::ListOf(display)].toArray()) {
        const QJsonObject block = value.toObject();
        const QString sBlock = block[COverrideBlocks::BLOCK_NAME].toString();
        const QJsonArray surfaces =
            block[COverrideBlocks::DISPLAY].toObject()[COverrideBlocks::SURFACES].toArray();
        for (int n = 0; n < surfaces.size(); ++n)
            for (const SSurfaceRow& row : s_surfaceFields)
                overrides[QString("%1.%2.%3.%4").arg(SURFACE, sBlock, QString::number(n), row.sField)] =
                    surfaces[n].toObject()[row.sField];
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
        if (const QString sError = applier.Apply(SKeyParts(it.key()), it.value()); !sError.isEmpty())
            sErrorList.append(sError);
    return sErrorList;
}
