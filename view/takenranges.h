#pragma once

#include <QVector>

class ISelectable;

/**
 * Items whose colours or threshold go by the range that a formula gave them. Made before the formula changes,
 * it gives them the new range afterwards. Main thread only.
 */
class CTakenRanges
{
public:
    /**
     * Finds the items that show the variable, or one that rests on it, over its range in the whole case; and
     * those that could take none from it, since it has no values.
     */
    explicit CTakenRanges(qint64 nVariableId);

    /** The ranges as they are now; a variable without values leaves its items as they are. */
    void TakeAnew() const;

private:
    QVector<ISelectable*> m_scalars;
    QVector<ISelectable*> m_thresholds;
};
