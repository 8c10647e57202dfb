#include "modules/plot3d/plot3dsimulation.h"

#include "frame/themeicon.h"
#include "modules/plot3d/block.h"
#include "modules/plot3d/boundaryitem.h"
#include "modules/plot3d/icasefileseditor.h"
#include "modules/plot3d/plot3dkeys.h"
#include "scene/iselectable.h"
#include "scene/selectablekind.h"

#include <utility>

namespace {
ICaseFilesEditor* s_pEditor = nullptr;
constexpr double HIGHEST_MACH = 100.0; // from here on a header is taken to be wrong
} // namespace

ICaseFilesEditor* ICaseFilesEditor::Install(ICaseFilesEditor* pEditor)
{
    return std::exchange(s_pEditor, pEditor);
}

ICaseFilesEditor* ICaseFilesEditor::Installed() { return s_pEditor; }

CPlot3DSimulation::CPlot3DSimulation(qint64 nModuleId) : CBlockCase(nModuleId) {}

QByteArray CPlot3DSimulation::GetDataFileKey() const
{
    return MakeDataFileKey(GetModuleId(), GetFilePath(), *this);
}

bool CPlot3DSimulation::IsSameDataFile(const QByteArray& key) const
{
    return AreSameDataFiles(key, GetDataFileKey());
}

QIcon CPlot3DSimulation::GetIcon() const { return ThemeIcon(":/Icons/analyze.png"); }

double CPlot3DSimulation::GetFreeStreamVelocity() const
{
    return FreeStreamAssumed() ? 1.0 : Get(*this, Plot3DKey::FREE_STREAM_MACH);
}

bool CPlot3DSimulation::FreeStreamAssumed() const
{
    const double dMach = Get(*this, Plot3DKey::HEADER_MACH);
    return !(dMach > 0.0 && dMach < HIGHEST_MACH);
}

CItem* CPlot3DSimulation::MakeItem(qint64 nType, qint64) const
{
    switch (nType) {
    case KindBlock:
        return new CBlock;
    case KindBoundarySurface:
        return new CBoundaryItem;
    case KindSurface:
        return new CItem;
    default:
        return nullptr;
    }
}

QString CPlot3DSimulation::RegisterData(const QVector<qint64>& itemIds)
{
    QVector<qint64> blockIds(m_case.blocks.size(), NO_ID); // parallel to the blocks of the files
    for (CItem* const pItem : GetItemsFromSelection(itemIds))
        if (pItem->GetType() == KindBlock)
            if (const int n = m_case.blockIndices.indexOf(static_cast<CBlock*>(pItem)->GetFileIndex());
                n >= 0)
                blockIds[n] = pItem->GetId();
    RegisterPlot3DData(GetId(), m_case, blockIds);
    return {};
}

/** A boundary that goes along one axis alone is a line, as in two-dimensional grids. */
void CPlot3DSimulation::SetSelectableDimension(ISelectable* pSelectable) const
{
    const CItem* const pItem = GetItem(pSelectable->itemId());
    if (!pItem || pItem->GetType() != KindBoundarySurface) {
        CBlockCase::SetSelectableDimension(pSelectable);
        return;
    }
    const IVector3D min = Get(*pItem, BoundaryKey::IJK_MIN);
    const IVector3D max = Get(*pItem, BoundaryKey::IJK_MAX);
    const int nFlat = int(min.i == max.i) + int(min.j == max.j) + int(min.k == max.k);
    pSelectable->setDimension(nFlat >= 2 ? 1 : 2);
}
