#pragma once

#include "scene/idrawable.h"
#include "simulation/simulationmanager.h"

/** Calls visit(drawable to view) for each copy seen through one matrix until one returns true; whether one
 * did. */
template <class Visit>
bool AnyCopy(const IDrawable& drawable, const DMatrix4x4& transform, const Visit& visit)
{
    const QMatrix4x4 model = drawable.modelMatrix();
    return visit(model.isIdentity() ? transform : transform * DMatrix4x4::FromFloat(model)) ||
           (drawable.isExtended() && visit(transform * DMatrix4x4::FromFloat(drawable.extensionMatrix())));
}

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
        return std::any_of(m_transforms.begin(), m_transforms.end(), [&](const STransform& transform) {
            return AnyCopy(drawable, transform.Matrix(), visit);
        });
    }

private:
    const QVector<STransform> m_transforms;
};
