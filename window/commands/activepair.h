#pragma once

#include <QVector>

class ISelectable;
class ISimulation;

/** The case on top of the active view, and the view, as of the moment it is made. */
struct SActivePair
{
    SActivePair();

    ISimulation* pSimulation; ///< null: no case in the view
    qint64 nViewId;

    /** All of the case in the view; none without a case. */
    QVector<ISelectable*> GetSelectables() const;
    /** The selected ones; with bChildren also those of all items below theirs, each once. */
    QVector<ISelectable*> GetSubjects(bool bChildren) const;
};
