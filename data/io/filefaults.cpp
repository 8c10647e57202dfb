#include "data/io/filefaults.h"

#include "data/io/filestamp.h"
#include "frame/messagesink.h"
#include "frame/widgetmanager.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>

#include <mutex>
#include <utility>

namespace {

struct STold
{
    std::mutex mutex; // guards the rest
    QHash<QString, SFileStamp> files;
    QString sLast;
};

STold& Told()
{
    static STold* const pTold = new STold; // never destroyed: a load may be under way at the end
    return *pTold;
}

QString ReasonOf(const QFileInfo& info, const SLoadResult& result)
{
    if (!info.exists())
        return "it is not there any more";
    if (!info.isReadable())
        return "it can't be opened";
    if (!result.bRecognised)
        return "it was cut short or replaced since the case was opened";
    return result.sMessage.isEmpty() ? QString("it holds something else") : result.sMessage;
}

/** Widgets are for the main thread, loads for any. */
void ShowInStatusBar(const QString& sText)
{
    if (QCoreApplication* const pApplication = QCoreApplication::instance())
        QMetaObject::invokeMethod(
            pApplication, [sText] { CWidgetManager::Instance().SetStatusText(sText); }, Qt::QueuedConnection);
}

} // namespace

void FileFaults::Report(const QString& sFileName, const SLoadResult& result)
{
    if (result.IsOk() || result.eStatus == LoadNoMemory)
        return;
    const QFileInfo info(sFileName);
    const SFileStamp stamp = SFileStamp::Of(sFileName);
    const QString sText = QString("Can't read %1: %2").arg(sFileName, ReasonOf(info, result));
    {
        STold& told = Told();
        const std::lock_guard lock(told.mutex);
        const auto known = told.files.constFind(sFileName);
        if (known != told.files.cend() && *known == stamp)
            return;
        told.files.insert(sFileName, stamp);
        told.sLast = sText;
    }
    CMessageSink::Instance().Log(sText);
    ShowInStatusBar(sText);
}

QString FileFaults::Last()
{
    const std::lock_guard lock(Told().mutex);
    return Told().sLast;
}

void FileFaults::Forget()
{
    const std::lock_guard lock(Told().mutex);
    Told().files.clear();
    Told().sLast.clear();
}
