// CSurface: points of it that are looked for.
#include "data/variables/variablemanager.h"
#include "frame/novalue.h"
#include "view/mesh/surface.h"
#include "view/pick/gltree.h"

#include <cmath>

namespace {

/** The pick items of elements in rows and columns. */
class CPickGrid
{
public:
    CPickGrid(const SSurfaceSize& size, std::span<const DVector3D> positions, std::span<const char> holes)
        : m_size(size), m_positions(positions), m_holes(holes)
    {}

    /** Of all elements, holes included: the same tree serves with holes shown and hidden. */
    std::pair<DVector3D, DVector3D> Box() const
    {
        constexpr double LARGEST = std::numeric_limits<double>::max();
        DVector3D minimum{LARGEST, LARGEST, LARGEST}, maximum{-LARGEST, -LARGEST, -LARGEST};
        for (const DVector3D& p : m_positions)
            for (int nAxis = 0; IsFinite(p) && nAxis < 3; ++nAxis) {
                minimum[nAxis] = std::min(minimum[nAxis], p[nAxis]);
                maximum[nAxis] = std::max(maximum[nAxis], p[nAxis]);
            }
        return {minimum, maximum};
    }

    void EnterPoints(CGLTree& tree) const
    {
        for (qint64 n = 0; n < m_size.Count(); ++n)
            if (Stands(n))
                tree.Enter(CGLPoint(quint32(n), IsHole(n)));
    }

    void EnterLines(CGLTree& tree) const
    {
        for (qint64 nRow = 0; nRow < m_size.nRows; ++nRow)
            for (qint64 nColumn = 0; nColumn < m_size.nColumns; ++nColumn) {
                const qint64 n = m_size.Index(nRow, nColumn);
                if (nColumn + 1 < m_size.nColumns)
                    EnterLine(tree, n, n + 1);
                if (nRow + 1 < m_size.nRows)
                    EnterLine(tree, n, n + m_size.nColumns);
            }
    }

    void EnterTriangles(CGLTree& tree) const
    {
        for (qint64 nRow = 0; nRow + 1 < m_size.nRows; ++nRow)
            for (qint64 nColumn = 0; nColumn + 1 < m_size.nColumns; ++nColumn) {
                const qint64 a = m_size.Index(nRow, nColumn);
                const qint64 b = a + m_size.nColumns;
                EnterTriangle(tree, a, b, a + 1);
                EnterTriangle(tree, b + 1, a + 1, b);
            }
    }

private:
    static bool IsFinite(const DVector3D& p)
    {
        return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
    }
    bool IsHole(qint64 n) const { return !m_holes.empty() && m_holes[n]; }
    /** What stands nowhere can't be picked. */
    bool Stands(qint64 n) const { return IsFinite(m_positions[n]); }

    void EnterLine(CGLTree& tree, qint64 a, qint64 b) const
    {
        if (Stands(a) && Stands(b))
            tree.Enter(CGLLine(quint32(a), quint32(b), IsHole(a) || IsHole(b)));
    }

    void EnterTriangle(CGLTree& tree, qint64 a, qint64 b, qint64 c) const
    {
        if (Stands(a) && Stands(b) && Stands(c))
            tree.Enter(CGLTriangle(quint32(a), quint32(b), quint32(c), IsHole(a) || IsHole(b) || IsHole(c)));
    }

    const SSurfaceSize m_size;
    const std::span<const DVector3D> m_positions;
    const std::span<const char> m_holes;
};

} // namespace

void CSurface::ForgetPickTree() { m_pPickTree.reset(); }

CGLTree& CSurface::pickTree()
{
    if (!m_pPickTree) {
        m_pPickTree = std::make_unique<CGLTree>();
        FillPickTree(*m_pPickTree);
    }
    return *m_pPickTree;
}

void CSurface::FillPickTree(CGLTree& tree) const
{
    const CPickGrid grid(m_size, m_positions, m_holes);
    const auto [minimum, maximum] = grid.Box();
    tree.Reset(m_positions, minimum, maximum);
    const SMeshStatistics counts = meshStatistics();
    tree.Reserve(counts.nPoints + counts.nLines + counts.nTriangles);
    grid.EnterPoints(tree);
    grid.EnterLines(tree);
    grid.EnterTriangles(tree);
}

SPickedPoint CSurface::pickedPoint(qint64 nElement) const
{
    SPickedPoint point;
    if (nElement < 0 || nElement >= m_size.Count())
        return point;
    point.bHasPoint = true;
    point.xyz = m_positions[nElement];
    point.bHasIjk = true;
    point.ijk = AddressOf(nElement);
    point.nBlockId = blockId();
    point.bIsHole = !m_holes.empty() && m_holes[nElement];
    if (scalarVariable() != NO_ID)
        point.dValue = ReadValue(scalarVariable(), nElement);
    pointInformation(point);
    return point;
}

void CSurface::addBounds(DVector3D& minimum, DVector3D& maximum, const QMatrix4x4& view) const
{
    const QMatrix4x4 product = view * modelMatrix();
    for (std::size_t n = 0; n < m_positions.size(); ++n) {
        if (IsHole(qint64(n)))
            continue;
        const DVector3D& p = m_positions[n];
        for (int nRow = 0; nRow < 3; ++nRow) {
            const double d =
                product(nRow, 0) * p.x + product(nRow, 1) * p.y + product(nRow, 2) * p.z + product(nRow, 3);
            minimum[nRow] = std::min(minimum[nRow], d);
            maximum[nRow] = std::max(maximum[nRow], d);
        }
    }
}

void CSurface::pointInformation(SPickedPoint& point) const
{
    point.sItemName = ItemName();
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(scalarVariable());
    if (!pVariable)
        return;
    point.sVariableName = pVariable->GetName();
    if (point.dValue != NO_VALUE)
        point.sValueText = QString(": %1").arg(QString::number(point.dValue, 'g', 6));
}

SMeshStatistics CSurface::meshStatistics() const
{
    const qint64 nRows = std::max<qint64>(m_size.nRows - 1, 0);
    const qint64 nColumns = std::max<qint64>(m_size.nColumns - 1, 0);
    return {m_size.Count(), m_size.nRows * nColumns + m_size.nColumns * nRows, 2 * nRows * nColumns};
}
