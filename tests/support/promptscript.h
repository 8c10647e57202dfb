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
    /** The next choice is answered with the entry of this text; an empty one is a cancel. */
    void ChooseEntry(const QString& sEntry);
    /** The next question for a number is answered with it, none is a cancel. */
    void EnterNumber(std::optional<double> number);
    /** The next question for a colour is answered with it; an invalid one is a cancel. */
    void ChooseColor(const QColor& color);
    /** The next question for a font is answered with it, none is a cancel. */
    void ChooseFont(std::optional<QFont> font);

    const QVector<SPrompt>& Asked() const { return m_asked; }
    const QVector<SFilePrompt>& AskedFiles() const { return m_askedFiles; }
    const QVector<SChoicePrompt>& AskedChoices() const { return m_askedChoices; }
    const QVector<SNumberPrompt>& AskedNumbers() const { return m_askedNumbers; }

    int Ask(const SPrompt& prompt) override;
    QString AskFile(const SFilePrompt& prompt) override;
    int AskChoice(const SChoicePrompt& prompt) override;
    std::optional<double> AskNumber(const SNumberPrompt& prompt) override;
    QColor AskColor(const QString& sTitle, const QColor& start) override;
    std::optional<QFont> AskFont(const QString& sTitle, const QFont& start) override;

private:
    IUserPrompt* m_pFormer;
    std::deque<QString> m_buttons;
    std::deque<QString> m_files;
    std::deque<QString> m_entries;
    std::deque<std::optional<double>> m_numbers;
    std::deque<QColor> m_colors;
    std::deque<std::optional<QFont>> m_fonts;
    QVector<SPrompt> m_asked;
    QVector<SFilePrompt> m_askedFiles;
    QVector<SChoicePrompt> m_askedChoices;
    QVector<SNumberPrompt> m_askedNumbers;
};
