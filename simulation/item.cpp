#include "simulation/item.h"

#include "frame/packs/bytestream.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulationitems.h"
#include "simulation/itemkeys.h"

#include <QCryptographicHash>

CItem::~CItem()
{
    // Selectables are of an id; another item may bear it under a further sub-id.
    if (!FindItem(m_nId))
        CSelectableManager::Instance().RemoveItem(m_nSimulationId, m_nId);
}

QByteArray CItem::ToBytes() const
{
    CByteWriter writer;
    writer.Write(CDataPack::ToBytes());
    for (const qint64 nValue : {m_nSimulationId, m_nId, m_nSubId, m_nType, m_nKind, m_nDisplayFlag})
        writer.Write(nValue);
    writer.Write(m_sNameList);
    for (const qint64 nValue : {m_nNameCount, m_size.i, m_size.j, m_size.k})
        writer.Write(nValue);
    return writer.Take();
}

bool CItem::FromBytes(const QByteArray& bytes, double dVersion)
{
    ClearKeys();
    CByteReader reader(bytes);
    QByteArray pack;
    if (!reader.Read(pack) || !CDataPack::FromBytes(pack, dVersion))
        return false;
    for (qint64* const pValue : {&m_nSimulationId, &m_nId, &m_nSubId, &m_nType, &m_nKind, &m_nDisplayFlag})
        reader.Read(*pValue);
    m_sNameList.clear();
    reader.Read(m_sNameList);
    for (qint64* const pValue : {&m_nNameCount, &m_size.i, &m_size.j, &m_size.k})
        reader.Read(*pValue);
    return reader.IsOk();
}

void CItem::SetName(const QString& sName, qint64 nIndex)
{
    while (m_sNameList.size() <= nIndex)
        m_sNameList.append(QString());
    m_sNameList[nIndex] = sName;
}

QString CItem::GetName(qint64 nIndex) const { return m_sNameList.value(nIndex); }

QString CItem::GetDisplayName() const
{
    QString sDisplayName = GetName(0);
    for (qint64 n = 1; n < m_nNameCount && !GetName(n).isEmpty(); ++n)
        sDisplayName += QString(" @ %1").arg(GetName(n));
    return sDisplayName;
}

void CItem::SetLinked(bool bLinked) { Set(*this, ItemKey::IS_LINKED, bLinked); }
bool CItem::IsLinked() const { return Get(*this, ItemKey::IS_LINKED); }

QByteArray CItem::GetSimilarKey() const
{
    if (!m_similarKey.isEmpty())
        return m_similarKey;
    QCryptographicHash hash(QCryptographicHash::Md5);
    bool bHasKey = false;
    for (const qint64 nId : GetChildIds(-1, true)) {
        const CItem* const pItem = FindItem(nId);
        const QByteArray key = pItem ? pItem->GetLinkKey() : QByteArray();
        bHasKey = bHasKey || !key.isEmpty();
        hash.addData(key);
        hash.addData(";", 1);
    }
    if (bHasKey)
        m_similarKey = hash.result();
    return m_similarKey;
}

void CItem::ClearKeys() const { m_similarKey.clear(); }

QByteArray CItem::GetIdentity() const
{
    CByteWriter writer;
    writer.Write(m_nId);
    writer.Write(m_nType);
    writer.Write(GetLinkKey());
    return writer.Take();
}

bool CItem::MatchesIdentity(const QByteArray& identity, qint64 nIdOffset) const
{
    CByteReader reader(identity);
    qint64 nId = -1;
    qint64 nType = -1;
    QByteArray linkKey;
    reader.Read(nId);
    reader.Read(nType);
    return reader.Read(linkKey) && !__builtin_add_overflow(nId, nIdOffset, &nId) && nId == m_nId &&
           nType == m_nType && linkKey == GetLinkKey();
}

void CItem::CopyDataFrom(const CItem& other)
{
    const CDataPack own(*this);
    Assign(other);
    const auto keep = [&](const auto& key) { Set(*this, key, Get(own, key)); };
    keep(ItemKey::PARENT_ID);
    keep(ItemKey::CHILD_IDS);
    keep(ItemKey::DEPENDED_IDS);
    keep(ItemKey::IS_CONTAINER);
    keep(ItemKey::DESCRIPTION);
    keep(ItemKey::GRID_TYPE);
    keep(ItemKey::CELL_POINT_TOLERANCE);
    keep(ItemKey::IS_LINKED);
    keep(ItemKey::IS_SIMULATION_CLOSING);
    keep(ItemKey::TRANSFORM);
    keep(ItemKey::CONVERT);
    keep(ItemKey::IS_2D);
    SetParent(own.GetParent());
}

void CItem::SetSimulationClosing(bool bClosing) { Set(*this, ItemKey::IS_SIMULATION_CLOSING, bClosing); }
bool CItem::IsSimulationClosing() const { return Get(*this, ItemKey::IS_SIMULATION_CLOSING); }
void CItem::SetContainer(bool bContainer) { Set(*this, ItemKey::IS_CONTAINER, bContainer); }
bool CItem::IsContainer() const { return Get(*this, ItemKey::IS_CONTAINER); }

void CItem::SetDescription(const QString& sDescription)
{
    Set(*this, ItemKey::DESCRIPTION, sDescription);
    if (LastSetChanged())
        RefreshSelectable(-1);
}

QString CItem::GetDescription() const { return Get(*this, ItemKey::DESCRIPTION); }
void CItem::SetGridType(qint64 nType) { Set(*this, ItemKey::GRID_TYPE, nType); }
qint64 CItem::GetGridType() const { return Get(*this, ItemKey::GRID_TYPE); }

void CItem::SetCellPointTolerance(double dTolerance)
{
    Set(*this, ItemKey::CELL_POINT_TOLERANCE, dTolerance);
}

double CItem::GetCellPointTolerance() const { return Get(*this, ItemKey::CELL_POINT_TOLERANCE); }

void CItem::SetSize(const IVector3D& size)
{
    if (m_size == size)
        return;
    m_size = size;
    OnSizeChanged();
}

STransform CItem::GetTransform() const { return STransform(Get(*this, ItemKey::TRANSFORM)); }

void CItem::SetTransform(const STransform& transform) { Set(*this, ItemKey::TRANSFORM, transform.Matrix()); }

void CItem::SetTransformRecursive(const STransform& transform, bool bCombine)
{
    for (const qint64 nId : GetChildIds(-1, true)) {
        CItem* const pItem = nId == m_nId ? this : FindItem(nId);
        if (!pItem)
            continue;
        pItem->SetTransform(bCombine ? transform * pItem->GetTransform() : transform);
        pItem->RefreshSelectable(-1);
    }
}

IVector3D CItem::GetConvert() const { return Get(*this, ItemKey::CONVERT); }

void CItem::SetConvert(const IVector3D& axes, bool bApply)
{
    Set(*this, ItemKey::CONVERT, axes);
    for (int nAxis = 0; bApply && nAxis < 3; ++nAxis)
        if (axes[nAxis] == 1)
            ConvertAxis(nAxis);
}
