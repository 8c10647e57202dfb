#include "view/selectables/surfaceselectable.h"

#include "scene/selectablekeys.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"
#include "view/selectables/surfaceitems.h"

namespace {

// Columns of the item panel; 0 is the name.
constexpr qint64 BLOCK_COLUMN = 1, DIRECTION_COLUMN = 2, CONSTANT_COLUMN = 3, COLUMN_COUNT = 4;

} // namespace

CSurfaceSelectable::CSurfaceSelectable(const CItem& item, qint64 nViewId, SelectableKind_e eKind)
    : CShapeSelectable(item, nViewId, eKind)
{
    SetBlocks({item.GetParentId()});
    Set(*this, SelectableKey::COLUMN_COUNT, COLUMN_COUNT);
    Set(*this, SelectableKey::UNIFY_TYPE, KindSurface); // all that are planes share the dock
    Set(*this, SelectableKey::STATUSBAR_STRING, "Surface");
    auto* const pDrawable = new CSurfaceDrawable(simulationId(), nViewId, blockId());
    ApplyFirstDisplay(*pDrawable);
    AddShape(pDrawable, InBlock(Definitions::FromPack<SSurfacePlane>(item)));
    FillColumns();
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

SSurfacePlane CSurfaceSelectable::InBlock(const SSurfacePlane& plane) const
{
    const IVector3D dimensions = gridDimensions();
    return dimensions == IVector3D() ? plane : InsideBlock(plane, dimensions);
}

void CSurfaceSelectable::TakePlane(const SSurfacePlane& plane)
{
    if (!hasFixedPlane())
        SetDefinition(InBlock(plane));
}

void CSurfaceSelectable::setConstantDirection(int nDirection)
{
    if (nDirection < 0 || nDirection > 2)
        return;
    SSurfacePlane changed = plane();
    changed.nDirection = nDirection;
    changed.start = {1, 1, 1};
    changed.end = gridDimensions();
    TakePlane(changed);
}

void CSurfaceSelectable::setRanges(const IVector3D& start, const IVector3D& end)
{
    SSurfacePlane changed = plane();
    changed.start = start;
    changed.end = end;
    TakePlane(changed);
}

void CSurfaceSelectable::setConstantValue(qint64 nValue)
{
    SSurfacePlane changed = plane();
    changed.constants[changed.nDirection] = nValue;
    TakePlane(changed);
}

void CSurfaceSelectable::setStartIndices(const IVector3D& start)
{
    if (start.i <= plane().end.i && start.j <= plane().end.j && start.k <= plane().end.k)
        setRanges(start, plane().end);
}

void CSurfaceSelectable::setEndIndices(const IVector3D& end)
{
    if (end.i >= plane().start.i && end.j >= plane().start.j && end.k >= plane().start.k)
        setRanges(plane().start, end);
}

void CSurfaceSelectable::FillColumns()
{
    Set(*this, SelectableKey::COLUMN, BLOCK_COLUMN, blockName());
    Set(*this, SelectableKey::COLUMN, DIRECTION_COLUMN, DirectionLetter());
    Set(*this, SelectableKey::COLUMN, CONSTANT_COLUMN, QString::number(constantValue()));
}

void CSurfaceSelectable::apply()
{
    FillColumns();
    if (CItem* const pItem = FindItem())
        Definitions::ToPack(plane(), *pItem);
    CSelectableManager::Instance().NotifyUpdated(this);
}

void CSurfaceSelectable::TakeDefinition(const SSurfacePlane& read, int)
{
    const SSurfacePlane former = plane();
    TakePlane(read);
    if (plane() != former)
        apply();
}

SIJKRange CSurfaceSelectable::NodesInBlock(const SBlockShape& nodes) const
{
    return Intersection(plane().Range(), nodes.Range());
}

QJsonObject CSurfaceSelectable::toJsonBlock() const
{
    QJsonObject block = CSelectable::toJsonBlock();
    Definitions::AddToJson(plane(), block, true);
    return block;
}

bool CSurfaceSelectable::fromJsonBlock(const QJsonObject& block)
{
    if (!CSelectable::fromJsonBlock(Definitions::Without<SSurfacePlane>(block)))
        return false;
    // What a user edits goes ahead of what stands in the drawable.
    SSurfacePlane edited = plane();
    Definitions::FromJson(block, edited);
    if (edited.nDirection != constantDirection())
        setConstantDirection(edited.nDirection);
    setConstantValue(edited.constants[constantDirection()]);
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
