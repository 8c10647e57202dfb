#include "frame/window/helpcommands.h"

#include "frame/applicationinfo.h"
#include "frame/userprompt.h"
#include "frame/window/windowactions.h"

namespace {

// One line for each thing that users meet, newest version only; what a version had before isn't news.
constexpr const char* NEWS[] = {
    "One window with views that can be split, linked and enlarged; the cases of a view in tabs.",
    "The items of a case by category or as a tree, with a filter; hidden ones are grey.",
    "Undo and redo of every edit of a case, a hundred steps back.",
    "Preferences with four themes, five mouse and keyboard presets, and a limit of the memory.",
    "zento-batch tells from scripts what Plot3D files hold, values and formulas included.",
};

QString NewsText()
{
    QStringList sLineList;
    for (const char* const sLine : NEWS)
        sLineList.append(QString("- %1").arg(sLine));
    return sLineList.join('\n');
}

} // namespace

CHelpCommands::CHelpCommands(CWindowActions& actions)
{
    actions.Bind(ActionWhatsNew, this, &CHelpCommands::SlotWhatsNew);
    actions.Bind(ActionAbout, this, &CHelpCommands::SlotAbout);
}

void CHelpCommands::SlotWhatsNew()
{
    UserPrompt::Tell(PromptInformation, QString("What is new in %1").arg(ApplicationInfo::VERSION),
                     NewsText());
}

void CHelpCommands::SlotAbout()
{
    const QString sText = "%1 %2\n\nPre- and post-processing for computational fluid dynamics: structured "
                          "and unstructured grids, their solutions, and the cases made of them.";
    UserPrompt::Tell(PromptInformation, QString("About %1").arg(ApplicationInfo::NAME),
                     sText.arg(ApplicationInfo::NAME, ApplicationInfo::VERSION));
}
