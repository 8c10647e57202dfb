#pragma once

#include "frame/packs/bytestream.h"
#include "frame/packs/jsoninteger.h"
#include "frame/packs/packkey.h"

#include <QJsonArray>
#include <QJsonObject>

#include <tuple>

/**
 * What a shape is: a record whose members are written once, in a table, and stored in three forms by what
 * follows here. A table is
 *
 *     template <> struct SDefinitionTable<SPlane>
 *     {
 *         static constexpr auto FIELDS = std::tuple{SDefinitionField{...}, ...};
 *         static SPlane Repaired(const SPlane& read);
 *     };
 *
 * with the members in the order of the stored bytes. A new record has the defaults.
 */
template <class D> struct SDefinitionTable;

template <class D, class T> struct SDefinitionField
{
    const char* sJson;
    const char* sPackKey;
    T D::*member;
    bool bEdited = false; ///< users change it by hand in files
};

// Spelled out for compilers that don't deduce the arguments of aggregates.
template <class D, class T>
SDefinitionField(const char*, const char*, T D::*, bool = false) -> SDefinitionField<D, T>;

namespace DefinitionDetail {

template <class D, class Visit> constexpr void ForEachField(const Visit& visit)
{
    std::apply([&](const auto&... field) { (visit(field), ...); }, SDefinitionTable<D>::FIELDS);
}

inline QJsonValue ToJson(int nValue) { return nValue; }
inline QJsonValue ToJson(const IVector3D& v) { return QJsonArray{qint64(v.i), qint64(v.j), qint64(v.k)}; }
inline void FromJson(const QJsonValue& json, int& nValue) { nValue = int(ToInteger(json, nValue)); }
inline void FromJson(const QJsonValue& json, IVector3D& v)
{
    if (const QJsonArray array = json.toArray(); array.size() >= 3)
        v = {ToInteger(array[0]), ToInteger(array[1]), ToInteger(array[2])};
}

inline void Write(CByteWriter& writer, int nValue) { writer.Write(qint32(nValue)); }
inline void Write(CByteWriter& writer, const IVector3D& v) { writer.WriteWords(&v, 3); }
inline bool Read(CByteReader& reader, int& nValue) { return reader.Read(nValue); }
inline bool Read(CByteReader& reader, IVector3D& v) { return reader.ReadWords(&v, 3); }

// A pack has one kind of integer.
inline qint64 InPack(int nValue) { return nValue; }
inline const IVector3D& InPack(const IVector3D& v) { return v; }
template <class T> auto PackKey(const char* sKey, const T& defaultValue)
{
    return SKey<std::decay_t<decltype(InPack(defaultValue))>>{sKey, InPack(defaultValue)};
}

} // namespace DefinitionDetail

namespace Definitions {

/** The name of a member in files; "" for one that isn't in the table. */
template <class D, class T> constexpr const char* KeyOf(T D::*member)
{
    const char* sKey = "";
    DefinitionDetail::ForEachField<D>([&](const auto& field) {
        if constexpr (std::is_same_v<decltype(field.member), T D::*>)
            sKey = field.member == member ? field.sJson : sKey;
    });
    return sKey;
}

/** Adds the members to an object, or only those that users edit. */
template <class D> void AddToJson(const D& definition, QJsonObject& json, bool bEditedAlone = false)
{
    DefinitionDetail::ForEachField<D>([&](const auto& field) {
        if (field.bEdited || !bEditedAlone)
            json[field.sJson] = DefinitionDetail::ToJson(definition.*field.member);
    });
}

/** A missing or unfit member leaves that of the definition. */
template <class D> void FromJson(const QJsonObject& json, D& definition)
{
    DefinitionDetail::ForEachField<D>(
        [&](const auto& field) { DefinitionDetail::FromJson(json[field.sJson], definition.*field.member); });
    definition = SDefinitionTable<D>::Repaired(definition);
}

/** The object without the members of a definition. */
template <class D> QJsonObject Without(QJsonObject json)
{
    DefinitionDetail::ForEachField<D>([&](const auto& field) { json.remove(field.sJson); });
    return json;
}

template <class D> void ToPack(const D& definition, CDataPack& pack)
{
    DefinitionDetail::ForEachField<D>([&](const auto& field) {
        Set(pack, DefinitionDetail::PackKey(field.sPackKey, D().*field.member),
            DefinitionDetail::InPack(definition.*field.member));
    });
}

template <class D> D FromPack(const CDataPack& pack)
{
    D definition;
    DefinitionDetail::ForEachField<D>([&](const auto& field) {
        definition.*field.member = std::decay_t<decltype(definition.*field.member)>(
            Get(pack, DefinitionDetail::PackKey(field.sPackKey, definition.*field.member)));
    });
    return SDefinitionTable<D>::Repaired(definition);
}

template <class D> void ToBytes(const D& definition, CByteWriter& writer)
{
    DefinitionDetail::ForEachField<D>(
        [&](const auto& field) { DefinitionDetail::Write(writer, definition.*field.member); });
}

/** False, with the definition as it was, for bytes that end early or hold what can't be. */
template <class D> bool FromBytes(CByteReader& reader, D& definition)
{
    D read;
    DefinitionDetail::ForEachField<D>(
        [&](const auto& field) { DefinitionDetail::Read(reader, read.*field.member); });
    if (!reader.IsOk() || !(SDefinitionTable<D>::Repaired(read) == read))
        return false;
    definition = read;
    return true;
}

} // namespace Definitions
