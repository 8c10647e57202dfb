#pragma once

#include <QJsonObject>

class ISimulation;

// What a view shows of a case of blocks, as JSON (docs/formats/displayfiles.md). Blocks are found again by
// their grid (CItem::GetLinkKey), then by name, so that the display of one case fits another one with the
// same blocks.

/** The display as it is now. */
QJsonObject TakeViewJson(const ISimulation& simulation, qint64 nViewId);

/** Whether the object is such a display: one that lists something. */
bool IsViewJson(const QJsonObject& display);

/**
 * Shows the display. Surfaces that aren't there are made; what it doesn't name stays; a block that the case
 * doesn't have, and kinds that aren't known, are left out, which the log says.
 *
 * @return false for an object that holds no display at all
 */
bool ApplyViewJson(ISimulation& simulation, const QJsonObject& display, qint64 nViewId);
