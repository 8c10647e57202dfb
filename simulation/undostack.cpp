#include "simulation/undostack.h"

#include <QSet>

#include <array>

namespace {

constexpr int MIN_PIECE = 256;
constexpr int MAX_PIECE = 8192;
// A piece ends where these bits of the hash are 0: every 1024 bytes on average. The upper bits, since
// each of them depends on the last 32 to 64 bytes.
constexpr quint64 BOUNDARY_MASK = 0x3ffULL << 54;

/** One random word for each byte value (splitmix64). */
constexpr std::array<quint64, 256> MakeGearTable()
{
    std::array<quint64, 256> table{};
    quint64 nState = 0;
    for (quint64& nEntry : table) {
        nState += 0x9e3779b97f4a7c15ULL;
        quint64 n = nState;
        n = (n ^ (n >> 30)) * 0xbf58476d1ce4e5b9ULL;
        n = (n ^ (n >> 27)) * 0x94d049bb133111ebULL;
        nEntry = n ^ (n >> 31);
    }
    return table;
}
constexpr std::array<quint64, 256> GEAR = MakeGearTable();

/**
 * Length of the piece at the front of the bytes (gear hash; see Xia et al., FastCDC, USENIX ATC 2016).
 * Bytes ahead of the least length can't end a piece; the hash only runs over the last 64 of them.
 */
int PieceLength(const char* pBytes, int nCount)
{
    if (nCount <= MIN_PIECE)
        return nCount;
    const int nEnd = std::min(nCount, MAX_PIECE);
    quint64 nHash = 0;
    for (int n = MIN_PIECE - 64; n < nEnd; ++n) {
        nHash = (nHash << 1) + GEAR[static_cast<uchar>(pBytes[n])];
        if (n >= MIN_PIECE && !(nHash & BOUNDARY_MASK))
            return n + 1;
    }
    return nEnd;
}

QByteArray Joined(const QVector<QByteArray>& pieces)
{
    int nTotal = 0;
    for (const QByteArray& piece : pieces)
        nTotal += piece.size();
    QByteArray bytes;
    bytes.reserve(nTotal);
    for (const QByteArray& piece : pieces)
        bytes.append(piece);
    return bytes;
}

} // namespace

void CUndoStack::Push(const QByteArray& state)
{
    QSet<QByteArray> known;
    if (!m_states.empty()) {
        known.reserve(m_states.back().size());
        for (const QByteArray& piece : std::as_const(m_states.back()))
            known.insert(piece);
    }
    State pieces;
    for (int nAt = 0; nAt < state.size();) {
        const int nLength = PieceLength(state.constData() + nAt, state.size() - nAt);
        const QByteArray view = QByteArray::fromRawData(state.constData() + nAt, nLength);
        const auto found = known.constFind(view);
        if (found == known.cend())
            pieces.append(*known.insert(QByteArray(state.constData() + nAt, nLength)));
        else
            pieces.append(*found);
        nAt += nLength;
    }
    m_states.push_back(pieces);
    if (static_cast<int>(m_states.size()) > m_nLimit)
        m_states.pop_front();
}

QByteArray CUndoStack::Pop()
{
    const QByteArray state = Top();
    m_states.pop_back();
    return state;
}

QByteArray CUndoStack::Top() const
{
    Q_ASSERT(!m_states.empty());
    return Joined(m_states.back());
}

qint64 CUndoStack::GetBytes() const
{
    constexpr qint64 HEADER = 32; // of a byte array's block, with what the allocator adds
    QSet<const char*> counted;
    qint64 nBytes = 0;
    for (const State& state : m_states) {
        nBytes += state.size() * qint64(sizeof(QByteArray));
        for (const QByteArray& piece : state) {
            if (counted.contains(piece.constData()))
                continue;
            counted.insert(piece.constData());
            nBytes += piece.size() + HEADER;
        }
    }
    return nBytes;
}
