#pragma once

#include "frame/userprompt.h"

/**
 * The folder in which the user has chosen a file last (the preference "IO.RecentDirectory"), from which every
 * question for one starts that knows no better place. It is saved at once, so that the next start has it too.
 */
namespace RecentFolder {

/** As UserPrompt::AskFile; a start that names no folder, also an empty one, stands in the recent one. */
QString AskFile(SFilePrompt prompt);

/** The folder of this file is the recent one from now on. */
void Keep(const QString& sFileName);

} // namespace RecentFolder
