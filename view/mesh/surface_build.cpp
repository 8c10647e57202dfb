// CSurface: its arrays.
#include "frame/novalue.h"
#include "scene/iselectable.h"
#include "view/mesh/surface.h"

#include <cmath>

namespace {

/** A file may be back: asking for its data looks at it, which isn't for every frame. */
bool IsToBeReadAgain(const QElapsedTimer& sinceFailure)
{
    constexpr qint64 PAUSE = 500; // [ms]
    return sinceFailure.isValid() && sinceFailure.hasExpired(PAUSE);
}

} // namespace

/** Notes data that can't be read. */
bool CSurface::WasRead(LoadStatus_e eStatus)
{
    if (eStatus != LoadOk && eStatus != LoadNever)
        m_sinceFailure.start();
    return eStatus == LoadOk;
}

bool CSurface::needsBuild() const
{
    if (CurrentTime() != m_dTimeCode || IsToBeReadAgain(m_sinceFailure))
        return true;
    if (IsStale(Stale::GEOMETRY | Stale::VALUES | Stale::THRESHOLDS))
        return true;
    return (drawVectors() && IsStale(Stale::VECTORS)) || (drawContours() && IsStale(Stale::CONTOURS));
}

void CSurface::build()
{
    if (CurrentTime() != m_dTimeCode || IsToBeReadAgain(m_sinceFailure)) {
        m_sinceFailure.invalidate();
        invalidateAll();
        m_dTimeCode = CurrentTime();
    }
    if (IsStale(Stale::GEOMETRY))
        BuildGeometry();
    if (IsStale(Stale::VALUES))
        BuildValues();
    if (IsStale(Stale::THRESHOLDS))
        BuildThresholds();
    if (drawVectors() && IsStale(Stale::VECTORS))
        BuildVectors();
    if (drawContours() && IsStale(Stale::CONTOURS))
        BuildContourLines();
}

void CSurface::Clear()
{
    ForgetPickTree(); // it looks into the positions
    m_size = {};
    m_positions.clear();
    m_holes.clear();
    ResetBounds();
}

void CSurface::BuildGeometry()
{
    SetBuilt(Stale::GEOMETRY);
    m_bStale[StaleGeometry] = m_bStale[StaleNormals] = true;
    // All else hangs on the elements.
    Invalidate(Stale::ALL & ~Stale::GEOMETRY);
    Clear();
    m_modelMatrix = CurrentModelMatrix();
    m_size = ReadSize();
    m_positions.resize(m_size.Count());
    if (m_size.Count() == 0 || !WasRead(ReadPositions(m_positions))) {
        Clear();
        return;
    }
    BuildHoles();
    MeasureBounds();
    m_origin = SurfaceArrays::OriginOf(boundsMinimum(), boundsMaximum());
}

/** A block that blanks nothing here is like one without blanking: no mask to upload and to draw with. */
void CSurface::BuildHoles()
{
    std::vector<double> mask(m_size.Count());
    if (!WasRead(ReadMask(mask)) || std::all_of(mask.begin(), mask.end(), [](double d) { return d == 1.0; }))
        return;
    m_holes.resize(mask.size());
    for (std::size_t n = 0; n < mask.size(); ++n)
        m_holes[n] = mask[n] != 1.0; // NaN is a hole too
}

void CSurface::MeasureBounds()
{
    ResetBounds();
    for (qint64 n = 0; n < m_size.Count(); ++n)
        if (!IsHole(n))
            AddToBounds(m_positions[n]);
}

bool CSurface::IsHole(qint64 nElement) const { return showHoles() && !m_holes.empty() && m_holes[nElement]; }

void CSurface::BuildValues()
{
    SetBuilt(Stale::VALUES);
    m_bStale[StaleValues] = m_bStale[StaleVectors] = true; // arrows carry the values too
    invalidateContours();
    m_values.clear();
    m_minimum = m_maximum = {};
    m_state.colormap.dLocalMinimum = std::numeric_limits<double>::max();
    m_state.colormap.dLocalMaximum = std::numeric_limits<double>::lowest();
    const qint64 nVariable = effectiveScalarVariable();
    if (nVariable == -1 || m_size.Count() == 0)
        return;
    std::vector<double> values(m_size.Count(), NO_VALUE);
    WasRead(ReadValues(nVariable, values));
    m_values.resize(values.size());
    for (std::size_t n = 0; n < values.size(); ++n)
        m_values[n] = SurfaceArrays::ToGpuValue(values[n]);
    RecordExtremes(values);
}

void CSurface::RecordExtremes(std::span<const double> values)
{
    qint64 nLeast = -1, nGreatest = -1;
    for (qint64 n = 0; n < qint64(values.size()); ++n) {
        if (values[n] == NO_VALUE || !std::isfinite(values[n]) || IsHole(n))
            continue;
        if (nLeast < 0 || values[n] < values[nLeast])
            nLeast = n;
        if (nGreatest < 0 || values[n] > values[nGreatest])
            nGreatest = n;
    }
    if (nLeast < 0)
        return;
    const auto record = [&](qint64 nElement) {
        SPickedPoint point;
        point.bHasPoint = true;
        point.xyz = m_positions[nElement];
        point.bHasIjk = true;
        point.ijk = AddressOf(nElement);
        point.dValue = values[nElement];
        return point;
    };
    m_minimum = record(nLeast);
    m_maximum = record(nGreatest);
    m_state.colormap.dLocalMinimum = values[nLeast];
    m_state.colormap.dLocalMaximum = values[nGreatest];
}

void CSurface::BuildThresholds()
{
    SetBuilt(Stale::THRESHOLDS);
    m_bStale[StaleThresholds] = m_bStale[StaleVectors] = true; // arrows and contours carry them too
    invalidateContours();
    m_thresholds.clear();
    if (!m_holes.empty())
        MeasureBounds(); // holes that come on show count, those that go don't
    m_bMaskThere = showHoles() && !m_holes.empty();
    std::vector<double> values;
    m_bThresholdThere = false;
    if (thresholdVariable() != -1 && m_size.Count() > 0) {
        values.assign(m_size.Count(), NO_VALUE);
        m_bThresholdThere = WasRead(ReadValues(thresholdVariable(), values));
    }
    if (!m_bThresholdThere && !m_bMaskThere)
        return;
    m_thresholds.resize(3 * m_size.Count());
    for (qint64 n = 0; n < m_size.Count(); ++n) {
        m_thresholds[3 * n] = m_bThresholdThere ? SurfaceArrays::ToGpuValue(values[n]) : 0.0F;
        m_thresholds[3 * n + 2] = m_bMaskThere && m_holes[n] ? 0.0F : 1.0F;
    }
}

void CSurface::BuildVectors()
{
    SetBuilt(Stale::VECTORS);
    m_bStale[StaleVectors] = true;
    m_vectors.assign(m_size.Count(), {});
    if (m_size.Count() == 0 || !WasRead(ReadVectors(vectorVariable(), m_vectors)))
        m_vectors.clear();
    m_dLongestVector = VectorArrays::LongestVector(m_vectors, ShownHoles());
}

void CSurface::BuildContourLines()
{
    SetBuilt(Stale::CONTOURS);
    m_bStale[StaleContours] = true;
    m_contours = {};
    if (m_values.empty())
        return;
    const QPointF range = colormapRange();
    m_contours =
        SurfaceArrays::BuildContours({m_size, m_positions, m_origin, m_values, ShownHoles(), m_thresholds},
                                     contourCount(), range.x(), range.y());
}
