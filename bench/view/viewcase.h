#pragma once

#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "tests/support/testsimulation.h"
#include "view/drawables/surfacedrawable.h"

#include <QTemporaryDir>

#include <array>
#include <deque>

/** Blocks in a Plot3D case of their own, all of one size, each side of a block bent; two function fields. */
class CViewCase
{
public:
    static constexpr qint64 VIEW = 1;
    static constexpr int FIELDS = 2;
    static constexpr double HALF_WIDTH = 1.2; ///< of the view that shows all of it

    /** Writes and registers the files; all data are in memory and stay there. */
    CViewCase(int nBlocks, qint64 nSide);
    ~CViewCase();
    Q_DISABLE_COPY_MOVE(CViewCase)

    /** The arrays of a block as they are stored, i fastest. */
    struct SBlock
    {
        const float* pCoordinates[3];
        const float* pFields[FIELDS];
    };
    SBlock Block(int nBlock) const;
    int BlockCount() const { return m_nBlocks; }
    qint64 Side() const { return m_nSide; }

    /** All six faces of all blocks as shaded surfaces coloured by field 0, nothing built. */
    void MakeSurfaces();
    void DeleteSurfaces() { m_surfaces.clear(); }
    const std::vector<std::unique_ptr<CSurfaceDrawable>>& Surfaces() const { return m_surfaces; }
    qint64 VariableId(int nField) const;

private:
    void WriteFiles() const;

    const int m_nBlocks;
    const qint64 m_nSide;
    QTemporaryDir m_folder;
    qint64 m_nSimulation = -1;
    std::vector<CLease<IGrid>> m_grids;
    std::vector<std::array<CLease<ISolution>, FIELDS>> m_fields;
    std::deque<CTestSelectable> m_selectables;
    std::vector<std::unique_ptr<CSurfaceDrawable>> m_surfaces;
};
