#pragma once

#include "data/values/valuerange.h"
#include "data/variables/variablemanager.h"
#include "scene/iselectable.h"

#include <QHash>

/**
 * Ranges of variables over the cases of a list of items, each asked for once: a range that has no values
 * isn't remembered by its variable, and a list may hold thousands of items.
 */
class CCaseRanges
{
public:
    /** Over the whole case that the item shows; nothing for -1 and without data. */
    std::optional<SValueRange> Get(const ISelectable& item, qint64 nVariableId)
    {
        const Key key({item.viewId(), item.simulationId()}, nVariableId);
        if (const auto known = m_ranges.constFind(key); known != m_ranges.cend())
            return *known;
        IVariable* const pVariable = CVariableManager::Instance().GetVariable(nVariableId);
        const std::optional<SValueRange> range =
            pVariable ? pVariable->GetGlobalRange(item.viewId(), item.simulationId(), -1) : std::nullopt;
        return *m_ranges.insert(key, range);
    }

private:
    using Key = QPair<QPair<qint64, qint64>, qint64>; // view and simulation, variable
    QHash<Key, std::optional<SValueRange>> m_ranges;
};
