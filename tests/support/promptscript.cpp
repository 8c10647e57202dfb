#include "tests/support/promptscript.h"

#include <gtest/gtest.h>

namespace {

/** The next answer; a prompt without one fails the test and is answered as where no user is. */
template <class T> T NextAnswer(std::deque<T>& answers, const QString& sQuestion, const T& noUser)
{
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected prompt: " << sQuestion.toStdString();
        return noUser;
    }
    const T answer = answers.front();
    answers.pop_front();
    return answer;
}

/** Where the answer stands in the list; a text that doesn't fails the test. */
int IndexOf(const QStringList& sList, const QString& sAnswer, const QString& sQuestion)
{
    const int nIndex = sList.indexOf(sAnswer);
    EXPECT_GE(nIndex, 0) << "no \"" << sAnswer.toStdString() << "\" at: " << sQuestion.toStdString();
    return nIndex;
}

} // namespace

CPromptScript::CPromptScript() : m_pFormer(UserPrompt::Install(this)) {}

CPromptScript::~CPromptScript()
{
    UserPrompt::Install(m_pFormer);
    EXPECT_TRUE(m_buttons.empty()) << "never asked: " << m_buttons.front().toStdString();
    EXPECT_TRUE(m_files.empty()) << "never asked for: " << m_files.front().toStdString();
    EXPECT_TRUE(m_entries.empty()) << "never offered: " << m_entries.front().toStdString();
    EXPECT_TRUE(m_numbers.empty() && m_colors.empty() && m_fonts.empty())
        << "a number, colour or font was never asked for";
}

void CPromptScript::Press(const QString& sButton) { m_buttons.push_back(sButton); }
void CPromptScript::ChooseFile(const QString& sFileName) { m_files.push_back(sFileName); }
void CPromptScript::ChooseEntry(const QString& sEntry) { m_entries.push_back(sEntry); }
void CPromptScript::EnterNumber(std::optional<double> number) { m_numbers.push_back(number); }
void CPromptScript::ChooseColor(const QColor& color) { m_colors.push_back(color); }
void CPromptScript::ChooseFont(std::optional<QFont> font) { m_fonts.push_back(font); }

int CPromptScript::Ask(const SPrompt& prompt)
{
    m_asked.append(prompt);
    const QString sQuestion = QString("%1: %2").arg(prompt.sTitle, prompt.sText);
    const QString sButton = NextAnswer(m_buttons, sQuestion, prompt.sButtonList.value(prompt.nEscape));
    const int nButton = IndexOf(prompt.sButtonList, sButton, sQuestion);
    return nButton < 0 ? prompt.nEscape : nButton;
}

QString CPromptScript::AskFile(const SFilePrompt& prompt)
{
    m_askedFiles.append(prompt);
    return NextAnswer(m_files, prompt.sTitle, {});
}

int CPromptScript::AskChoice(const SChoicePrompt& prompt)
{
    m_askedChoices.append(prompt);
    const QString sEntry = NextAnswer(m_entries, prompt.sTitle, {});
    return sEntry.isEmpty() ? -1 : IndexOf(prompt.sEntryList, sEntry, prompt.sTitle);
}

std::optional<double> CPromptScript::AskNumber(const SNumberPrompt& prompt)
{
    m_askedNumbers.append(prompt);
    return NextAnswer(m_numbers, prompt.sTitle, {});
}

QColor CPromptScript::AskColor(const QString& sTitle, const QColor&)
{
    return NextAnswer(m_colors, sTitle, {});
}

std::optional<QFont> CPromptScript::AskFont(const QString& sTitle, const QFont&)
{
    return NextAnswer(m_fonts, sTitle, {});
}
