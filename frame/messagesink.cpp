#include "frame/messagesink.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>

CMessageSink::CMessageSink() = default;
CMessageSink::~CMessageSink() = default;

CMessageSink& CMessageSink::Instance()
{
    // Never destroyed: objects that end after main may still log.
    static CMessageSink* const pSink = new CMessageSink;
    return *pSink;
}

void CMessageSink::Log(const QString& sText, qint64 nLevel, bool bTime, bool bDelta)
{
    if (m_nDebugLevel < nLevel)
        return;
    const std::lock_guard lock(m_mutex);
    QString sLine = sText;
    const qint64 nNow = QDateTime::currentMSecsSinceEpoch();
    if (bTime)
        sLine += QString(" T: %1").arg(nNow);
    if (bDelta) {
        if (m_nLastDelta)
            sLine += QString(" DT: %1").arg(nNow - *m_nLastDelta);
        m_nLastDelta = nNow;
    }
    if (!m_pFile) {
        qWarning("%s", qUtf8Printable(sLine));
        return;
    }
    m_pFile->write(sLine.toUtf8() + '\n');
    m_pFile->flush();
}

bool CMessageSink::OpenLogFile(const QString& sFileName)
{
    auto pFile = std::make_unique<QFile>(sFileName);
    if (!pFile->open(QIODevice::WriteOnly | QIODevice::Append))
        return false;
    const std::lock_guard lock(m_mutex);
    m_pFile = std::move(pFile);
    return true;
}

void CMessageSink::CloseLogFile()
{
    const std::lock_guard lock(m_mutex);
    m_pFile.reset();
}
