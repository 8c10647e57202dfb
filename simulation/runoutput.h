#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <mutex>

/** What the runs of all simulations have printed, by the simulation's id. Safe from any thread. */
class CRunOutput
{
public:
    /** A chunk that ends inside a line gives a line of its own: nothing is held back for the next one. */
    void Append(qint64 nId, const QByteArray& bytes);
    /** @param nLine  the first line that is wanted, from 0 */
    QStringList LinesSince(qint64 nId, qint64 nLine) const;
    QByteArray Data(qint64 nId) const; ///< the same, unsplit
    void Clear(qint64 nId);

private:
    struct SOutput
    {
        QStringList sLineList;
        QByteArray data;
    };

    mutable std::mutex m_mutex;
    QMap<qint64, SOutput> m_outputs; // guarded
};
