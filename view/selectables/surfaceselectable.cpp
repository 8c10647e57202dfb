#include "view/selectables/surfaceselectable.h"

#include "frame/packs/jsoninteger.h"
#include "scene/selectablekeys.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"
#include "view/selectables/surfaceitems.h"

#include <QJsonArray>

namespace {

// Columns of the item panel; 0 is the name.
constexpr qint64 BLOCK_COLUMN = 1, DIRECTION_COLUMN = 2, CONSTANT_COLUMN = 3, COLUMN_COUNT = 4;

// Names of the two fields that a user edits by hand in a display file.
constexpr const char* DIRECTION_FIELD = "constantDirection";
constexpr const char* CONSTANT_FIELD = "constantValue";

} // namespace

CSurfaceSelectable::CSurfaceSelectable(const CItem& item, qint64 nViewId, SelectableKind_e eKind)
    : CSelectable(item, nViewId, eKind)
{
    SetBlocks({item.GetParentId()});
    Set(*this, SelectableKey::COLUMN_COUNT, COLUMN_COUNT);
    Set(*this, SelectableKey::UNIFY_TYPE, KindSurface); // all that are planes share the dock
    Set(*this, SelectableKey::DATA_DOCKS, DataDockSurface);
    Set(*this, SelectableKey::STATUSBAR_STRING, "Surface");
    for (const auto& key : {SelectableKey::HAS_LEGEND, SelectableKey::CAN_SCALAR_EXTREME,
                            SelectableKey::CAN_INTEGRATE_SCALAR, SelectableKey::CAN_INTEGRATE_FORCE})
        Set(*this, key, true);
    auto* const pDrawable = new CSurfaceDrawable(simulationId(), nViewId, blockId());
    ApplyFirstDisplay(*pDrawable);
    AddDrawable(pDrawable);
    TakePlane(PlaneOf(item));
    ShowPlane();
}

QString CSurfaceSelectable::blockName() const
{
    const CItem* const pBlock = FindBlock();
    return pBlock ? pBlock->GetName() : QString();
}

QString CSurfaceSelectable::name() const
{
    return QString("Surface %2 = %3 [%1]")
        .arg(blockName(), DirectionLetter(), QString::number(constantValue()));
}

IVector3D CSurfaceSelectable::gridDimensions() const
{
    const CItem* const pBlock = FindBlock();
    return pBlock ? pBlock->GetSize() : IVector3D();
}

void CSurfaceSelectable::TakePlane(const SSurfacePlane& plane)
{
    const IVector3D dimensions = gridDimensions();
    m_plane = dimensions == IVector3D() ? plane : InsideBlock(plane, dimensions);
}

void CSurfaceSelectable::setConstantDirection(int nDirection)
{
    if (hasFixedPlane() || nDirection < 0 || nDirection > 2)
        return;
    SSurfacePlane plane = m_plane;
    plane.nDirection = nDirection;
    plane.start = {1, 1, 1};
    plane.end = gridDimensions();
    TakePlane(plane);
}

void CSurfaceSelectable::setRanges(const IVector3D& start, const IVector3D& end)
{
    if (hasFixedPlane())
        return;
    SSurfacePlane plane = m_plane;
    plane.start = start;
    plane.end = end;
    TakePlane(plane);
}

void CSurfaceSelectable::setConstantValue(qint64 nValue)
{
    if (hasFixedPlane())
        return;
    SSurfacePlane plane = m_plane;
    plane.constants[plane.nDirection] = nValue;
    TakePlane(plane);
}

void CSurfaceSelectable::setStartIndices(const IVector3D& start)
{
    if (start.i <= m_plane.end.i && start.j <= m_plane.end.j && start.k <= m_plane.end.k)
        setRanges(start, m_plane.end);
}

void CSurfaceSelectable::setEndIndices(const IVector3D& end)
{
    if (end.i >= m_plane.start.i && end.j >= m_plane.start.j && end.k >= m_plane.start.k)
        setRanges(m_plane.start, end);
}

void CSurfaceSelectable::ShowPlane()
{
    for (IDrawable* const pDrawable : std::as_const(m_drawables))
        static_cast<CSurfaceDrawable*>(pDrawable)->setPlane(m_plane);
    Set(*this, SelectableKey::COLUMN, BLOCK_COLUMN, blockName());
    Set(*this, SelectableKey::COLUMN, DIRECTION_COLUMN, DirectionLetter());
    Set(*this, SelectableKey::COLUMN, CONSTANT_COLUMN, QString::number(constantValue()));
}

void CSurfaceSelectable::apply()
{
    ShowPlane();
    if (CItem* const pItem = FindItem())
        SetPlane(*pItem, m_plane);
    CSelectableManager::Instance().NotifyUpdated(this);
}

void CSurfaceSelectable::refreshFromDrawables()
{
    const SSurfacePlane read = static_cast<CSurfaceDrawable*>(m_drawables.first())->plane();
    const SSurfacePlane former = m_plane;
    if (!hasFixedPlane())
        TakePlane(read);
    if (m_plane == read && m_plane == former)
        return;
    apply();
}

SIJKRange CSurfaceSelectable::NodesInBlock(const SBlockShape& nodes) const
{
    return Intersection(m_plane.Range(), nodes.Range());
}

QJsonObject CSurfaceSelectable::toJsonBlock() const
{
    QJsonObject block = CSelectable::toJsonBlock();
    block[DIRECTION_FIELD] = m_plane.nDirection;
    block[CONSTANT_FIELD] = QJsonArray{m_plane.constants.i, m_plane.constants.j, m_plane.constants.k};
    return block;
}

bool CSurfaceSelectable::fromJsonBlock(const QJsonObject& block)
{
    if (!CSelectable::fromJsonBlock(block))
        return false;
    // These two go ahead of what stands in the drawable: they are what a user edits.
    const int nDirection = block[DIRECTION_FIELD].toInt(m_plane.nDirection);
    if (nDirection != m_plane.nDirection)
        setConstantDirection(nDirection);
    const QJsonArray constants = block[CONSTANT_FIELD].toArray();
    if (constants.size() == 3)
        setConstantValue(ToInteger(constants[m_plane.nDirection], constantValue()));
    apply();
    return true;
}

CBoundarySurfaceSelectable::CBoundarySurfaceSelectable(const CItem& item, qint64 nViewId)
    : CSurfaceSelectable(item, nViewId, KindBoundarySurface)
{
    Set(*this, SelectableKey::STATUSBAR_STRING, "Boundary");
}

CFaceSelectable::CFaceSelectable(const CItem& item, qint64 nViewId)
    : CSurfaceSelectable(item, nViewId, KindFace)
{
    Set(*this, SelectableKey::STATUSBAR_STRING, "Face");
}

QString CFaceSelectable::name() const { return QString("Face %2 [%1]").arg(blockName(), DirectionLetter()); }
