#pragma once

#include "frame/messagesink.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

/** While it lives, the message sink writes to a file of its own. */
class CLogCapture
{
public:
    CLogCapture() { CMessageSink::Instance().OpenLogFile(m_sFileName); }
    ~CLogCapture() { CMessageSink::Instance().CloseLogFile(); }

    /** All lines since the start. */
    QStringList Lines() const
    {
        QFile file(m_sFileName);
        file.open(QIODevice::ReadOnly);
        return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    }

private:
    QTemporaryDir m_folder;
    QString m_sFileName = m_folder.filePath("zento.log");
};
