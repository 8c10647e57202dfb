#pragma once

#include "data/io/blockreader.h"

/** x, y and z of a block of a grid file; in two-dimensional files z stays as it is. */
class CPlot3DGridReader : public IBlockReader
{
public:
    /** @param known  as which the file was detected; it is read as that while it fits */
    CPlot3DGridReader(const QString& sFileName, qint64 nBlock, bool bDouble, const SPlot3DFile& known)
        : m_sFileName(sFileName), m_nBlock(nBlock), m_bDouble(bDouble), m_known(known)
    {}
    SLoadResult Check(const IVector3D& expected, IVector3D& found) const override;
    SLoadResult Read(std::span<const SPointRun> runs,
                     std::span<const std::span<float>> arrays) const override;
    SLoadResult Read(std::span<const SPointRun> runs,
                     std::span<const std::span<double>> arrays) const override;

private:
    const QString m_sFileName;
    const qint64 m_nBlock; // from 0
    const bool m_bDouble;
    const SPlot3DFile m_known;
};

/** One variable of a block of a solution file, or of a grid file read as fields. */
class CPlot3DSolutionReader : public IBlockReader
{
public:
    /** @param bIntegers  IBlank comes as the bits of integers of the size of reals, as such fields keep them
     */
    CPlot3DSolutionReader(const QString& sFileName, qint64 nBlock, qint64 nVariable, bool bDouble,
                          bool bIntegers, const SPlot3DFile& known)
        : m_sFileName(sFileName),
          m_nBlock(nBlock),
          m_nVariable(int(nVariable)),
          m_bDouble(bDouble),
          m_bIntegers(bIntegers),
          m_known(known)
    {}
    SLoadResult Check(const IVector3D& expected, IVector3D& found) const override;
    SLoadResult Read(std::span<const SPointRun> runs,
                     std::span<const std::span<float>> arrays) const override;
    SLoadResult Read(std::span<const SPointRun> runs,
                     std::span<const std::span<double>> arrays) const override;

private:
    const QString m_sFileName;
    const qint64 m_nBlock; // from 0
    template <class Real>
    SLoadResult ReadAs(std::span<const SPointRun> runs, std::span<const std::span<Real>> arrays) const;

    const int m_nVariable; // from 0
    const bool m_bDouble;
    const bool m_bIntegers;
    const SPlot3DFile m_known;
};
