// CSurface: points of it that are looked for.
#include "data/variables/variablemanager.h"
#include "view/pick/gltree.h"
#include "view/surface.h"

void CSurface::ForgetPickTree() { m_pPickTree.reset(); }

CGLTree& CSurface::pickTree()
{
    if (!m_pPickTree)
        m_pPickTree = std::make_unique<CGLTree>();
    return *m_pPickTree;
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
