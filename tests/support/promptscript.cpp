#include "tests/support/promptscript.h"

#include <gtest/gtest.h>

CPromptScript::CPromptScript() : m_pFormer(UserPrompt::Install(this)) {}

CPromptScript::~CPromptScript()
{
    UserPrompt::Install(m_pFormer);
    EXPECT_TRUE(m_buttons.empty()) << "never asked: " << m_buttons.front().toStdString();
    EXPECT_TRUE(m_files.empty()) << "never asked for: " << m_files.front().toStdString();
}

void CPromptScript::Press(const QString& sButton) { m_buttons.push_back(sButton); }
void CPromptScript::ChooseFile(const QString& sFileName) { m_files.push_back(sFileName); }

int CPromptScript::Ask(const SPrompt& prompt)
{
    m_asked.append(prompt);
    if (m_buttons.empty()) {
        ADD_FAILURE() << "unexpected prompt: " << prompt.sTitle.toStdString() << ": "
                      << prompt.sText.toStdString();
        return prompt.nEscape;
    }
    const QString sButton = m_buttons.front();
    m_buttons.pop_front();
    const int nButton = prompt.sButtonList.indexOf(sButton);
    EXPECT_GE(nButton, 0) << "no button \"" << sButton.toStdString()
                          << "\" at: " << prompt.sText.toStdString();
    return nButton < 0 ? prompt.nEscape : nButton;
}

QString CPromptScript::AskFile(const SFilePrompt& prompt)
{
    m_askedFiles.append(prompt);
    if (m_files.empty()) {
        ADD_FAILURE() << "unexpected file dialog: " << prompt.sTitle.toStdString();
        return {};
    }
    const QString sFileName = m_files.front();
    m_files.pop_front();
    return sFileName;
}
