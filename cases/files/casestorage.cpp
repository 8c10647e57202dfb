#include "cases/files/casestorage.h"

#include "cases/files/casegroup.h"
#include "cases/files/viewcamera.h"
#include "frame/messagesink.h"
#include "frame/novalue.h"
#include "frame/replacefile.h"
#include "frame/widgetmanager.h"
#include "simulation/isimulation.h"

#include <QFile>
#include <QFileInfo>

#include <limits>

namespace {

bool HasWindow() { return CWidgetManager::Instance().GetWidget(CWidgetManager::MAIN_WINDOW); }

void ShowCamera(const SStoredCamera& stored, const QString& sFileName, qint64 nViewId)
{
    if (const std::optional<SCamera> camera = stored.Camera())
        ApplyViewCamera(nViewId, *camera);
    else if (!stored.block.isEmpty())
        CMessageSink::Instance().Log(
            QString("%1: the stored camera shows nothing, it is left out").arg(sFileName));
}

} // namespace

bool ReadWholeFile(const QString& sFileName, QByteArray& bytes)
{
    QFile file(sFileName);
    if (!QFileInfo(sFileName).isFile()) // a pipe would wait for a writer, a device never end
        return false;
    if (!file.open(QIODevice::ReadOnly) || file.size() > std::numeric_limits<int>::max() - 64)
        return false;
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError;
}

void TellNewer(const QString& sFileName)
{
    const QString sText = QString("%1 was written by a newer version of this program").arg(sFileName);
    CMessageSink::Instance().Log(sText);
    CWidgetManager::Instance().SetStatusText(sText);
}

SCaseFile TakeCase(const ISimulation& simulation, const QString& sModule, qint64 nViewId,
                   const std::optional<SCamera>& camera)
{
    SCaseFile file;
    file.sModule = sModule;
    file.data = simulation.ToBytes();
    file.display = nViewId == NO_ID ? simulation.GetSavedDisplay() : simulation.SaveViewState(nViewId);
    file.camera = camera ? SStoredCamera(*camera) : SStoredCamera::FromBytes(simulation.GetCameraData());
    return file;
}

bool SaveCase(ISimulation& simulation, const QString& sModule, const QString& sFileName)
{
    simulation.StoreLastItemId();
    const qint64 nViewId = ViewToStore(simulation);
    const SCaseFile file = TakeCase(simulation, sModule, nViewId, TakeViewCamera(nViewId));
    if (!ReplaceFile(sFileName, file.ToBytes()))
        return false;
    simulation.SetFilePath(sFileName);
    simulation.NoteSaved();
    simulation.SetSavedDisplay(file.display);
    simulation.SetCameraData(file.camera.ToBytes());
    ApplyCaseGroup(sFileName, simulation.GetGroup());
    return true;
}

bool FillCase(ISimulation& simulation, const SCaseFile& file, qint64 nViewId, bool bWithDisplay)
{
    if (!simulation.FromBytes(file.data, file.dDataVersion))
        return false;
    if (bWithDisplay && !simulation.LoadViewState(file.display, nViewId, file.dDisplayVersion))
        return false;
    // The comparison starts from what the objects give now: reading may have brought them up to date.
    simulation.NoteSaved();
    simulation.SetSavedDisplay(HasWindow() ? simulation.SaveViewState(nViewId) : file.display);
    if (bWithDisplay)
        ShowCamera(file.camera, simulation.GetFilePath(), nViewId);
    simulation.SetCameraData(file.camera.ToBytes());
    return true;
}
