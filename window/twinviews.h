#pragma once

#include <QByteArray>
#include <QHash>
#include <QVector>

/**
 * Views that are instances of each other: what is changed in the display of a case in one of them is changed
 * in all. Main thread only.
 */
class CTwinViews
{
public:
    /** The new view follows the old one, and all that follow it; and they follow the new one. */
    void Join(qint64 nViewId, qint64 nNewViewId);
    /** The view is gone. */
    void Forget(qint64 nViewId);

    /** Brings the twins of the view to what it shows, if that has changed since the last call. */
    void Follow(qint64 nViewId);

private:
    const QVector<qint64>* TwinsOf(qint64 nViewId) const;

    QVector<QVector<qint64>> m_groups;
    QHash<qint64, QByteArray> m_shown; // by simulation: the state that all twins have
    bool m_bFollowing = false;         // following a change tells the window, which asks again
};
