#pragma once

#include <QSet>
#include <QVector>

/** Those of all that stand in first, in its order and each once, then the others in theirs. */
template <class T> QVector<T*> Arranged(const QVector<T*>& all, const QVector<T*>& first)
{
    const QSet<T*> known(all.begin(), all.end());
    QSet<T*> placed;
    QVector<T*> arranged;
    for (const QVector<T*>& list : {first, all})
        for (T* const p : list)
            if (known.contains(p) && !placed.contains(p)) {
                placed.insert(p);
                arranged.append(p);
            }
    return arranged;
}
