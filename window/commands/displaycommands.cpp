#include "window/commands/displaycommands.h"

#include "frame/ui/waitcursor.h"
#include "frame/widgetmanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/undostep.h"
#include "window/commands/activepair.h"
#include "window/commands/displaycommandtable.h"
#include "window/commands/windowactions.h"

CDisplayCommands::CDisplayCommands(CWindowActions& actions) : m_actions(actions)
{
    for (const SDisplayCommand& command : DisplayCommandTable())
        actions.Bind(command.eAction, this, [this, &command] { Run(command); });
}

QVector<ISelectable*> CDisplayCommands::GetSubjects() const
{
    return SActivePair().GetSubjects(m_actions.Get(ActionApplyToChildren)->isChecked());
}

void CDisplayCommands::Run(const SDisplayCommand& command)
{
    const QVector<ISelectable*> subjects = GetSubjects();
    if (subjects.isEmpty())
        return;
    SDisplayAnswer answer;
    answer.bFlag = command.Flag ? command.Flag(subjects) : m_actions.Get(command.eAction)->isChecked();
    if (command.Ask) {
        const auto asked = command.Ask(*subjects.first());
        if (!asked)
            return;
        answer = *asked;
    }
    Apply(command, answer);
}

void CDisplayCommands::Apply(const SDisplayCommand& command, const SDisplayAnswer& answer)
{
    QVector<ISelectable*> subjects = GetSubjects(); // as they are now: while it asked, items may have gone
    const ISimulation* const pSimulation = CWidgetManager::Instance().GetActiveSimulation();
    if (!pSimulation)
        return;
    const auto impossible = [&](const ISelectable* p) { return !command.IsPossible(*p); };
    if (command.IsPossible && std::any_of(subjects.begin(), subjects.end(), impossible)) {
        subjects.erase(std::remove_if(subjects.begin(), subjects.end(), impossible), subjects.end());
        CWidgetManager::Instance().SetStatusText(command.sRefusal);
    }
    const CWaitCursor wait; // ranges may have to be read
    {
        const CUndoStep step(pSimulation->GetId());
        command.Apply(subjects, answer);
    }
    CSelectableManager& manager = CSelectableManager::Instance();
    for (ISelectable* const pSubject : std::as_const(subjects))
        (manager.*command.Notify)(pSubject);
    CWidgetManager::Instance().UpdateActiveViewer();
}

void CDisplayCommands::SlotShowSelection()
{
    const QVector<ISelectable*> selected = SActivePair().GetSubjects(false);
    m_actions.Get(ActionBindToLocal)
        ->setChecked(!selected.isEmpty() &&
                     std::all_of(selected.begin(), selected.end(),
                                 [](const ISelectable* p) { return p->colormapBindToLocal(); }));
}
