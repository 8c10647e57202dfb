#include "window/commands/windowactions.h"

#include "frame/themeicon.h"
#include "window/commands/actiontable.h"

#include <QWidget>

namespace {

QString ToolTip(const SActionRow& row, const QList<QKeySequence>& shortcuts)
{
    const QString sTip = *row.sToolTip ? QString(row.sToolTip) : QString(row.sText).remove("...");
    return shortcuts.isEmpty()
               ? sTip
               : QString("%1 (%2)").arg(sTip, shortcuts[0].toString(QKeySequence::NativeText));
}

QAction* MakeAction(const SActionRow& row, QObject* pParent)
{
    auto* const pAction = new QAction(row.sText, pParent);
    const auto shortcuts = QKeySequence::listFromString(row.sShortcuts, QKeySequence::PortableText);
    pAction->setShortcuts(shortcuts);
    pAction->setToolTip(ToolTip(row, shortcuts));
    pAction->setCheckable(row.bCheckable);
    if (*row.sIcon)
        pAction->setIcon(ThemeIcon(row.sIcon));
    return pAction;
}

} // namespace

CWindowActions::CWindowActions(QWidget* pParent) : QObject(pParent)
{
    for (const SActionRow& row : ActionTable()) {
        m_actions[row.eId] = MakeAction(row, pParent);
        // A shortcut works from everywhere in the window, whatever menu or toolbar holds its action.
        pParent->addAction(m_actions[row.eId]);
    }
}

void CWindowActions::Update(const SActionState& state)
{
    for (const SActionRow& row : ActionTable())
        m_actions[row.eId]->setEnabled(m_bound[row.eId] && (!row.IsEnabled || row.IsEnabled(state)));
}
