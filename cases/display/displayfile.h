#pragma once

class ISimulation;
class QByteArray;
class QString;

// Display files of a case (docs/formats/displayfiles.md). Every problem is told to the user.

/** A name in the directory that no file has, by the time of day: two views may close within a second. */
QString FreeDisplayFile(const QString& sDirectory, const QString& sEnd);

/** What a display file of the view holds now. */
QByteArray MakeDisplayFile(const ISimulation& simulation, qint64 nViewId);

/**
 * Writes it under the time of day into the directory of the case's data. Nothing without a view of the
 * window, and where it can't be written.
 */
void WriteDisplayFile(const ISimulation& simulation, qint64 nViewId);

/**
 * Shows what the file says, one step of undo: overrides, data files, items, camera, mirror and sectors. Keys
 * that can't be applied are told and don't stop it.
 *
 * @return false for a file that isn't one; nothing has changed then
 */
bool ReadDisplayFile(ISimulation& simulation, const QString& sFile, qint64 nViewId);

/**
 * Lets the user choose one of the display files in the directory of the case's data, and shows it.
 *
 * @return false if there are none: nothing was asked
 */
bool OfferDisplayFiles(ISimulation& simulation, qint64 nViewId);
