#include "modules/plot3d/plot3dsimulation.h"

#include "frame/preferences/preferences.h"
#include "frame/themeicon.h"
#include "modules/plot3d/icasefileseditor.h"
#include "modules/plot3d/plot3dkeys.h"

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

CPlot3DSimulation::CPlot3DSimulation(qint64 nModuleId) : ISimulation(nModuleId) {}

QByteArray CPlot3DSimulation::GetDataFileKey() const
{
    return MakeDataFileKey(GetModuleId(), GetFilePath(), *this);
}

bool CPlot3DSimulation::IsSameDataFile(const QByteArray& key) const
{
    return AreSameDataFiles(key, GetDataFileKey());
}

bool CPlot3DSimulation::ShowsSelection() const { return CPreferences::Instance().Draw().bHighlightInAnalyze; }

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
