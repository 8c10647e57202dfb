#include "view/selectables/itemselectable.h"

#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "scene/selectablekeys.h"
#include "simulation/item.h"
#include "view/selectables/surfaceitems.h"

#include <QJsonArray>

namespace {
constexpr int MAX_FACES = 6;
constexpr qint64 GRID_UNSTRUCTURED = 2;
} // namespace

CItemSelectable::CItemSelectable(const CItem& item, qint64 nViewId)
    : CShapeSelectable(item, nViewId, item.GetType())
{
    Set(*this, SelectableKey::IS_MAIN, item.GetType() == KindBlock);
    Set(*this, SelectableKey::UNIFY_TYPE, item.GetType());
    Set(*this, SelectableKey::STATUSBAR_STRING, item.GetTypeName());
    if (item.GetType() != KindBlock)
        return;
    SetBlocks({item.GetId()});
    for (const auto& key : {SelectableKey::HAS_LEGEND, SelectableKey::CAN_PLANE_INTERSECTION,
                            SelectableKey::CAN_ISO_SURFACE, SelectableKey::CAN_SCALAR_EXTREME})
        Set(*this, key, true);
    if (item.GetGridType() == GRID_UNSTRUCTURED)
        return; // has no index faces
    for (const int nFace :
         FacesToShow(item.GetSize(), Get(CPreferences::Instance(), PreferenceKey::DEFAULT_FACE)))
        AddFace(item.GetSize(), nFace);
}

void CItemSelectable::AddFace(const IVector3D& dimensions, int nFace)
{
    auto* const pFace = new CSurfaceDrawable(simulationId(), viewId(), blockId());
    ApplyFirstDisplay(*pFace);
    AddShape(pFace, FacePlane(dimensions, nFace));
}

void CItemSelectable::PrepareDrawables(qint64 nCount)
{
    const CItem* const pBlock = FindBlock();
    if (!pBlock || m_drawables.isEmpty())
        return;
    const int nFaces = int(std::clamp<qint64>(nCount, 1, MAX_FACES));
    while (m_drawables.size() > nFaces)
        RemoveLastShape();
    while (m_drawables.size() < nFaces)
        AddFace(pBlock->GetSize(), m_drawables.size());
}

QVector<ISelectable*> CItemSelectable::Surfaces() const
{
    QVector<ISelectable*> surfaces = children();
    surfaces.erase(std::remove_if(surfaces.begin(), surfaces.end(),
                                  [](const ISelectable* pChild) { return pChild->typeId() != KindSurface; }),
                   surfaces.end());
    return surfaces;
}

QJsonObject CItemSelectable::toJsonBlock() const
{
    QJsonObject block = CSelectable::toJsonBlock();
    QJsonArray surfaces;
    for (const ISelectable* const pSurface : Surfaces())
        surfaces.append(pSurface->toJsonBlock());
    block["surfaces"] = surfaces;
    return block;
}

bool CItemSelectable::fromJsonBlock(const QJsonObject& block)
{
    if (!CSelectable::fromJsonBlock(block))
        return false;
    const QJsonArray entries = block["surfaces"].toArray();
    const QVector<ISelectable*> surfaces = Surfaces();
    bool bRead = true;
    for (int n = 0; n < std::min(entries.size(), surfaces.size()); ++n)
        bRead &= surfaces[n]->fromJsonBlock(entries[n].toObject());
    return bRead;
}
