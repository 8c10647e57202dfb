#include "simulation/undostack.h"

#include <random>

namespace {

QByteArray RandomBytes(int nCount, unsigned nSeed)
{
    std::mt19937 random(nSeed);
    QByteArray bytes(nCount, Qt::Uninitialized);
    for (char& c : bytes)
        c = static_cast<char>(random());
    return bytes;
}

} // namespace

TEST(UndoStack, EveryStateComesBackByteForByte)
{
    CUndoStack stack;
    std::mt19937 random(1);
    QVector<QByteArray> states = {
        "", "a", RandomBytes(256, 2), RandomBytes(8192, 3), QByteArray(100000, 'x'), RandomBytes(300000, 4)};
    for (int n = 0; n < 20; ++n) { // insertions, deletions, changes in the middle
        QByteArray next = states.last();
        const int nPlace = random() % next.size();
        next.replace(nPlace, random() % 5000, RandomBytes(random() % 5000, n));
        states.append(next);
    }
    for (const QByteArray& state : states)
        stack.Push(state);
    for (int n = states.size() - 1; n >= 0; --n)
        ASSERT_TRUE(stack.Pop() == states[n]) << "state " << n;
    EXPECT_TRUE(stack.IsEmpty());
}

TEST(UndoStack, TheHundredAndFirstStateDropsTheOldest)
{
    CUndoStack stack;
    for (int n = 0; n <= 100; ++n)
        stack.Push(QByteArray::number(n));
    ASSERT_EQ(stack.Size(), 100);
    for (int n = 100; n >= 1; --n)
        EXPECT_EQ(stack.Pop(), QByteArray::number(n));
}

TEST(UndoStack, StatesThatDifferInAFewPlacesShareTheRest)
{
    CUndoStack stack;
    QByteArray state = RandomBytes(1000000, 7);
    stack.Push(state);
    const qint64 nFirst = stack.GetBytes();
    for (int n = 1; n < 100; ++n) {
        state.insert(10000 * n, "inserted: everything behind has moved");
        state[500] = char(n);
        stack.Push(state);
    }
    const qint64 nPerStep = (stack.GetBytes() - nFirst) / 99;
    // Two pieces of up to 8 KiB each, and a list of about a thousand pointers.
    EXPECT_LT(nPerStep, 30000);
    EXPECT_TRUE(stack.Top() == state);
}
