#pragma once

#include <QtGlobal>

/** What a case is coloured by before its user has chosen anything. */
namespace FirstColors {

/** Points of a case whose range is worth waiting for: about a second of reading and calculating. */
inline constexpr qint64 MOST_POINTS_TO_READ = 32'000'000;

/**
 * Shows a case that has just been made of data files by its pressure, else by the first scalar that stands in
 * its files, over the range of the whole case, with one legend. A case that holds no such scalar keeps the
 * colours of its items. It is no step to undo.
 *
 * @param nMostPoints  a case of more is on screen at once: its range is that of what is shown, so that no
 *                     block is read for it, and the status bar says so
 */
void Show(qint64 nViewId, qint64 nSimulationId, qint64 nMostPoints = MOST_POINTS_TO_READ);

} // namespace FirstColors
