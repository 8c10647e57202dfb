#pragma once

#include <QSet>
#include <QString>
#include <QVector>

/** The questions before simulations close, and what they lead to. */
class CCaseClosing
{
public:
    /** See CSimulationManager::CloseSimulations. */
    bool Ask(const QVector<qint64>& simulationIds);
    /** The question of a view that isn't the last one: whether to keep the display under another name. */
    bool AskInView(qint64 nSimulationId);
    /** A display file of the simulation has been written as it leaves. */
    void NoteDisplayFile(qint64 nSimulationId);
    /** Copies what was written to the names chosen, and reports failures. */
    void CopyDisplayFiles();

private:
    struct SDisplayCopy
    {
        qint64 nSimulationId;
        QString sDirectory; // where closing writes the display file
        QString sTarget;
        QString sSource; // the one that was there when the simulation had left; empty: not yet
    };

    bool AskUnsaved(const QVector<qint64>& simulationIds, QSet<qint64>& askedIds) const;
    bool AskDisplayFile(qint64 nSimulationId, QVector<SDisplayCopy>& copies) const;

    QVector<SDisplayCopy> m_displayCopies; // the close map
};
