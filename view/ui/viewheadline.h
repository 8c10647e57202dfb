#pragma once

#include "view/iviewer.h"

#include <QVector>

class QAction;
class QFrame;
class QLabel;
class QToolButton;

/** The head line that the views of both kinds have in common. */
namespace ViewHeadline {

/** Marks the head line of the active view; how it looks is the theme's (property "activeView"). */
void SetActive(QFrame* pHeadline, QLabel* pMarker, bool bActive);

/** Icon and tool tip of the button that makes a view fill the area. */
void SetExpanded(QToolButton* pButton, bool bExpanded);

/** Gives a split button its menu of actions. */
void SetSplitMenu(QToolButton* pButton, const QVector<QAction*>& actions);

} // namespace ViewHeadline
