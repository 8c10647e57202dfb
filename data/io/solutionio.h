#pragma once

#include "data/blockshape.h"
#include "data/io/plot3dfile.h"
#include "frame/tasks/taskcreator.h"

#include <QVector>

#include <array>
#include <optional>

template <class Real> class CStorageSolution;

/** Reads solution files for solutions, as CGridIO does for grids; its cache is that of CSolutionManager. */
class CSolutionIO : public CTaskCreator
{
public:
    int DetectSolutionFormat(const QString& sFileName, const SPlot3DFile& like = {}) const
    {
        return Detect(sFileName, like).nCode;
    }
    /** @param like  as CGridIO::Detect */
    SPlot3DFile Detect(const QString& sFileName, const SPlot3DFile& like = {}) const;
    QVector<IVector3D> GetSolutionBlockDimensions(const QString& sFileName) const;
    int GetSolutionVariableCount(const QString& sFileName) const;
    /** Mach number, angle of attack [degrees], Reynolds number, time; nothing for other kinds than Q. */
    std::optional<std::array<double, 4>> GetSolutionHeader(const QString& sFileName, qint64 nBlock,
                                                           const SPlot3DFile& like = {}) const;
    /** Allocates and fills the solution with its variable of its block. Gives a LoadStatus_e. */
    template <class Real> int LoadSolution(CStorageSolution<Real>& solution) const;
    /**
     * Reads the values of a range (within the solution) as plain numbers and nothing else; the solution stays
     * as it is.
     *
     * @return false, without a message, where it can't be read: out is undefined then
     */
    template <class Real>
    bool ReadValues(const CStorageSolution<Real>& solution, const SIJKRange& range,
                    std::span<double> out) const;
};
