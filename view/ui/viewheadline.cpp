#include "view/ui/viewheadline.h"

#include "frame/themeicon.h"

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>

void ViewHeadline::SetActive(QFrame* pHeadline, QLabel* pMarker, bool bActive)
{
    pHeadline->setProperty("activeView", bActive);
    // A style sheet only looks at properties when the widget is polished.
    for (QWidget* const pWidget : {static_cast<QWidget*>(pHeadline), static_cast<QWidget*>(pMarker)}) {
        pWidget->style()->unpolish(pWidget);
        pWidget->style()->polish(pWidget);
    }
    // Keeps its place in the line, so that names don't jump.
    QSizePolicy policy = pMarker->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    pMarker->setSizePolicy(policy);
    pMarker->setVisible(bActive);
}

void ViewHeadline::SetExpanded(QToolButton* pButton, bool bExpanded)
{
    const QSignalBlocker blocker(pButton);
    pButton->setChecked(bExpanded);
    pButton->setIcon(ThemeIcon(bExpanded ? ":/Icons/collapsewindow.ico" : ":/Icons/expandwindow.ico"));
}

void ViewHeadline::SetSplitMenu(QToolButton* pButton, const QVector<QAction*>& actions)
{
    auto* const pMenu = new QMenu(pButton);
    for (QAction* const pAction : actions)
        pMenu->addAction(pAction);
    pButton->setMenu(pMenu);
    // A split moves the button away from under the mouse, which no event tells it.
    QObject::connect(pMenu, &QMenu::aboutToHide, pButton, [pButton] {
        pButton->setAttribute(Qt::WA_UnderMouse, false);
        pButton->update();
    });
}
