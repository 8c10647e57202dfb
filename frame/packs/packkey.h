#pragma once

#include "frame/packs/datapack.h"

#include <type_traits>

/**
 * One setting of a pack: where it lives and what it is when nobody set it. Every key of the program is
 * declared once as one of these and read and written through it, so that neither path nor default can
 * differ between two places.
 */
template <class T> struct SKey
{
    const char* sPath;
    T defaultValue;
};

/** A setting of which there is one for each number: the path holds "%1" (and "%2") for it. */
template <class T> struct SNumberedKey
{
    const char* sPath;
    T defaultValue;

    QString Path(qint64 n) const { return QString(sPath).arg(n); }
    QString Path(qint64 n, qint64 nSecond) const { return QString(sPath).arg(n).arg(nSecond); }
};

namespace PackKeyDetail {

// One pair for each table of a pack. A text default is a literal, so that keys can be constexpr.
inline QString Read(const CDataPack& p, const QString& s, const char* d) { return p.GetString(s, d); }
inline double Read(const CDataPack& p, const QString& s, double d) { return p.GetDouble(s, d); }
inline qint64 Read(const CDataPack& p, const QString& s, qint64 d) { return p.GetInt(s, d); }
inline bool Read(const CDataPack& p, const QString& s, bool d) { return p.GetBool(s, d); }
inline QPoint Read(const CDataPack& p, const QString& s, const QPoint& d) { return p.GetPoint(s, d); }
inline QPointF Read(const CDataPack& p, const QString& s, const QPointF& d) { return p.GetPointF(s, d); }
inline QColor Read(const CDataPack& p, const QString& s, const QColor& d) { return p.GetColor(s, d); }
inline QFont Read(const CDataPack& p, const QString& s, const QFont& d) { return p.GetFont(s, d); }
inline QVector<qint64> Read(const CDataPack& p, const QString& s, const QVector<qint64>& d)
{
    return p.GetIntList(s, d);
}
inline IVector3D Read(const CDataPack& p, const QString& s, const IVector3D& d) { return p.GetIVector(s, d); }
inline DVector3D Read(const CDataPack& p, const QString& s, const DVector3D& d) { return p.GetDVector(s, d); }
inline QStringList Read(const CDataPack& p, const QString& s, const QStringList& d)
{
    return p.GetStringList(s, d);
}
inline DMatrix4x4 Read(const CDataPack& p, const QString& s, const DMatrix4x4& d)
{
    return p.GetMatrix(s, d);
}
inline STransform Read(const CDataPack& p, const QString& s, const STransform& d)
{
    return p.GetTransform(s, d);
}

inline void Write(CDataPack& p, const QString& s, const QString& v, const char* d) { p.SetString(s, v, d); }
inline void Write(CDataPack& p, const QString& s, double v, double d) { p.SetDouble(s, v, d); }
inline void Write(CDataPack& p, const QString& s, qint64 v, qint64 d) { p.SetInt(s, v, d); }
inline void Write(CDataPack& p, const QString& s, bool v, bool d) { p.SetBool(s, v, d); }
inline void Write(CDataPack& p, const QString& s, const QPoint& v, const QPoint& d) { p.SetPoint(s, v, d); }
inline void Write(CDataPack& p, const QString& s, const QPointF& v, const QPointF& d)
{
    p.SetPointF(s, v, d);
}
inline void Write(CDataPack& p, const QString& s, const QColor& v, const QColor& d) { p.SetColor(s, v, d); }
inline void Write(CDataPack& p, const QString& s, const QFont& v, const QFont& d) { p.SetFont(s, v, d); }
inline void Write(CDataPack& p, const QString& s, const QVector<qint64>& v, const QVector<qint64>& d)
{
    p.SetIntList(s, v, d);
}
inline void Write(CDataPack& p, const QString& s, const IVector3D& v, const IVector3D& d)
{
    p.SetIVector(s, v, d);
}
inline void Write(CDataPack& p, const QString& s, const DVector3D& v, const DVector3D& d)
{
    p.SetDVector(s, v, d);
}
inline void Write(CDataPack& p, const QString& s, const QStringList& v, const QStringList& d)
{
    p.SetStringList(s, v, d);
}
inline void Write(CDataPack& p, const QString& s, const DMatrix4x4& v, const DMatrix4x4& d)
{
    p.SetMatrix(s, v, d);
}
inline void Write(CDataPack& p, const QString& s, const STransform& v, const STransform& d)
{
    p.SetTransform(s, v, d);
}

/** The type in which a value of the key is handed over: text instead of a literal. */
template <class T> struct SValueType
{
    using Type = T;
};
template <> struct SValueType<const char*>
{
    using Type = QString;
};
template <class T> using ValueType = typename SValueType<T>::Type;

} // namespace PackKeyDetail

/** The value of the setting, its default if it isn't in the pack. */
template <class T> PackKeyDetail::ValueType<T> Get(const CDataPack& pack, const SKey<T>& key)
{
    return PackKeyDetail::Read(pack, key.sPath, key.defaultValue);
}
template <class T>
PackKeyDetail::ValueType<T> Get(const CDataPack& pack, const SNumberedKey<T>& key, qint64 n)
{
    return PackKeyDetail::Read(pack, key.Path(n), key.defaultValue);
}

/** Stores the value; one that equals the default leaves the pack without the key. */
template <class T>
void Set(CDataPack& pack, const SKey<T>& key, const std::type_identity_t<PackKeyDetail::ValueType<T>>& value)
{
    PackKeyDetail::Write(pack, key.sPath, value, key.defaultValue);
}
template <class T>
void Set(CDataPack& pack, const SNumberedKey<T>& key, qint64 n,
         const std::type_identity_t<PackKeyDetail::ValueType<T>>& value)
{
    PackKeyDetail::Write(pack, key.Path(n), value, key.defaultValue);
}
