#pragma once

#include "data/solutions/storagesolution.h"

#include <bit>

/** A variable whose file data are integers of the size of the file's reals, stored bit for bit. */
class CSolutionByteSinglePrecision final : public CSolutionSinglePrecision
{
public:
    qint64 GetIntegerValue(const IVector3D& ijk) const override;
    void StoreIntegers(const qint32* pValues, qint64 nCount) override;

protected:
    void Widen(const float* pStored, qint64 nCount, double* pOut) const override
    {
        std::transform(pStored, pStored + nCount, pOut, [](float f) { return std::bit_cast<qint32>(f); });
    }
    bool IsPlainNumber() const override { return false; }
};

class CSolutionByteDoublePrecision final : public CSolutionDoublePrecision
{
public:
    qint64 GetIntegerValue(const IVector3D& ijk) const override;
    void StoreIntegers(const qint32* pValues, qint64 nCount) override;

protected:
    void Widen(const double* pStored, qint64 nCount, double* pOut) const override
    {
        std::transform(pStored, pStored + nCount, pOut,
                       [](double d) { return static_cast<double>(std::bit_cast<qint64>(d)); });
    }
    bool IsPlainNumber() const override { return false; }
};
