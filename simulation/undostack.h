#pragma once

#include <QByteArray>
#include <QVector>

#include <deque>

/**
 * A stack of whole states of a simulation, newest on top; beyond its limit it drops the oldest.
 *
 * Two states in a row differ little, so each is kept as a list of pieces, and a piece that the state below
 * holds too is shared with it. Pieces end where the bytes themselves say so (a rolling hash, as backup
 * programs do it), so that an insertion shifts no later piece. A step then costs the pieces it changed.
 */
class CUndoStack
{
public:
    static constexpr int MAX_STATES = 100;

    /** @param nLimit  states kept, at least 1 */
    explicit CUndoStack(int nLimit = MAX_STATES) : m_nLimit(nLimit) {}

    void Push(const QByteArray& state);
    /** Removes the newest state and gives it; the stack mustn't be empty. */
    QByteArray Pop();
    QByteArray Top() const;
    void Clear() { m_states.clear(); }

    bool IsEmpty() const { return m_states.empty(); }
    qint64 Size() const { return m_states.size(); }
    /** Bytes held: each shared piece once, and the lists. */
    qint64 GetBytes() const;

private:
    using State = QVector<QByteArray>;

    int m_nLimit;
    std::deque<State> m_states;
};
