#pragma once

#include "data/io/mask.h"
#include "data/solutions/solution.h"

#include <functional>
#include <memory>

/**
 * A variable of a file before anybody has needed it: the object with the values is made at the first Prepare,
 * since only the file tells of what class it has to be. Without one there are no values, and answers are
 * empty.
 */
class CSolutionMask : public CSolution
{
public:
    /** Makes the solution that the mask's file asks for; null if the file can't be identified. */
    using Factory = std::function<std::unique_ptr<CSolution>(const CSolutionMask& mask)>;
    explicit CSolutionMask(Factory factory) : m_factory(std::move(factory)) {}

    /** The file's data are integers in places of the size of reals. Set ahead of Prepare. */
    void SetIntegerData(bool bInteger) { m_bIntegerData = bInteger; }
    bool IsIntegerData() const { return m_bIntegerData; }

    IStructredSolution* AsStructured() override
    {
        return m_inner.Get() && !m_inner.Get()->AsStructured() ? nullptr : this;
    }
    bool Prepare() override;
    bool IsPrepared() const override { return m_inner.IsPrepared(); }
    bool HasFileChangedSinceFailure() const override
    {
        return m_inner.HasFileChangedSinceFailure(GetFileName());
    }
    /** For one who alone knows the mask: the next Prepare begins anew. */
    void StartAnew() { m_inner.StartAnew(); }
    void Dispose() override;
    ISolution* GetBaseSolution() override;
    void SetSolutionId(qint64 nId) override;
    bool IsDoublePrecision() const override { return m_inner.Get() && m_inner.Get()->IsDoublePrecision(); }
    SBlockShape GetShape() const override
    {
        return m_inner.Get() ? m_inner.Get()->GetShape() : CSolution::GetShape();
    }
    void SetDimensions(const IVector3D& dimensions) override;
    bool HasValue(const IVector3D& ijk) const override
    {
        return m_inner.Get() && m_inner.Get()->HasValue(ijk);
    }
    QVector<ISolution*> GetLeafSolutions() override;

    using IStructredSolution::GetValue;
    double GetValue(const IVector3D& ijk) const override
    {
        return m_inner.Get() ? m_inner.Get()->GetValue(ijk) : NO_VALUE;
    }
    double GetValue(qint64 nIndex) const override
    {
        return m_inner.Get() ? m_inner.Get()->GetValue(nIndex) : NO_VALUE;
    }
    qint64 GetIntegerValue(const IVector3D& ijk) const override;
    LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const override;
    LoadStatus_e GatherValues(std::span<const qint64> points, std::span<double> out) const override
    {
        return m_inner.Get() ? m_inner.Get()->GatherValues(points, out) : LoadFailed;
    }
    SStoredValues GetStoredValues() const override
    {
        return m_inner.Get() ? m_inner.Get()->GetStoredValues() : SStoredValues();
    }
    bool ReadsInPart(const SIJKRange& range) const override
    {
        return m_inner.Get() && m_inner.Get()->ReadsInPart(range);
    }
    void StoreIntegers(const qint32* pValues, qint64 nCount) override;
    const float* GetValuesSingle() override
    {
        return m_inner.Get() ? m_inner.Get()->GetValuesSingle() : nullptr;
    }
    const double* GetValuesDouble() override
    {
        return m_inner.Get() ? m_inner.Get()->GetValuesDouble() : nullptr;
    }
    void ReleaseValueCopies() override;
    std::optional<SValueRange> GetRange(int nComponent, bool bCompute) override;
    void SetRange(int nComponent, const SValueRange& range) override;
    IVector3D GetMinimumLocation(int nComponent) override;
    IVector3D GetMaximumLocation(int nComponent) override;
    LoadStatus_e ComputeRanges() override;

private:
    Factory m_factory;
    CMask<CSolution> m_inner;
    bool m_bIntegerData = false;
};
