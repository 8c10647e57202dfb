#pragma once

#include "data/variables/variablegroup.h"

#include <QTreeWidget>

class IVariable;

/**
 * A row of a list of variables. Rows stand by group, whatever column the list is sorted by and in which
 * direction; a separator stands ahead of its group.
 */
class CVariableTreeItem : public QTreeWidgetItem
{
public:
    /** The variable's name, its icon and its comment; the other columns are the caller's. */
    explicit CVariableTreeItem(const IVariable& variable);
    /** A row of text that can't be selected, the head of the rows below it. */
    CVariableTreeItem(VariableGroup_e eGroup, const QString& sHead);
    /** A separator. */
    explicit CVariableTreeItem(VariableGroup_e eGroup);

    qint64 GetVariableId() const { return m_nVariableId; } ///< -1 for heads and separators
    VariableGroup_e GetGroup() const { return m_eGroup; }
    bool IsSeparator() const { return m_bSeparator; }

    bool operator<(const QTreeWidgetItem& other) const override;

private:
    bool IsDescending() const;

    qint64 m_nVariableId = -1;
    VariableGroup_e m_eGroup;
    bool m_bSeparator = false;
};

/** What the lists of variables have in common. */
namespace VariableTree {

/** Makes the tree draw its separators; once for each tree. */
void SetUp(QTreeWidget& tree);

/** Puts a separator between the groups of the rows below the parent. */
void AddSeparators(QTreeWidgetItem& parent);

/** Hides the rows whose name doesn't hold the text, and what only stood for them; "" shows all. */
void Filter(QTreeWidgetItem& parent, const QString& sText);

/** The row of the variable, anywhere in the tree; null if there is none. */
CVariableTreeItem* FindRow(const QTreeWidget& tree, qint64 nVariableId);

} // namespace VariableTree
