#pragma once

#include <QtGlobal>

/** What a case is coloured by before its user has chosen anything. */
namespace FirstColors {

/**
 * Shows a case that has just been made of data files by its pressure, else by the first scalar that stands in
 * its files, over the range of the whole case, with one legend. A case that holds no such scalar keeps the
 * colours of its items. It is no step to undo.
 */
void Show(qint64 nViewId, qint64 nSimulationId);

} // namespace FirstColors
