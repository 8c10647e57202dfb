#pragma once

#include <QString>

class IDrawable;
class ISelectable;

/** The name of the variable that colours the drawable; empty without one. */
QString AutomaticTitle(const IDrawable& drawable);

/** Nothing that its view shows of the drawable's scalar has a value. */
bool ShowsNoValues(const IDrawable& drawable);

/** What the drawable's item is: the surface with its place, the block, or the kind with its number. */
QString AutomaticSubtitle(const IDrawable& drawable);

/** What legends say of kinds. */
namespace LegendTexts {

/** "zone 1 K=12": block and place of an index plane, from its columns in the item panel. */
QString OfPlane(const ISelectable& owner);
/** The block; of what has none the text, numbered among those of its kind. */
QString OfBlockOr(const QString& sText, const ISelectable& owner);

} // namespace LegendTexts
