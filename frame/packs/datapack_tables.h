#pragma once

#include "frame/packs/datapack.h"

// The tables of a pack, for the files in which its operations are defined.

namespace PackTableDetail {

// Values compare exactly: Qt's own comparison of real points allows for rounding.
template <class T> bool AreEqual(const T& a, const T& b) { return a == b; }
inline bool AreEqual(const QPointF& a, const QPointF& b) { return a.x() == b.x() && a.y() == b.y(); }

} // namespace PackTableDetail

template <class T> int CDataPack::STable<T>::IndexOf(QStringView sKey) const
{
    for (int n = 0; n < keys.size(); ++n)
        if (keys[n] == sKey)
            return n;
    return -1;
}

template <class T> void CDataPack::STable<T>::Store(QStringView sKey, const T& value)
{
    const int nIndex = IndexOf(sKey);
    if (nIndex < 0) {
        keys.append(sKey.toString());
        values.append(value);
    } else { // g++ 12 takes an assignment to values[nIndex] for an overflow
        values.removeAt(nIndex);
        values.insert(nIndex, value);
    }
}

template <class T> void CDataPack::STable<T>::Remove(QStringView sKey)
{
    const int nIndex = IndexOf(sKey);
    if (nIndex < 0)
        return;
    keys.removeAt(nIndex);
    values.removeAt(nIndex);
}
