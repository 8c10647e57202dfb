#include "cases/display/displayoverrides.h"

#include "cases/display/overrideblocks.h"
#include "view/selectables/kinds.h"

namespace {

constexpr const char* DATA_FILES = "dataFiles";

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
        for (const SKindRow* const pRow : Kinds())
            if (parts.Head() == pRow->sOverrideHead)
                return pRow->bUnderBlock ? ApplyUnderBlock(*pRow, parts, value)
                                         : ApplyToList(*pRow, parts, value);
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

    QString ApplyToList(const SKindRow& row, const SKeyParts& parts, const QJsonValue& value)
    {
        const QString sIndex = parts.sPartList[1];
        const SIndex index(sIndex);
        if (!index.sError.isEmpty())
            return index.sError;
        QJsonArray list = m_values.display[row.sList].toArray();
        if (!index.IsIn(list))
            return QString("%1 index %2 out of range").arg(row.sOverrideHead, sIndex);
        if (!list[index.n].isObject())
            return QString("%1 %2 is legacy binary, cannot override").arg(row.sOverrideHead, sIndex);
        bool bChanged = false;
        QString sError = ApplyToEntry(row, parts.From(2), parts.sKey, value, list, index.n, bChanged);
        if (bChanged)
            m_values.display[row.sList] = list;
        return sError;
    }

    QString ApplyUnderBlock(const SKindRow& row, const SKeyParts& parts, const QJsonValue& value)
    {
        if (parts.sPartList.size() < 4)
            return parts.Invalid();
        const QString sIndex = parts.FromEnd(2), sBlock = parts.BlockName();
        const SIndex index(sIndex);
        if (!index.sError.isEmpty())
            return index.sError;
        const int nBlock = m_blocks.Find(sBlock);
        if (nBlock < 0)
            return QString("Block '%1' not found").arg(sBlock);
        QJsonArray list = m_blocks.GetList(nBlock, row.sList);
        if (!index.IsIn(list))
            return QString("%1 index %2 out of range in block '%3'").arg(row.sOverrideHead, sIndex, sBlock);
        bool bChanged = false;
        QString sError = ApplyToEntry(row, parts.FromEnd(1), parts.sKey, value, list, index.n, bChanged);
        if (bChanged)
            m_blocks.SetList(nBlock, row.sList, list);
        return sError;
    }

    static QString ApplyToEntry(const SKindRow& row, const QString& sField, const QString& sKey,
                                const QJsonValue& value, QJsonArray& list, int nEntry, bool& bChanged)
    {
        const auto field = std::find_if(row.overrides.begin(), row.overrides.end(),
                                        [&](const SOverrideField& one) { return sField == one.sField; });
        if (field == row.overrides.end())
            return UnknownField(sField);
        QString sError = TypeError(sKey, field->eType, value);
        QJsonObject entry = list[nEntry].toObject();
        bChanged = sError.isEmpty() && field->ValueIn(entry) != value;
        if (bChanged) {
            field->SetIn(entry, value);
            list[nEntry] = entry;
        }
        return sError;
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

/** The fields of the entries of a list, under keys that begin with sStart. */
void BuildList(const SKindRow& row, const QString& sStart, const QJsonArray& list, QJsonObject& overrides)
{
    for (const SOverrideField& field : row.overrides)
        for (int n = 0; n < list.size(); ++n)
            if (const QJsonValue value = field.ValueIn(list[n].toObject()); IsOfType(field.eType, value))
                overrides[QString("%1.%2.%3").arg(sStart, QString::number(n), field.sField)] = value;
}

void BuildUnderBlocks(const SKindRow& row, const QJsonObject& display, QJsonObject& overrides)
{
    for (const QJsonValue& value : display[COverrideBlocks::ListOf(display)].toArray()) {
        const QJsonObject block = value.toObject();
        BuildList(row, QString("%1.%2").arg(row.sOverrideHead, block[COverrideBlocks::BLOCK_NAME].toString()),
                  block[COverrideBlocks::DISPLAY].toObject()[row.sList].toArray(), overrides);
    }
}

void BuildKinds(const QJsonObject& display, QJsonObject& overrides)
{
    for (const SKindRow* const pRow : Kinds()) {
        if (pRow->overrides.empty())
            continue;
        if (pRow->bUnderBlock)
            BuildUnderBlocks(*pRow, display, overrides);
        else
            BuildList(*pRow, pRow->sOverrideHead, display[pRow->sList].toArray(), overrides);
    }
}

} // namespace

QJsonObject DisplayOverrides::Build(const SOverridable& values)
{
    QJsonObject overrides;
    BuildPair(values, overrides);
    BuildKinds(values.display, overrides);
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
