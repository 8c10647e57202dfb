#include "bench/view/viewcase.h"

#include "data/cases/casedata.h"
#include "data/cases/plot3dcase.h"
#include "data/solutions/istructredsolution.h"
#include "data/variables/variablemanager.h"

#include <QFile>

#include <cmath>

namespace {

constexpr int FACES = 6;
const QStringList FIELD_NAMES = {"First", "Second"};

/** A raw multi-block file of single precision. */
class CRawFile
{
public:
    CRawFile(const QString& sFileName, int nBlocks, qint64 nSide, int nVariables) : m_file(sFileName)
    {
        m_file.open(QIODevice::WriteOnly);
        std::vector<qint32> header = {nBlocks};
        for (int n = 0; n < nBlocks; ++n) {
            header.insert(header.end(), 3, qint32(nSide));
            if (nVariables > 0)
                header.push_back(nVariables);
        }
        m_file.write(reinterpret_cast<const char*>(header.data()), qint64(header.size()) * 4);
    }
    /** value(u, v, w) with each from 0 to 1 along a direction of the block */
    template <class Value> void Array(qint64 nSide, const Value& value)
    {
        std::vector<float> array;
        const auto part = [nSide](qint64 n) { return double(n) / double(nSide - 1); };
        for (qint64 k = 0; k < nSide; ++k)
            for (qint64 j = 0; j < nSide; ++j)
                for (qint64 i = 0; i < nSide; ++i)
                    array.push_back(float(value(part(i), part(j), part(k))));
        m_file.write(reinterpret_cast<const char*>(array.data()), qint64(array.size()) * 4);
    }

private:
    QFile m_file;
};

} // namespace

CViewCase::CViewCase(int nBlocks, qint64 nSide) : m_nBlocks(nBlocks), m_nSide(nSide)
{
    WriteFiles();
    auto* const pSimulation = new CTestSimulation;
    CSimulationManager::Instance().AddSimulation(pSimulation, VIEW);
    m_nSimulation = pSimulation->GetId();
    SPlot3DCaseFiles files(m_folder.filePath("case.x"), {}, {m_folder.filePath("case.f")});
    files.functions[0].sNameList = FIELD_NAMES;
    const SPlot3DCase opened = RegisterPlot3DCase(m_nSimulation, files);
    if (!opened.sError.isEmpty() || opened.blocks.size() != nBlocks)
        qFatal("the case didn't open: %s", qPrintable(opened.sError));
    for (int n = 0; n < nBlocks; ++n) {
        m_grids.push_back(CGridManager::Instance().GetGrid(m_nSimulation, n + 1, -1, STEADY_TIME));
        auto& fields = m_fields.emplace_back();
        for (int nField = 0; nField < FIELDS; ++nField)
            fields[nField] = CSolutionManager::Instance().GetSolution(VariableId(nField), m_nSimulation,
                                                                      n + 1, -1, STEADY_TIME);
    }
    for (int n = 0; n < nBlocks; ++n)
        Block(n); // reads the files
    for (int n = 0; n < FACES * nBlocks; ++n)
        m_selectables.emplace_back(VIEW, m_nSimulation, n / FACES + 1);
}

CViewCase::~CViewCase()
{
    DeleteSurfaces();
    m_grids.clear();
    m_fields.clear();
    RemoveCaseData(m_nSimulation);
    CSimulationManager::Instance().RemoveAllViews();
}

/** The blocks stand in a cube from -1 to 1 with gaps between them, so that no two faces share a place. */
void CViewCase::WriteFiles() const
{
    const int nAcross = int(std::ceil(std::cbrt(m_nBlocks)));
    const double dPitch = 2.0 / nAcross, dLength = 0.8 * dPitch;
    CRawFile grid(m_folder.filePath("case.x"), m_nBlocks, m_nSide, 0);
    CRawFile fields(m_folder.filePath("case.f"), m_nBlocks, m_nSide, FIELDS);
    for (int n = 0; n < m_nBlocks; ++n) {
        const DVector3D corner{-1.0 + dPitch * (n % nAcross), -1.0 + dPitch * (n / nAcross % nAcross),
                               -1.0 + dPitch * (n / nAcross / nAcross)};
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            grid.Array(m_nSide, [&](double u, double v, double w) {
                const double d[] = {u, v, w};
                const double dBend = 0.05 * std::sin(6.0 * d[(nAxis + 1) % 3]) * d[(nAxis + 2) % 3];
                return corner[nAxis] + dLength * (d[nAxis] + dBend);
            });
        fields.Array(m_nSide, [n](double u, double v, double w) { return u + v * w + 0.001 * n; });
        fields.Array(m_nSide, [](double u, double v, double w) { return std::sin(9.0 * u * v) + w; });
    }
}

CViewCase::SBlock CViewCase::Block(int nBlock) const
{
    SBlock block;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        block.pCoordinates[nAxis] = m_grids[nBlock]->GetCoordinatesSingle(nAxis);
    for (int nField = 0; nField < FIELDS; ++nField)
        block.pFields[nField] = m_fields[nBlock][nField]->GetStoredValues().pSingle;
    return block;
}

qint64 CViewCase::VariableId(int nField) const
{
    return CVariableManager::Instance().FindByName(m_nSimulation, FIELD_NAMES[nField], LocationNode);
}

void CViewCase::MakeSurfaces()
{
    DeleteSurfaces();
    for (int n = 0; n < FACES * m_nBlocks; ++n) {
        auto& pSurface =
            m_surfaces.emplace_back(std::make_unique<CSurfaceDrawable>(m_nSimulation, VIEW, n / FACES + 1));
        pSurface->setDefinition(FacePlane({m_nSide, m_nSide, m_nSide}, n % FACES));
        pSurface->setDisplayTypeQuick(DisplayShaded);
        pSurface->setScalarVariable(VariableId(0));
        pSurface->setGeometricColor(false);
        pSurface->setColormapType(0);
        pSurface->setColormapValues(0.0, 2.0);
        pSurface->addOwner(&m_selectables[n]);
    }
}
