#pragma once

#include "scene/idrawable.h"
#include "simulation/simulationmanager.h"

/**
 * The matrices that drawables of one pair of view and simulation are seen through: each display transform
 * with the drawable's model matrix and, where it is extended, with its extension matrix.
 */
class CSeenCopies
{
public:
    CSeenCopies(qint64 nViewId, qint64 nSimulationId)
        : m_transforms(CSimulationManager::Instance().GetDisplayTransforms(nViewId, nSimulationId))
    {}

    /** Calls visit(drawable to world) for each copy until one returns true; whether one did. */
    template <class Visit> bool Any(const IDrawable& drawable, const Visit& visit) const
    {
        const QMatrix4x4 model = drawable.modelMatrix();
        for (const STransform& transform : m_transforms) {
            if (visit(model.isIdentity() ? transform.Matrix()
                                         : transform.Matrix() * DMatrix4x4::FromFloat(model)))
                return true;
            if (drawable.isExtended() &&
                visit(transform.Matrix() * DMatrix4x4::FromFloat(drawable.extensionMatrix())))
                return true;
        }
        return false;
    }

private:
    const QVector<STransform> m_transforms;
};
