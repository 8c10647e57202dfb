#pragma once

#include "data/grids/gridwrapper.h"
#include "data/io/mask.h"

#include <functional>

/**
 * A block of a file before anybody has needed it: the grid with the points is made at the first Prepare,
 * since only the file tells of what class it has to be. Until then, and while the file can't be identified,
 * the mask answers what Init told: shape, counts, file and index.
 */
class CGridMask : public CGridWrapper
{
public:
    /** Makes the grid that the mask's file asks for; null if the file can't be identified. */
    using Factory = std::function<std::unique_ptr<CGrid>(const CGridMask& mask)>;
    explicit CGridMask(Factory factory) : m_factory(std::move(factory)) {}

    bool Prepare() override;
    bool IsPrepared() const override { return m_inner.IsPrepared(); }
    bool HasFileChangedSinceFailure() const override
    {
        return m_inner.HasFileChangedSinceFailure(CGrid::GetFileName());
    }
    /** For one who alone knows the mask: the next Prepare begins anew. */
    void StartAnew();
    void Init(const QString& sFileName, qint64 nFileIndex, const IVector3D& dimensions,
              const IVector3D& start, bool bStructured) override;
    /** What Init was told; the factory decides by it what to look for. */
    bool IsStructured() const { return m_bStructured; }

    const float* GetCoordinatesSingle(int nAxis) override;
    const double* GetCoordinatesDouble(int nAxis) override;
    void ReleaseCoordinateCopies() override;
    std::optional<SValueRange> GetRange(int nAxis, bool bCompute) override;
    void SetRange(int nAxis, const SValueRange& range) override;
    IVector3D GetMinimumLocation(int nAxis) override;
    IVector3D GetMaximumLocation(int nAxis) override;
    LoadStatus_e ComputeRanges() override;

protected:
    IGrid* Inner() const override { return m_inner.Get(); }

private:
    Factory m_factory;
    CMask<CGrid> m_inner;
    bool m_bStructured = true;
};
