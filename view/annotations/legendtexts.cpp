#include "view/annotations/legendtexts.h"

#include "data/variables/variablemanager.h"
#include "scene/drawablemanager.h"
#include "scene/iselectable.h"
#include "scene/selectablekeys.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"
#include "view/selectables/kinds.h"

namespace {

// Columns of a surface in the item panel.
constexpr qint64 BLOCK_COLUMN = 1, DIRECTION_COLUMN = 2, CONSTANT_COLUMN = 3;
constexpr QChar LONG_DASH(0x2014);

QString BlockName(const ISelectable& owner)
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(owner.simulationId());
    const CItem* const pBlock =
        pSimulation && owner.blockId() != -1 ? pSimulation->GetItem(owner.blockId()) : nullptr;
    return pBlock ? pBlock->GetDisplayName() : QString();
}

/** The text with the place of the item among those of its kind, from 1, if there are others. */
QString Numbered(const QString& sText, const ISelectable& owner)
{
    int nCount = 0, nPlace = 0;
    const auto all = CSelectableManager::Instance().GetSelectables(owner.viewId(), owner.simulationId());
    for (const ISelectable* const pOther : all) {
        if (pOther->typeId() != owner.typeId())
            continue;
        ++nCount;
        if (pOther == &owner)
            nPlace = nCount;
    }
    return nCount < 2 ? sText : QString("%1 %2").arg(sText).arg(nPlace);
}

} // namespace

QString AutomaticTitle(const IDrawable& drawable)
{
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(drawable.scalarVariable());
    return pVariable ? pVariable->GetName() : QString();
}

bool ShowsNoValues(const IDrawable& drawable)
{
    bool bAnyShown = false;
    for (const IDrawable* const pOther :
         CDrawableManager::Instance().GetDrawables(drawable.viewId(), drawable.simulationId())) {
        if (pOther->scalarVariable() != drawable.scalarVariable() || !pOther->isVisible())
            continue;
        const QPointF range = pOther->scalarRange();
        if (pOther->needsBuild() || range.x() <= range.y())
            return false;
        bAnyShown = true;
    }
    return bAnyShown;
}

QString AutomaticSubtitle(const IDrawable& drawable)
{
    const ISelectable* const pOwner = drawable.ownerSelectables().value(0);
    if (!pOwner)
        return {};
    const SKindRow* const pRow = FindKind(pOwner->typeId());
    return pRow && pRow->LegendText ? pRow->LegendText(*pOwner)
                                    : LegendTexts::OfBlockOr(pOwner->name(), *pOwner);
}

QString LegendTexts::OfPlane(const ISelectable& owner)
{
    const QString sBlock = Get(owner, SelectableKey::COLUMN, BLOCK_COLUMN);
    const QString sDirection = Get(owner, SelectableKey::COLUMN, DIRECTION_COLUMN);
    const QString sConstant = Get(owner, SelectableKey::COLUMN, CONSTANT_COLUMN);
    if (!sDirection.isEmpty())
        return (sBlock.isEmpty() ? "" : sBlock + ' ') + QString("%1=%2").arg(sDirection, sConstant);
    const QString sKind = "Computational Surface";
    return sBlock.isEmpty() ? sKind : QString("%1 %2 %3").arg(sKind, QString(LONG_DASH), sBlock);
}

QString LegendTexts::OfBlockOr(const QString& sText, const ISelectable& owner)
{
    const QString sBlock = BlockName(owner);
    return sBlock.isEmpty() ? Numbered(sText, owner) : sBlock;
}
