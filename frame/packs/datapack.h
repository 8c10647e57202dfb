#pragma once

#include "frame/transform.h"
#include "frame/vector3d.h"

#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVector>

#include <tuple>

class CByteReader;
class CByteWriter;

/**
 * The persistent value store: a tree of typed key/value tables, addressed by paths of components that are
 * joined by ".". Empty components are skipped. One component addresses a table of this pack, more name a
 * child by the first and hand the rest to it.
 *
 * - A pack stores only what differs from the default: a write of the default removes the key, and a child
 *   that has lost its last value goes with it. A read of a key that isn't there gives the reader's default.
 * - A pack is a value: a copy holds the whole subtree, children are values in their parent.
 * - Each type has a key space of its own; keys keep the order in which they came.
 * - In text mode every value is held as a string (see docs/formats/datapack.md).
 *
 * Values compare exactly. Look-ups scan; packs are small and no loop over a block reads one.
 * No locks: main thread, or a copy.
 */
class CDataPack
{
public:
    explicit CDataPack(bool bTextMode = false);
    /** Copies and assignments are as Assign; children always know the pack that holds them. */
    CDataPack(const CDataPack& other);
    CDataPack(CDataPack&& other) noexcept;
    CDataPack& operator=(const CDataPack& other);
    CDataPack& operator=(CDataPack&& other) noexcept;
    virtual ~CDataPack();

    /**
     * Whole copy: mode, parent (as other.GetParent() gives it), tables, children, LastSetChanged.
     * The children's parent is this pack afterwards.
     */
    virtual void Assign(const CDataPack& other);
    /** The wire format, docs/formats/datapack.md. It never changes. */
    virtual QByteArray ToBytes() const;
    /**
     * Replaces the content. The text mode and the parent stay; children take over the text mode and get
     * this pack as parent.
     *
     * @param dVersion  version of the file the bytes are from, -1.0 where there is none; for derived classes
     * @return false on bytes that end early or hold a count larger than what is left; what has been read
     *         by then stays
     */
    virtual bool FromBytes(const QByteArray& bytes, double dVersion);
    /** True without any key and child. */
    virtual bool IsEmpty() const;

    /**
     * The pack that holds this one, not owned; valid while that one isn't moved. Not stored. For reading:
     * whoever writes asks the outermost pack.
     */
    virtual void SetParent(CDataPack* pParent);
    virtual CDataPack* GetParent() const;

    /** Names of the children of the pack at the path ("": this one), in order of creation. */
    virtual QStringList SubPackNames(const QString& sPath) const;
    /** SubPackNames as base-10 integers; a name that isn't one is left out. */
    virtual QVector<qint64> SubPackIds(const QString& sPath) const;
    /**
     * Exchanges two children of the pack at the path, by index from 0; nothing happens out of range.
     * Their names go with them unless bContentOnly.
     */
    virtual void SwapSubPacks(const QString& sPath, qint64 nFirst, qint64 nSecond, bool bContentOnly);

    /** Triples to flat lists and back; grouping leaves out an incomplete last triple. */
    virtual QVector<qint64> FlattenIVectors(const QVector<IVector3D>& vectors) const;
    virtual QVector<IVector3D> GroupIVectors(const QVector<qint64>& values) const;
    virtual QVector<DVector3D> GroupDVectors(const QVector<double>& values) const;
    virtual QVector<double> FlattenDVectors(const QVector<DVector3D>& vectors) const;

    /** GetString of "sGroup.sKey". */
    virtual QString GetGroupedString(const QString& sGroup, const QString& sKey,
                                     const QString& sDefault) const;
    /** A copy of the child at the path; an empty pack if there is none. */
    virtual CDataPack GetSubPack(const QString& sPath) const;
    /**
     * Assigns to the child at the path, which is made if needed, at the end. It keeps its parent, and has the
     * text mode of the pack that was assigned.
     */
    virtual void SetSubPack(const QString& sPath, const CDataPack& pack);

    QString GetString(const QString& sPath, const QString& sDefault) const;
    double GetDouble(const QString& sPath, double dDefault) const;
    qint64 GetInt(const QString& sPath, qint64 nDefault) const;
    bool GetBool(const QString& sPath, bool bDefault) const;
    QPoint GetPoint(const QString& sPath, const QPoint& defaultValue) const;
    QPointF GetPointF(const QString& sPath, const QPointF& defaultValue) const;
    QColor GetColor(const QString& sPath, const QColor& defaultValue) const;
    QFont GetFont(const QString& sPath, const QFont& defaultValue) const;
    QVector<qint64> GetIntList(const QString& sPath, const QVector<qint64>& defaultValue) const;
    IVector3D GetIVector(const QString& sPath, const IVector3D& defaultValue) const;
    DVector3D GetDVector(const QString& sPath, const DVector3D& defaultValue) const;
    QStringList GetStringList(const QString& sPath, const QStringList& defaultValue) const;
    DMatrix4x4 GetMatrix(const QString& sPath, const DMatrix4x4& defaultValue) const;
    STransform GetTransform(const QString& sPath, const STransform& defaultValue) const;

    void SetString(const QString& sPath, const QString& sValue, const QString& sDefault);
    void SetDouble(const QString& sPath, double dValue, double dDefault);
    void SetInt(const QString& sPath, qint64 nValue, qint64 nDefault);
    void SetBool(const QString& sPath, bool bValue, bool bDefault);
    void SetPoint(const QString& sPath, const QPoint& value, const QPoint& defaultValue);
    void SetPointF(const QString& sPath, const QPointF& value, const QPointF& defaultValue);
    void SetColor(const QString& sPath, const QColor& value, const QColor& defaultValue);
    void SetFont(const QString& sPath, const QFont& value, const QFont& defaultValue);
    void SetIntList(const QString& sPath, const QVector<qint64>& value, const QVector<qint64>& defaultValue);
    void SetIVector(const QString& sPath, const IVector3D& value, const IVector3D& defaultValue);
    void SetDVector(const QString& sPath, const DVector3D& value, const DVector3D& defaultValue);
    void SetStringList(const QString& sPath, const QStringList& value, const QStringList& defaultValue);
    void SetMatrix(const QString& sPath, const DMatrix4x4& value, const DMatrix4x4& defaultValue);
    void SetTransform(const QString& sPath, const STransform& value, const STransform& defaultValue);

    /** Appends an empty child with this name, mode and parent; gives its index. */
    qint64 AddSubPack(const QString& sName);
    /** Removes every child that the path matches; "*" as a component stands for all children there. */
    void RemoveSubPack(const QString& sPath);
    /** Removes the child at the index if it IsEmpty. */
    void PruneSubPack(qint64 nIndex);
    /** Adds nDelta to the name of every child that the path matches ("*" as above); other names stay. */
    void ShiftSubPackIds(const QString& sPath, qint64 nDelta);
    /**
     * Clamps every integer that the path matches ("*" as above) and that is there (a read with NO_INT tells)
     * to nMin..nMax, nMax winning if they cross. A value in range isn't touched; a clamped one that is
     * nDefault loses its key.
     */
    void ClampInt(const QString& sPath, qint64 nMin, qint64 nMax, qint64 nDefault);
    /** ClampInt by component; a component that reads NO_INT takes that of the default. */
    void ClampIVector(const QString& sPath, const IVector3D& min, const IVector3D& max,
                      const IVector3D& defaultValue);

    /**
     * Makes the changes that led from one pack to another here too: each key, whole subtrees included, that
     * changed differs from base in gets its value of changed or goes, all others stay as they are here. Both
     * packs and this one are expected in the same text mode.
     */
    void MergeChanges(const CDataPack& base, const CDataPack& changed);

    /** Whether the last typed write changed what a read with the same default gives; true in a new pack. */
    bool LastSetChanged() const { return m_bLastSetChanged; }
    bool TextMode() const { return m_bTextMode; }

private:
    template <class T> struct STable
    {
        QStringList keys;
        QVector<T> values; // parallel to keys

        int IndexOf(QStringView sKey) const;
        void Store(QStringView sKey, const T& value);
        void Remove(QStringView sKey);
        void Merge(const STable& base, const STable& changed);
    };
    // In the order of the wire format. A type names its table: std::get<STable<double>>(m_tables).
    using Tables = std::tuple<STable<QString>, STable<double>, STable<qint64>, STable<bool>, STable<QPoint>,
                              STable<QPointF>, STable<QColor>, STable<QFont>, STable<QVector<qint64>>,
                              STable<QStringList>, STable<IVector3D>, STable<DVector3D>, STable<DMatrix4x4>,
                              STable<STransform>>;

    // Reading and writing by path. bText: this pack or one above it is in text mode, so that the value is
    // text.
    template <class T> T Read(QStringView sPath, const T& defaultValue, bool bText = false) const;
    template <class T> T ReadPlain(QStringView sKey, const T& defaultValue) const;
    template <class T> T ReadText(QStringView sKey, const T& defaultValue) const;
    // These give, and the first stores, whether the value differs from what was read before.
    template <class T>
    bool Write(QStringView sPath, const T& value, const T& defaultValue, bool bText = false);
    template <class T> bool WriteHere(QStringView sKey, const T& value, const T& defaultValue, bool bText);
    template <class T> bool WritePlain(QStringView sKey, const T& value, const T& defaultValue);
    template <class T> bool WriteText(QStringView sKey, const T& value, const T& defaultValue);

    void AdoptChildren();
    int ChildIndex(QStringView sName) const;
    int FindOrAddChild(QStringView sName);
    void RemoveChild(int nIndex);
    void MergeChild(const QString& sName, const CDataPack& base, const CDataPack& changed);
    /** The pack at the path ("": this one), null if there is none. */
    const CDataPack* FindPack(QStringView sPath) const;
    /**
     * Calls visit(pack, last component) for every pack that the components before the last match. A child in
     * which visit gave true, for "a key is gone or changed", is pruned afterwards.
     */
    template <class Visit> bool VisitMatches(QStringView sPath, const Visit& visit);

    void WriteTo(CByteWriter& writer) const;
    bool ReadFrom(CByteReader& reader, int nDepth);
    void ReadChildren(CByteReader& reader, int nDepth);

    bool m_bTextMode;
    bool m_bLastSetChanged = true;
    CDataPack* m_pParent = nullptr;
    // What ToBytes gave for the present content; empty: nobody has asked since it changed. An undo state of
    // 2,000 items is captured before and after each edit, and all but a few items are as they were. Whatever
    // changes a pack begins with m_bytes.clear(). A child has none, so that only the outermost pack, on
    // which the change is asked for, has to be cleared.
    mutable QByteArray m_bytes;
    Tables m_tables;
    QStringList m_childNames;
    QVector<CDataPack> m_children; // parallel to m_childNames; never shared, each knows this pack as parent
};
