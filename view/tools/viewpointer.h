#pragma once

#include "view/pick/hoverlist.h"
#include "view/pick/viewpicker.h"

#include <memory>

class IToolView;

/** What lies under the pointer of a view, and what the status bar tells of it. */
class CViewPointer
{
public:
    explicit CViewPointer(const IToolView& view);

    /** What the pointer meets, what is in front first. */
    QVector<ISelectable*> Hits() const;
    /** Picks the point there; one of what StepHover asked for goes ahead. */
    const SPointPick& Pick();
    /** The point that was picked last. */
    const SPointPick& Picked() const { return m_picked; }
    CHoverList& Hovered() { return m_hover; }

    /** In the status bar, until the pointer has gone on. */
    void Tell(const QString& sText);
    void ForgetTold() const;

private:
    SPickArea Area() const;

    const IToolView& m_view;
    CHoverList m_hover;
    SPointPick m_picked;
    QString m_sTold; // in the status bar
};

/** Lasts as long as the result is kept: the wait cursor, if a pick first has to build trees that take
 * noticeably long. */
std::shared_ptr<void> WaitForTrees(const IToolView& view, const SPickArea& area);
