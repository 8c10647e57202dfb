// Children of packs, and the operations whose paths may hold "*".
#include "frame/packs/datapack.h"

#include "frame/novalue.h"
#include "frame/packs/packpath.h"

#include <algorithm>

static bool Matches(QStringView sComponent, const QString& sName)
{
    return sComponent == QStringView(u"*") || sComponent == sName;
}

const CDataPack* CDataPack::FindPack(QStringView sPath) const
{
    const SPackPath path(sPath);
    if (path.sFirst.isEmpty())
        return this;
    const int nChild = ChildIndex(path.sFirst);
    return nChild < 0 ? nullptr : m_children[nChild].FindPack(path.sRest);
}

QStringList CDataPack::SubPackNames(const QString& sPath) const
{
    const CDataPack* const pPack = FindPack(sPath);
    return pPack ? pPack->m_childNames : QStringList();
}

QVector<qint64> CDataPack::SubPackIds(const QString& sPath) const
{
    QVector<qint64> ids;
    for (const QString& sName : SubPackNames(sPath)) {
        bool bOk = false;
        const qint64 nId = sName.toLongLong(&bOk, 10);
        if (bOk)
            ids.append(nId);
    }
    return ids;
}

void CDataPack::SwapSubPacks(const QString& sPath, qint64 nFirst, qint64 nSecond, bool bContentOnly)
{
    CDataPack* const pPack = const_cast<CDataPack*>(FindPack(sPath)); // it is this pack or within it
    const qint64 nCount = pPack ? pPack->m_children.size() : 0;
    if (nFirst < 0 || nFirst >= nCount || nSecond < 0 || nSecond >= nCount)
        return;
    m_bytes.clear();
    std::swap(pPack->m_children[int(nFirst)], pPack->m_children[int(nSecond)]);
    if (!bContentOnly)
        pPack->m_childNames.swapItemsAt(int(nFirst), int(nSecond));
}

QString CDataPack::GetGroupedString(const QString& sGroup, const QString& sKey, const QString& sDefault) const
{
    return GetString(QString("%1.%2").arg(sGroup, sKey), sDefault);
}

CDataPack CDataPack::GetSubPack(const QString& sPath) const
{
    const CDataPack* const pPack = FindPack(sPath);
    return pPack ? CDataPack(*pPack) : CDataPack();
}

void CDataPack::SetSubPack(const QString& sPath, const CDataPack& pack)
{
    CDataPack source(pack); // it may be part of what changes below
    CDataPack* pTarget = this;
    m_bytes.clear();
    for (SPackPath path(sPath); !path.sFirst.isEmpty(); path = SPackPath(path.sRest))
        pTarget = &pTarget->m_children[pTarget->FindOrAddChild(path.sFirst)];
    if (pTarget == this)
        return;
    CDataPack* const pHolder = pTarget->m_pParent;
    *pTarget = std::move(source);
    pTarget->m_bytes.clear();
    pTarget->SetParent(pHolder); // the assignment brought the source's
}

qint64 CDataPack::AddSubPack(const QString& sName)
{
    m_bytes.clear();
    m_childNames.append(sName);
    m_children.append(CDataPack(m_bTextMode));
    m_children.last().m_pParent = this;
    return m_children.size() - 1;
}

void CDataPack::RemoveChild(int nIndex)
{
    m_bytes.clear();
    m_childNames.removeAt(nIndex);
    std::move(m_children.begin() + nIndex + 1, m_children.end(), m_children.begin() + nIndex);
    m_children.removeLast();
}

void CDataPack::PruneSubPack(qint64 nIndex)
{
    if (nIndex >= 0 && nIndex < m_children.size() && std::as_const(m_children)[int(nIndex)].IsEmpty())
        RemoveChild(int(nIndex));
}

template <class Visit> bool CDataPack::VisitMatches(QStringView sPath, const Visit& visit)
{
    const SPackPath path(sPath);
    m_bytes.clear();
    if (path.sRest.isEmpty())
        return visit(*this, path.sFirst);
    bool bChanged = false;
    for (int n = m_children.size() - 1; n >= 0; --n) { // from the end, since children may vanish
        if (Matches(path.sFirst, m_childNames[n]) && m_children[n].VisitMatches(path.sRest, visit)) {
            PruneSubPack(n);
            bChanged = true;
        }
    }
    return bChanged;
}

void CDataPack::RemoveSubPack(const QString& sPath)
{
    VisitMatches(sPath, [](CDataPack& pack, QStringView sLast) {
        for (int n = pack.m_children.size() - 1; n >= 0; --n)
            if (Matches(sLast, pack.m_childNames[n]))
                pack.RemoveChild(n);
        return false;
    });
}

void CDataPack::ShiftSubPackIds(const QString& sPath, qint64 nDelta)
{
    VisitMatches(sPath, [nDelta](CDataPack& pack, QStringView sLast) {
        for (QString& sName : pack.m_childNames) {
            bool bIsId = false;
            qint64 nId = sName.toLongLong(&bIsId, 10);
            if (bIsId && Matches(sLast, sName) && !__builtin_add_overflow(nId, nDelta, &nId))
                sName = QString::number(nId);
        }
        return false;
    });
}

// The upper limit wins where the limits cross.
static qint64 Clamped(qint64 nValue, qint64 nMin, qint64 nMax)
{
    return std::min(std::max(nValue, nMin), nMax);
}

void CDataPack::ClampInt(const QString& sPath, qint64 nMin, qint64 nMax, qint64 nDefault)
{
    VisitMatches(sPath, [=](CDataPack& pack, QStringView sLast) {
        const QString sKey = sLast.toString();
        const qint64 nValue = pack.GetInt(sKey, NO_INT);
        const qint64 nClamped = Clamped(nValue, nMin, nMax);
        if (nValue == NO_INT || nClamped == nValue)
            return false;
        pack.SetInt(sKey, nClamped, nDefault);
        return true;
    });
}

void CDataPack::ClampIVector(const QString& sPath, const IVector3D& min, const IVector3D& max,
                             const IVector3D& defaultValue)
{
    const IVector3D none = {NO_INT, NO_INT, NO_INT};
    VisitMatches(sPath, [&](CDataPack& pack, QStringView sLast) {
        const QString sKey = sLast.toString();
        const IVector3D value = pack.GetIVector(sKey, none);
        if (value == none)
            return false;
        IVector3D clamped;
        for (int n = 0; n < 3; ++n)
            clamped[n] = value[n] == NO_INT ? defaultValue[n] : Clamped(value[n], min[n], max[n]);
        if (clamped == value)
            return false;
        pack.SetIVector(sKey, clamped, defaultValue);
        return true;
    });
}

QVector<qint64> CDataPack::FlattenIVectors(const QVector<IVector3D>& vectors) const
{
    QVector<qint64> values;
    values.reserve(3 * vectors.size());
    for (const IVector3D& v : vectors)
        values << v.i << v.j << v.k;
    return values;
}

QVector<double> CDataPack::FlattenDVectors(const QVector<DVector3D>& vectors) const
{
    QVector<double> values;
    values.reserve(3 * vectors.size());
    for (const DVector3D& v : vectors)
        values << v.x << v.y << v.z;
    return values;
}

QVector<IVector3D> CDataPack::GroupIVectors(const QVector<qint64>& values) const
{
    QVector<IVector3D> vectors;
    for (int n = 0; n + 2 < values.size(); n += 3)
        vectors.append({values[n], values[n + 1], values[n + 2]});
    return vectors;
}

QVector<DVector3D> CDataPack::GroupDVectors(const QVector<double>& values) const
{
    QVector<DVector3D> vectors;
    for (int n = 0; n + 2 < values.size(); n += 3)
        vectors.append({values[n], values[n + 1], values[n + 2]});
    return vectors;
}
