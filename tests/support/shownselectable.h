#pragma once

#include "tests/support/testsimulation.h"
#include "tests/support/testsurface.h"
#include "view/annotations/annotationcolormap.h"

/** A selectable with drawables, which go along with it. */
class CShownSelectable : public CTestSelectable
{
public:
    using CTestSelectable::CTestSelectable;
    ~CShownSelectable() override { qDeleteAll(m_drawables); }

    qint64 blockId() const override { return m_nBlockId; }

    /** A square of a block's item, coloured by the variable. */
    CTestSurface* Show(qint64 nVariableId, qint64 nBlockId = -1)
    {
        const auto place = [](qint64 r, qint64 c) { return DVector3D{double(r), double(c), 0.0}; };
        auto* const pSurface =
            new CTestSurface(simulationId(), viewId(), SSurfaceSize{2, 2}, place, m_nBlockId = nBlockId);
        pSurface->setScalarVariable(nVariableId);
        pSurface->setGeometricColor(false);
        pSurface->addOwner(this);
        m_drawables.append(pSurface);
        return pSurface;
    }

private:
    qint64 m_nBlockId = -1;
};
