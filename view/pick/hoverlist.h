#pragma once

#include <QVector>

class ISelectable;

/**
 * What lies under the pointer of a view, and which of it is the current one. The hover flag is set on the
 * current one alone. Main thread only; Forget must be told of selectables that are deleted.
 */
class CHoverList
{
public:
    explicit CHoverList(qint64 nViewId) : m_nViewId(nViewId) {}

    /**
     * Takes what the pointer meets now, what is in front first. That is the current one, unless another was
     * asked for and is still there. False if the list was the same, which changes nothing.
     */
    bool Update(const QVector<ISelectable*>& hits);
    /** Makes the next one current, the first after the last; false for less than two. */
    bool Step();
    /** The pointer has left. False if nothing was hovered. */
    bool Clear() { return Update({}); }
    /** The selectable is going; the current one stays if it is another. */
    void Forget(ISelectable* pSelectable);

    const QVector<ISelectable*>& List() const { return m_list; }
    int Index() const { return m_nIndex; }
    /** Null while nothing is hovered. */
    ISelectable* Current() const { return m_list.value(m_nIndex); }
    /** The current one if Step has made it that; else null. */
    ISelectable* Asked() const { return m_bAsked ? Current() : nullptr; }

private:
    void SetFlags() const;

    const qint64 m_nViewId;
    QVector<ISelectable*> m_list;
    int m_nIndex = 0;
    bool m_bAsked = false;
};
