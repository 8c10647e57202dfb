// Sections of what is shown.
#include "modules/plot3d/fieldview/fieldviewlook.h"
#include "modules/plot3d/fieldview/fieldviewsections.h"
#include "modules/plot3d/fieldview/fieldviewvalues.h"

#include <cmath>

namespace {

constexpr int MOST_ITEMS = 100'000; // of each kind

class CSurfaceSection : public CFieldViewSection
{
public:
    using CFieldViewSection::CFieldViewSection;

    bool Take(const QString& sKey, const QString& sValue) override
    {
        if (sKey == "num_of_walls_per_grid")
            return TakeWalls(sValue);
        if (sKey == "dataset")
            return Begin();
        return m_nSurfaces > 0 && TakeOfSurface(m_restart.surfaces.last(), sKey, sValue);
    }

private:
    bool TakeWalls(const QString& sValue)
    {
        int nWalls = 0;
        const bool bTaken = TakeFieldView(sValue, nWalls);
        ++m_nGrid;
        for (int n = 0; n < nWalls && m_gridOfWall.size() < MOST_ITEMS; ++n)
            m_gridOfWall.append(m_nGrid);
        return bTaken;
    }
    bool Begin()
    {
        if (m_restart.surfaces.size() >= MOST_ITEMS)
            return false;
        SFieldViewSurface surface;
        surface.nGrid = surface.nLastGrid = m_gridOfWall.value(m_nSurfaces, m_nSurfaces + 1);
        m_restart.surfaces.append(surface);
        ++m_nSurfaces;
        m_nAxis = 0;
        return true;
    }
    /** The three directions follow each other: first, last, step, current. */
    bool TakeOfSurface(SFieldViewSurface& surface, const QString& sKey, const QString& sValue)
    {
        constexpr int LAST_AXIS = 2;
        const int nAxis = std::min(m_nAxis, LAST_AXIS);
        const std::optional<qint64> index = FieldViewIndex(sValue);
        if (sKey == "start_grid" || sKey == "end_grid")
            return !index || TakeGrid(surface, sKey == "start_grid", *index);
        if (sKey == "min" || sKey == "max") {
            (sKey == "min" ? surface.first : surface.last)[nAxis] = index;
            return true;
        }
        if (sKey == "inc")
            return index.value_or(1) == 1; // all points are shown
        if (sKey == "curr") {
            surface.current[nAxis] = index.value_or(1);
            ++m_nAxis;
            return m_nAxis <= LAST_AXIS + 1;
        }
        if (sKey == "direction_plane") {
            if (index && *index <= LAST_AXIS + 1)
                surface.nDirection = int(*index - 1);
            return index && *index <= LAST_AXIS + 1;
        }
        return TakeFieldViewLook(surface.look, sKey, sValue);
    }
    static bool TakeGrid(SFieldViewSurface& surface, bool bFirst, qint64 nGrid)
    {
        if (bFirst)
            surface.nGrid = nGrid;
        surface.nLastGrid = std::max(surface.nGrid, nGrid);
        return true;
    }

    qint64 m_nGrid = 0; // of the last number of walls
    QVector<qint64> m_gridOfWall;
    int m_nSurfaces = 0; // of this section
    int m_nAxis = 0;     // directions read of the last
};

class CPlaneSection : public CFieldViewSection
{
public:
    using CFieldViewSection::CFieldViewSection;

    bool Take(const QString& sKey, const QString& sValue) override
    {
        constexpr SFieldViewRow<DVector3D> PLACES[] = {
            {"xcur", TakeFieldViewMember<DVector3D, &DVector3D::x>},
            {"ycur", TakeFieldViewMember<DVector3D, &DVector3D::y>},
            {"zcur", TakeFieldViewMember<DVector3D, &DVector3D::z>}};
        QVector<SFieldViewPlane>& planes = m_restart.planes;
        if (sKey == "active_axis") {
            const std::optional<qint64> axis = FieldViewIndex(sValue);
            if (planes.size() >= MOST_ITEMS)
                return false;
            planes.append(SFieldViewPlane());
            planes.last().nAxis = int(std::clamp<qint64>(axis.value_or(1), 1, 3) - 1);
            m_bBegun = true;
            return axis.has_value();
        }
        return m_bBegun && (TakeFieldViewRow(PLACES, planes.last().place, sKey, sValue) ||
                            TakeFieldViewLook(planes.last().look, sKey, sValue));
    }

private:
    bool m_bBegun = false;
};

class CRakeSection : public CFieldViewSection
{
public:
    using CFieldViewSection::CFieldViewSection;

    bool Take(const QString& sKey, const QString& sValue) override
    {
        QVector<SFieldViewRake>& rakes = m_restart.rakes;
        if (sKey == "num_seeds") {
            m_bBegun = rakes.size() < MOST_ITEMS;
            if (m_bBegun)
                rakes.append(SFieldViewRake());
            return m_bBegun;
        }
        if (!m_bBegun)
            return false;
        SFieldViewRake& rake = rakes.last();
        if (sKey == "seed_xyz")
            return TakeSeed(rake, FieldViewNumbers(sValue));
        if (sKey == "seed_ijk")
            return TakeGridSeed(rake, FieldViewNumbers(sValue));
        if (sKey == "integration_direction")
            return TakeDirection(rake, UnquotedFieldView(sValue).toLower());
        return TakeFieldViewLook(rake.look, sKey, sValue);
    }

private:
    static bool TakeSeed(SFieldViewRake& rake, const QVector<double>& numbers)
    {
        if (numbers.size() != 3 || rake.seeds.size() >= MOST_ITEMS)
            return false;
        rake.seeds.append({numbers[0], numbers[1], numbers[2]});
        return true;
    }
    /** Grid, i, j, k; without the grid it is the first. */
    static bool TakeGridSeed(SFieldViewRake& rake, QVector<double> numbers)
    {
        constexpr double LARGEST = 1e9;
        if (numbers.size() == 3)
            numbers.prepend(1.0);
        const bool bIndices = std::all_of(numbers.begin(), numbers.end(), [](double d) {
            return d >= 1.0 && d <= LARGEST && d == std::floor(d);
        });
        if (numbers.size() != 4 || !bIndices || rake.gridSeeds.size() >= MOST_ITEMS)
            return false;
        rake.gridSeeds.append(SFieldViewGridSeed{
            qint64(numbers[0]), {qint64(numbers[1]), qint64(numbers[2]), qint64(numbers[3])}});
        return true;
    }
    static bool TakeDirection(SFieldViewRake& rake, const QString& sValue)
    {
        struct SDirection
        {
            const char *sNumber, *sWord;
            FieldViewDirection_e eDirection;
        };
        constexpr SDirection DIRECTIONS[] = {{"1", "forward", DirectionForward},
                                             {"2", "backward", DirectionBackward},
                                             {"3", "both", DirectionBoth}};
        for (const SDirection& row : DIRECTIONS)
            if (sValue == row.sNumber || sValue == row.sWord) {
                rake.eDirection = row.eDirection;
                return true;
            }
        return false;
    }

    bool m_bBegun = false;
};

} // namespace

std::unique_ptr<CFieldViewSection> MakeFieldViewItems(const QString& sName, SFieldViewRestart& restart)
{
    if (sName.startsWith("comp_surf") || sName.startsWith("boundary_surf"))
        return std::make_unique<CSurfaceSection>(restart);
    if (sName.startsWith("coord_surf"))
        return std::make_unique<CPlaneSection>(restart);
    if (sName.startsWith("streamline"))
        return std::make_unique<CRakeSection>(restart);
    return {};
}
