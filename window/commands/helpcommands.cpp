#include "window/commands/helpcommands.h"

#include "frame/applicationinfo.h"
#include "frame/userprompt.h"
#include "window/commands/windowactions.h"

namespace {

// One line for each thing that users meet, newest version only; what a version had before isn't news. Neither
// text names a product: what stands here may be shown as part of another one.
constexpr const char* NEWS[] = {
    "Structured grids with their solutions: the layout of a file is detected, large ones are read at need.",
    "Blocks by faces, boundaries and index planes; holes, mirrored and periodic copies.",
    "Variables of the files, what follows from them, and formulas of your own, with eighteen colormaps.",
    "Several cases at once, in views that are split, linked and enlarged.",
    "Picking with the values at the point, selection by click and box, measuring.",
    "Undo and redo of items and display, a hundred steps back.",
    "Cases, display states and restart files; unsaved work survives a crash.",
    "Preferences with four themes, mouse and keyboard presets, and a limit of the memory.",
    "Values, formulas and pictures from scripts, without a window.",
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
    UserPrompt::Tell(PromptInformation, "What is new",
                     QString("Version %1\n\n%2").arg(ApplicationInfo::VERSION, NewsText()));
}

void CHelpCommands::SlotAbout()
{
    const QString sText =
        "Version %1\n\nPre- and post-processing for computational fluid dynamics: grids, their solutions, "
        "and the cases made of them.";
    UserPrompt::Tell(PromptInformation, "About", sText.arg(ApplicationInfo::VERSION));
}
