#pragma once

#include "view/mesh/surface.h"

#include <QString>

/** A surface whose elements a test gives. A mirror or sector of its pair applies to it. */
class CTestSurface : public CSurface
{
public:
    /** Elements (r, c) at place(r, c), built at once. */
    template <class Place>
    CTestSurface(qint64 nSimulationId, qint64 nViewId, const SSurfaceSize& size, const Place& place,
                 qint64 nBlockId = -1)
        : CSurface(nSimulationId, nViewId, nBlockId), m_given(size)
    {
        for (qint64 nRow = 0; nRow < size.nRows; ++nRow)
            for (qint64 nColumn = 0; nColumn < size.nColumns; ++nColumn)
                m_places.push_back(place(nRow, nColumn));
        build();
    }

    std::vector<double> m_mask;   // empty: no blanking; takes effect with the next build
    std::vector<double> m_values; // of any variable; empty: none
    QMatrix4x4 m_givenModel;
    const SSurfaceSize m_given;
    std::vector<DVector3D> m_places;
    QString m_sName = "surface";

protected:
    bool ElementsAreCells() const override { return false; }
    SSurfaceSize ReadSize() override { return m_given; }
    LoadStatus_e ReadPositions(std::span<DVector3D> positions) override
    {
        std::copy(m_places.begin(), m_places.end(), positions.begin());
        return LoadOk;
    }
    LoadStatus_e ReadValues(qint64, std::span<double> values) override
    {
        std::copy(m_values.begin(), m_values.end(), values.begin());
        return m_values.empty() ? LoadNever : LoadOk;
    }
    double ReadValue(qint64, qint64 nElement) const override { return double(nElement) / 3.0; }
    LoadStatus_e ReadVectors(qint64, std::span<DVector3D>) override { return LoadNever; }
    LoadStatus_e ReadMask(std::span<double> mask) override
    {
        std::copy(m_mask.begin(), m_mask.end(), mask.begin());
        return m_mask.empty() ? LoadNever : LoadOk;
    }
    IVector3D AddressOf(qint64 nElement) const override
    {
        return {1 + nElement / m_given.nColumns, 1 + nElement % m_given.nColumns, 1};
    }
    double CurrentTime() const override { return 0.0; }
    QMatrix4x4 CurrentModelMatrix() const override { return m_givenModel; }
    QString ItemName() const override { return m_sName; }
};
