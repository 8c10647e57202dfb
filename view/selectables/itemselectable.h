#pragma once

#include "view/drawables/surfacedrawable.h"
#include "view/selectables/shapeselectable.h"

/**
 * An item of the case that isn't a surface. A block (KindBlock) is shown by faces, one drawable each: those
 * of the preference "Data.DefaultFace" at first, those of the stored state afterwards. Items of other types
 * have no drawables and stand in the item panel alone.
 */
class CItemSelectable : public CShapeSelectable<SSurfacePlane, CSurfaceDrawable>
{
    Q_OBJECT

public:
    CItemSelectable(const CItem& item, qint64 nViewId);

protected:
    void PrepareDrawables(qint64 nCount) override;

private:
    void AddFace(const IVector3D& dimensions, int nFace);
};
