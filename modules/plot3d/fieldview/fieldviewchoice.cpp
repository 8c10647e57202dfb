#include "modules/plot3d/fieldview/fieldviewchoice.h"

#include "frame/preferencekeys.h"
#include "frame/preferences.h"
#include "frame/userprompt.h"
#include "modules/plot3d/fieldview/fieldviewdisplay.h"

#include <QFileInfo>

SFieldViewChoice AskFieldView(const QString& sDirectory)
{
    CPreferences& preferences = CPreferences::Instance();
    const QString sFile = UserPrompt::AskFile({"Select FieldView Restart File",
                                               Get(preferences, PreferenceKey::RECENT_DIRECTORY),
                                               "FieldView Restart (*.dat);;All Files (*)", false});
    if (sFile.isEmpty())
        return {};
    Set(preferences, PreferenceKey::RECENT_DIRECTORY, QFileInfo(sFile).absolutePath());
    const SFieldViewImport made = ImportFieldView(sFile, sDirectory);
    if (made.sDisplayFile.isEmpty())
        UserPrompt::Tell(PromptWarning, made.sTitle, made.sProblem);
    return {sFile, made.sDisplayFile};
}
