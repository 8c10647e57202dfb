#include "window/dropdownbutton.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>

/** Of such actions the button shows the one that holds, whoever has chosen it. */
static bool IsOneOfSeveral(const QAction& action)
{
    return action.actionGroup() && action.actionGroup()->isExclusive();
}

CDropDownButton::CDropDownButton(const QString& sText, const QString& sToolTip, const QIcon& icon,
                                 const QVector<QAction*>& actions, QWidget* pParent)
    : QToolButton(pParent), m_icon(icon)
{
    auto* const pMenu = new QMenu(this);
    for (QAction* const pAction : actions) {
        pMenu->addAction(pAction);
        connect(pAction, &QAction::changed, this, &CDropDownButton::ShowEnabled);
        connect(pAction, &QAction::toggled, this, [this, pAction](bool bChecked) {
            if (bChecked && IsOneOfSeveral(*pAction))
                SlotInitializeToolButton(pAction);
        });
    }
    setText(sText);
    setToolTip(sToolTip);
    setAccessibleName(sText);
    setPopupMode(MenuButtonPopup);
    setFocusPolicy(Qt::TabFocus);
    setMenu(pMenu);
    connect(pMenu, &QMenu::triggered, this, &CDropDownButton::SlotInitializeToolButton);
    // Not setDefaultAction: an action that can't be used would take the arrow to the others with it.
    connect(this, &QToolButton::clicked, this, [this] { m_pLast->trigger(); });
    const auto chosen = std::find_if(actions.begin(), actions.end(), [](const QAction* pAction) {
        return pAction->isChecked() && IsOneOfSeveral(*pAction);
    });
    SlotInitializeToolButton(chosen == actions.end() ? actions.first() : *chosen);
    ShowEnabled();
}

void CDropDownButton::SlotInitializeToolButton(QAction* pAction)
{
    m_pLast = pAction;
    setIcon(pAction->icon().isNull() ? m_icon : pAction->icon());
    setToolButtonStyle(icon().isNull() ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly);
}

void CDropDownButton::ShowEnabled()
{
    const QList<QAction*> actions = menu()->actions();
    setEnabled(std::any_of(actions.begin(), actions.end(), [](QAction* p) { return p->isEnabled(); }));
}
