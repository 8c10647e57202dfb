#pragma once

#include <QByteArray>
#include <QMap>

class ISimulation;

/**
 * Displays of a case whose data are missing, by view: what was stored is stored again as long as nobody
 * changes what could be shown of it, and is shown once the data are there.
 */
class CKeptDisplays
{
public:
    /** @param shown  the display that the view has now, as bytes */
    void Keep(qint64 nViewId, const QByteArray& stored, const QByteArray& shown);
    /** What to store of a view that shows this. */
    QByteArray ToStore(qint64 nViewId, const QByteArray& shown) const;
    /** The data are there: views in which nothing was changed since show what they were meant to. */
    void Show(ISimulation& simulation);

private:
    struct SKept
    {
        QByteArray stored;
        QByteArray shown;
    };

    QMap<qint64, SKept> m_kept;
};
