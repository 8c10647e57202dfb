#pragma once

#include <QStringList>
#include <QVector>

class ISelectable;

/** For what an item is shown with a variable. */
enum VariableRole_e { RoleScalar, RoleVector, RoleThreshold };

/**
 * The variables that items are shown with, as the boxes of the toolbars name them. An empty name is no
 * variable.
 */
namespace VariableChoice {

/** The listed variables of the case that fit the role and aren't constants; a name that stands at nodes and
 * at cells once. */
QStringList ListNames(qint64 nSimulationId, VariableRole_e eRole);
/** At nodes, then at cells, then among constants; -1 for a name that is none of the role's kind. */
qint64 Find(qint64 nSimulationId, const QString& sName, VariableRole_e eRole);
/** The variable that all items have; -1 if they have none or differ. */
qint64 CommonId(const QVector<ISelectable*>& subjects, VariableRole_e eRole);
/** Its name, or MULTIPLE. */
QString CommonName(const QVector<ISelectable*>& subjects, VariableRole_e eRole);

/**
 * Shows the items with a variable, -1 for none. A scalar replaces the constant colour, and without one an
 * item has that colour again; what an item didn't show before starts with the range of the whole case. An
 * item that can't go on being shown as it is, for contours or arrows of no variable, is shaded. The undo
 * bracket is the caller's.
 */
void Show(const QVector<ISelectable*>& subjects, VariableRole_e eRole, qint64 nId);

/** What the user reads who enters a name that Find doesn't know. */
QString InvalidText(VariableRole_e eRole);

} // namespace VariableChoice
