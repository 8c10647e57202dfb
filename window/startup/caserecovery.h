#pragma once

#include "cases/autosave/autosaver.h"

#include <QObject>
#include <QTimer>

/**
 * Unsaved work survives a crash: every two minutes what has changed is kept beside the settings, and the next
 * start offers what an instance that died has left.
 */
class CCaseRecovery : public QObject
{
    Q_OBJECT

public:
    /** @param sRoot  the folder of automatic saves, common to all instances of the user */
    explicit CCaseRecovery(const QString& sRoot);

    /** The folder beside the settings file. */
    static QString DefaultRoot();

    /** Asks for each case that was lost what is to become of it. */
    void OfferLostCases();
    /** The program ends as it should; without this the next start takes it for a crash. */
    void End();

signals:
    /** The user would rather have the case as it was saved. */
    void SignalOpenSaved(QString sFileName);

public slots:
    /** Keeps what has changed, and lets go of what has been saved: a copy that is older than its case's file
     * must not be offered. */
    void SlotKeepCases();

private:
    void Offer(const CLostCases::SCase& lost);
    bool Recover(const SAutosaveFile& content) const;

    const QString m_sRoot;
    CAutosaver m_autosaver;
    QTimer m_timer;
};
