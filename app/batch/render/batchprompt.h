#pragma once

#include "frame/userprompt.h"

/**
 * Answers where no user is. A critical message, after which the program can't go on, ends the process with
 * BatchFailed.
 */
class CBatchPrompt : public IUserPrompt
{
public:
    CBatchPrompt() : m_pFormer(UserPrompt::Install(this)) {}
    ~CBatchPrompt() override { UserPrompt::Install(m_pFormer); }
    CBatchPrompt(const CBatchPrompt&) = delete;
    CBatchPrompt& operator=(const CBatchPrompt&) = delete;

    int Ask(const SPrompt& prompt) override;
    QString AskFile(const SFilePrompt&) override { return {}; }
    int AskChoice(const SChoicePrompt&) override { return -1; }
    std::optional<double> AskNumber(const SNumberPrompt&) override { return {}; }
    QColor AskColor(const QString&, const QColor&) override { return {}; }
    std::optional<QFont> AskFont(const QString&, const QFont&) override { return {}; }

private:
    IUserPrompt* const m_pFormer;
};
