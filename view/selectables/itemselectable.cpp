#include "view/selectables/itemselectable.h"

#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "scene/selectablekeys.h"
#include "simulation/item.h"
#include "view/selectables/surfaceitems.h"

namespace {
constexpr int MAX_FACES = 6;
constexpr qint64 GRID_UNSTRUCTURED = 2;
} // namespace

CItemSelectable::CItemSelectable(const CItem& item, qint64 nViewId)
    : CShapeSelectable(item, nViewId, item.GetShownKind())
{
    Set(*this, SelectableKey::IS_MAIN, typeId() == KindBlock);
    Set(*this, SelectableKey::UNIFY_TYPE, typeId());
    Set(*this, SelectableKey::STATUSBAR_STRING, item.GetTypeName());
    if (typeId() != KindBlock)
        return;
    SetBlocks({item.GetId()});
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
