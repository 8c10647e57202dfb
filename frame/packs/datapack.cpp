#include "frame/packs/datapack_tables.h"

#include "frame/packs/packpath.h"
#include "frame/packs/packtext.h"

#include <algorithm>

using PackTableDetail::AreEqual;

CDataPack::CDataPack(bool bTextMode) : m_bTextMode(bTextMode) {}

CDataPack::CDataPack(const CDataPack& other)
    : m_bTextMode(other.m_bTextMode),
      m_bLastSetChanged(other.m_bLastSetChanged),
      m_pParent(other.GetParent()),
      m_bytes(other.m_bytes),
      m_tables(other.m_tables),
      m_childNames(other.m_childNames),
      m_children(other.m_children)
{
    AdoptChildren();
}

CDataPack::CDataPack(CDataPack&& other) noexcept
    : m_bTextMode(other.m_bTextMode),
      m_bLastSetChanged(other.m_bLastSetChanged),
      m_pParent(other.m_pParent),
      m_bytes(std::move(other.m_bytes)),
      m_tables(std::move(other.m_tables)),
      m_childNames(std::move(other.m_childNames)),
      m_children(std::move(other.m_children))
{
    AdoptChildren();
}

CDataPack& CDataPack::operator=(const CDataPack& other)
{
    if (this != &other)
        *this = CDataPack(other);
    return *this;
}

CDataPack& CDataPack::operator=(CDataPack&& other) noexcept
{
    if (this == &other)
        return *this;
    CDataPack taken(std::move(other)); // other may be a child of this pack: what it leaves dies with taken
    if (taken.m_pParent != this)
        m_pParent = taken.m_pParent;
    m_bTextMode = taken.m_bTextMode;
    m_bLastSetChanged = taken.m_bLastSetChanged;
    m_bytes = taken.m_bytes;
    m_tables.swap(taken.m_tables);
    m_childNames.swap(taken.m_childNames);
    m_children.swap(taken.m_children);
    AdoptChildren();
    return *this;
}

CDataPack::~CDataPack() = default;

void CDataPack::Assign(const CDataPack& other) { CDataPack::operator=(other); }

bool CDataPack::IsEmpty() const
{
    const auto AreAllEmpty = [](const auto&... tables) { return (tables.keys.isEmpty() && ...); };
    return m_childNames.isEmpty() && std::apply(AreAllEmpty, m_tables);
}

void CDataPack::SetParent(CDataPack* pParent) { m_pParent = pParent; }
CDataPack* CDataPack::GetParent() const { return m_pParent; }

void CDataPack::AdoptChildren()
{
    // Not const: children that are still shared with a copy become own ones.
    for (CDataPack& child : m_children) {
        child.m_pParent = this;
        child.m_bytes.clear();
    }
}

// Values

template <class T> T CDataPack::ReadPlain(QStringView sKey, const T& defaultValue) const
{
    const auto& table = std::get<STable<T>>(m_tables);
    const int nIndex = table.IndexOf(sKey);
    return nIndex < 0 ? defaultValue : table.values[nIndex];
}

template <class T> bool CDataPack::WritePlain(QStringView sKey, const T& value, const T& defaultValue)
{
    auto& table = std::get<STable<T>>(m_tables);
    const bool bChanged = !AreEqual(ReadPlain(sKey, defaultValue), value);
    if (AreEqual(value, defaultValue))
        table.Remove(sKey);
    else
        table.Store(sKey, value);
    return bChanged;
}

// Text mode

template <class T> T CDataPack::ReadText(QStringView sKey, const T& defaultValue) const
{
    const auto& table = std::get<STable<QString>>(m_tables);
    const int nIndex = table.IndexOf(sKey);
    T value = defaultValue;
    return nIndex >= 0 && PackText::FromText(table.values[nIndex], value) ? value : defaultValue;
}

template <class T> bool CDataPack::WriteText(QStringView sKey, const T& value, const T& defaultValue)
{
    // Rounding may have changed the value on its way into the text, so both sides are read from there.
    const T before = ReadText(sKey, defaultValue);
    auto& table = std::get<STable<QString>>(m_tables);
    if (!AreEqual(value, defaultValue))
        table.Store(sKey, PackText::ToText(value));
    else if constexpr (std::is_same_v<T, double>)
        table.Store(sKey, PackText::DEFAULT_REAL);
    else
        table.Remove(sKey);
    return !AreEqual(before, ReadText(sKey, defaultValue));
}

// Paths

template <class T> T CDataPack::Read(QStringView sPath, const T& defaultValue, bool bText) const
{
    const SPackPath path(sPath);
    bText = bText || m_bTextMode;
    if (!path.sRest.isEmpty()) {
        const int nChild = ChildIndex(path.sFirst);
        return nChild < 0 ? defaultValue : m_children[nChild].Read(path.sRest, defaultValue, bText);
    }
    if constexpr (!std::is_same_v<T, QString>)
        if (bText)
            return ReadText(path.sFirst, defaultValue);
    return ReadPlain(path.sFirst, defaultValue);
}

template <class T> bool CDataPack::Write(QStringView sPath, const T& value, const T& defaultValue, bool bText)
{
    const SPackPath path(sPath);
    bText = bText || m_bTextMode;
    m_bytes.clear();
    if (path.sRest.isEmpty()) {
        m_bLastSetChanged = !path.sFirst.isEmpty() && WriteHere(path.sFirst, value, defaultValue, bText);
    } else {
        const int nChild = FindOrAddChild(path.sFirst);
        m_bLastSetChanged = m_children[nChild].Write(path.sRest, value, defaultValue, bText);
        PruneSubPack(nChild);
    }
    return m_bLastSetChanged;
}

template <class T>
bool CDataPack::WriteHere(QStringView sKey, const T& value, const T& defaultValue, bool bText)
{
    if constexpr (!std::is_same_v<T, QString>)
        if (bText)
            return WriteText(sKey, value, defaultValue);
    return WritePlain(sKey, value, defaultValue);
}

int CDataPack::ChildIndex(QStringView sName) const
{
    for (int n = 0; n < m_childNames.size(); ++n)
        if (m_childNames[n] == sName)
            return n;
    return -1;
}

int CDataPack::FindOrAddChild(QStringView sName)
{
    const int nChild = ChildIndex(sName);
    return nChild < 0 ? int(AddSubPack(sName.toString())) : nChild;
}

// Typed access

QString CDataPack::GetString(const QString& sPath, const QString& sDefault) const
{
    return Read(sPath, sDefault);
}
double CDataPack::GetDouble(const QString& sPath, double dDefault) const { return Read(sPath, dDefault); }
qint64 CDataPack::GetInt(const QString& sPath, qint64 nDefault) const { return Read(sPath, nDefault); }
bool CDataPack::GetBool(const QString& sPath, bool bDefault) const { return Read(sPath, bDefault); }

QPoint CDataPack::GetPoint(const QString& sPath, const QPoint& defaultValue) const
{
    return Read(sPath, defaultValue);
}

QPointF CDataPack::GetPointF(const QString& sPath, const QPointF& defaultValue) const
{
    return Read(sPath, defaultValue);
}

QColor CDataPack::GetColor(const QString& sPath, const QColor& defaultValue) const
{
    return Read(sPath, defaultValue);
}

QFont CDataPack::GetFont(const QString& sPath, const QFont& defaultValue) const
{
    return Read(sPath, defaultValue);
}

QVector<qint64> CDataPack::GetIntList(const QString& sPath, const QVector<qint64>& defaultValue) const
{
    return Read(sPath, defaultValue);
}

IVector3D CDataPack::GetIVector(const QString& sPath, const IVector3D& defaultValue) const
{
    return Read(sPath, defaultValue);
}

DVector3D CDataPack::GetDVector(const QString& sPath, const DVector3D& defaultValue) const
{
    return Read(sPath, defaultValue);
}

QStringList CDataPack::GetStringList(const QString& sPath, const QStringList& defaultValue) const
{
    return Read(sPath, defaultValue);
}

DMatrix4x4 CDataPack::GetMatrix(const QString& sPath, const DMatrix4x4& defaultValue) const
{
    return Read(sPath, defaultValue);
}

STransform CDataPack::GetTransform(const QString& sPath, const STransform& defaultValue) const
{
    return Read(sPath, defaultValue);
}

void CDataPack::SetString(const QString& sPath, const QString& sValue, const QString& sDefault)
{
    Write(sPath, sValue, sDefault);
}

void CDataPack::SetDouble(const QString& sPath, double dValue, double dDefault)
{
    Write(sPath, dValue, dDefault);
}
void CDataPack::SetInt(const QString& sPath, qint64 nValue, qint64 nDefault)
{
    Write(sPath, nValue, nDefault);
}
void CDataPack::SetBool(const QString& sPath, bool bValue, bool bDefault) { Write(sPath, bValue, bDefault); }

void CDataPack::SetPoint(const QString& sPath, const QPoint& value, const QPoint& defaultValue)
{
    Write(sPath, value, defaultValue);
}

void CDataPack::SetPointF(const QString& sPath, const QPointF& value, const QPointF& defaultValue)
{
    Write(sPath, value, defaultValue);
}

void CDataPack::SetColor(const QString& sPath, const QColor& value, const QColor& defaultValue)
{
    Write(sPath, value, defaultValue);
}

void CDataPack::SetFont(const QString& sPath, const QFont& value, const QFont& defaultValue)
{
    Write(sPath, value, defaultValue);
}

void CDataPack::SetIntList(const QString& sPath, const QVector<qint64>& value,
                           const QVector<qint64>& defaultValue)
{
    Write(sPath, value, defaultValue);
}

void CDataPack::SetIVector(const QString& sPath, const IVector3D& value, const IVector3D& defaultValue)
{
    Write(sPath, value, defaultValue);
}

void CDataPack::SetDVector(const QString& sPath, const DVector3D& value, const DVector3D& defaultValue)
{
    Write(sPath, value, defaultValue);
}

void CDataPack::SetStringList(const QString& sPath, const QStringList& value, const QStringList& defaultValue)
{
    Write(sPath, value, defaultValue);
}

void CDataPack::SetMatrix(const QString& sPath, const DMatrix4x4& value, const DMatrix4x4& defaultValue)
{
    Write(sPath, value, defaultValue);
}

void CDataPack::SetTransform(const QString& sPath, const STransform& value, const STransform& defaultValue)
{
    Write(sPath, value, defaultValue);
}
