#pragma once

#include "frame/userprompt.h"

#include <QVector>

#include <deque>

/**
 * The user of a test: answers prompts in the order in which the answers were given, and keeps what was
 * asked. A prompt without an answer left fails the test and is answered as where no user is.
 *
 *     CPromptScript user;
 *     user.Press("No");
 *     EXPECT_FALSE(...);
 *     EXPECT_EQ(user.Asked().first().sTitle, "Close");
 */
class CPromptScript : public IUserPrompt
{
public:
    CPromptScript();
    /** Fails the test if answers are left over. */
    ~CPromptScript() override;

    /** The next message or question is answered with the button of this text. */
    void Press(const QString& sButton);
    /** The next question for a file is answered with this name; empty is a cancel. */
    void ChooseFile(const QString& sFileName);

    const QVector<SPrompt>& Asked() const { return m_asked; }
    const QVector<SFilePrompt>& AskedFiles() const { return m_askedFiles; }

    int Ask(const SPrompt& prompt) override;
    QString AskFile(const SFilePrompt& prompt) override;

private:
    IUserPrompt* m_pFormer;
    std::deque<QString> m_buttons;
    std::deque<QString> m_files;
    QVector<SPrompt> m_asked;
    QVector<SFilePrompt> m_askedFiles;
};
