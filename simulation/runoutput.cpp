#include "simulation/runoutput.h"

#include <QTextStream>

void CRunOutput::Append(qint64 nId, const QByteArray& bytes)
{
    const std::lock_guard lock(m_mutex);
    SOutput& output = m_outputs[nId];
    output.data.append(bytes);
    QTextStream stream(bytes, QIODevice::ReadOnly);
    while (!stream.atEnd())
        output.sLineList.append(stream.readLine());
}

QStringList CRunOutput::LinesSince(qint64 nId, qint64 nLine) const
{
    const std::lock_guard lock(m_mutex);
    return m_outputs.value(nId).sLineList.mid(int(nLine));
}

QByteArray CRunOutput::Data(qint64 nId) const
{
    const std::lock_guard lock(m_mutex);
    return m_outputs.value(nId).data;
}

void CRunOutput::Clear(qint64 nId)
{
    const std::lock_guard lock(m_mutex);
    m_outputs.remove(nId);
}
