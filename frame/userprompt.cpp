#include "frame/userprompt.h"

#include "frame/messagesink.h"

#include <QFileInfo>

#include <utility>

namespace {
IUserPrompt* s_pPrompt = nullptr;
}

IUserPrompt* UserPrompt::Install(IUserPrompt* pPrompt) { return std::exchange(s_pPrompt, pPrompt); }

int UserPrompt::Ask(const SPrompt& prompt)
{
    if (s_pPrompt)
        return s_pPrompt->Ask(prompt);
    CMessageSink::Instance().Log(QString("%1: %2").arg(prompt.sTitle, prompt.sText));
    return prompt.nEscape;
}

QString UserPrompt::AskFile(const SFilePrompt& prompt)
{
    const QString sFile = s_pPrompt ? s_pPrompt->AskFile(prompt) : QString();
    if (sFile.isEmpty() || sFile.endsWith(prompt.sEnding, Qt::CaseInsensitive))
        return sFile;
    const QString sWhole = sFile + prompt.sEnding;
    const QString sQuestion = QString("%1 already exists.\nDo you want to replace it?").arg(sWhole);
    return !QFileInfo::exists(sWhole) || Confirm(prompt.sTitle, sQuestion, false) ? sWhole : QString();
}

int UserPrompt::AskChoice(const SChoicePrompt& prompt)
{
    return s_pPrompt ? s_pPrompt->AskChoice(prompt) : -1;
}

std::optional<double> UserPrompt::AskNumber(const SNumberPrompt& prompt)
{
    return s_pPrompt ? s_pPrompt->AskNumber(prompt) : std::nullopt;
}

QColor UserPrompt::AskColor(const QString& sTitle, const QColor& start)
{
    return s_pPrompt ? s_pPrompt->AskColor(sTitle, start) : QColor();
}

std::optional<QFont> UserPrompt::AskFont(const QString& sTitle, const QFont& start)
{
    return s_pPrompt ? s_pPrompt->AskFont(sTitle, start) : std::nullopt;
}

bool UserPrompt::Tell(PromptKind_e eKind, const QString& sTitle, const QString& sText)
{
    Ask({eKind, sTitle, sText});
    return false;
}

bool UserPrompt::Confirm(const QString& sTitle, const QString& sText, bool bDefaultYes)
{
    constexpr int YES = 0, NO = 1;
    return Ask({PromptQuestion, sTitle, sText, {"Yes", "No"}, bDefaultYes ? YES : NO, NO}) == YES;
}
