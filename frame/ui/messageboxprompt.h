#pragma once

#include "frame/userprompt.h"

/** Puts the program's questions to the user with message boxes and file dialogs. */
class CMessageBoxPrompt : public IUserPrompt
{
public:
    int Ask(const SPrompt& prompt) override;
    QString AskFile(const SFilePrompt& prompt) override;
    int AskChoice(const SChoicePrompt& prompt) override;
    std::optional<double> AskNumber(const SNumberPrompt& prompt) override;
    QColor AskColor(const QString& sTitle, const QColor& start) override;
    std::optional<QFont> AskFont(const QString& sTitle, const QFont& start) override;
};
