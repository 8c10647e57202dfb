#pragma once

#include "scene/selectablekeys.h"
#include "scene/selectablekind.h"
#include "view/selectables/overridefield.h"

#include <QVector>

class CItem;
class ISelectable;
class ISimulation;

/** What a kind offers; set in the packs of its selectables (scene/selectablekeys.h). */
enum KindCapability_e : qint64 {
    CapabilityLegend = 1,
    CapabilityIsoSurface = 2,
    CapabilityPlaneCut = 4,
    CapabilityExtreme = 8,
    CapabilitySums = 16, ///< integrals of scalars and of forces
};

/** All that the program knows of a kind that can be shown. */
struct SKindRow
{
    SelectableKind_e eKind;
    /** Its list stands in a block's entry of a display file, else beside that of the blocks. */
    bool bUnderBlock = false;
    const char* sList = nullptr; ///< the list's name; null: it has none
    const char* sGroup = "";     ///< in the item panel, as the next three
    const char* sName = "";
    const char* sToolTip = "";
    const char* sIcon = "";
    const char* sDeleteName = nullptr; ///< of several in the question before they go; null: they are "items"
    qint64 nCapabilities = 0;          ///< KindCapability_e
    qint64 nDocks = 0;                 ///< DataDock_e
    /** A new item, with its selectables in all views. Null: users make none, and entries go by their names.
     */
    CItem* (*MakeItem)(ISimulation& simulation, const QVector<qint64>& blockIds) = nullptr;
    /** Null: of a version to come. What files say of it is kept, and written back. */
    ISelectable* (*MakeSelectable)(CItem& item, qint64 nPartId, qint64 nViewId) = nullptr;
    /** What a legend says of it; null: its block, or its name. */
    QString (*LegendText)(const ISelectable& selectable) = nullptr;
    const char* sOverrideHead = nullptr;            ///< of its fields in the short table of a display file
    std::span<const SOverrideField> overrides = {}; ///< those fields

    bool HasList() const { return sList && MakeSelectable; }
};

/** Of the program first, then of its modules. */
const QVector<const SKindRow*>& Kinds();
/** Null for a kind of a later version. */
const SKindRow* FindKind(qint64 nKind);
/** A module's own kinds, at start-up. The rows must stay. */
void AddKinds(std::span<const SKindRow> rows);
