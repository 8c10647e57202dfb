#pragma once

#include <QVector>

class ISimulation;
class QString;

/**
 * Writes blocks of a case as they are at a time into a Plot3D grid file (double precision, Fortran records,
 * multi-block), with progress, and tells what is wrong.
 *
 * @return false if it failed or was cancelled; a former file is as it was then
 */
bool ExportGrids(const ISimulation& simulation, const QVector<qint64>& itemIds, double dTime,
                 const QString& sFileName);
