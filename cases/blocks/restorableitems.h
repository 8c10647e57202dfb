#pragma once

#include <QByteArray>

#include <optional>

/**
 * The undo states of a case whose items come from files: the items with their packs, then what views show of
 * them. Data that are read anew make items that aren't those of older states.
 */
class CRestorableItems
{
public:
    struct SState
    {
        bool bOfThisLoad = false; ///< its items can come back
        QByteArray items;
        QByteArray views;
    };

    /** The items are about to be made anew from files. */
    void NoteLoad() { ++m_nLoads; }
    QByteArray ToState(const QByteArray& items, const QByteArray& views) const;
    /** Nothing for bytes that end early. */
    std::optional<SState> FromState(const QByteArray& state) const;

private:
    qint64 m_nLoads = 0;
};
