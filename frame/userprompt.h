#pragma once

#include <QString>
#include <QStringList>

enum PromptKind_e { PromptInformation, PromptWarning, PromptCritical, PromptQuestion };

/** A message or a question to the user. */
struct SPrompt
{
    PromptKind_e eKind = PromptInformation;
    QString sTitle;
    QString sText;
    QStringList sButtonList = {"Ok"}; ///< from the left
    int nDefault = 0;                 ///< button that Enter presses
    int nEscape = 0;                  ///< button that Escape presses; also the answer where no user is
};

/** A question for a file name. */
struct SFilePrompt
{
    QString sTitle;
    QString sStart;  ///< directory or file to start at
    QString sFilter; ///< as QFileDialog takes it
    bool bSave = false;
};

/**
 * Whoever can put a question to the user. The program with a window installs message boxes; a batch run
 * has none, a test a script of answers.
 */
class IUserPrompt
{
public:
    virtual ~IUserPrompt() = default;
    /** The index of the button pressed. */
    virtual int Ask(const SPrompt& prompt) = 0;
    /** The file chosen; empty if the user cancelled. */
    virtual QString AskFile(const SFilePrompt& prompt) = 0;
};

/**
 * Every message box and file dialog of the program goes through the functions of this name space, so that
 * nothing ever waits where no user is. Main thread only.
 */
namespace UserPrompt {

/** Makes pPrompt answer from now on (not owned; null: no user). Gives the one that answered before. */
IUserPrompt* Install(IUserPrompt* pPrompt);

/** Puts the question. Without a user its text goes to the message sink and the answer is nEscape. */
int Ask(const SPrompt& prompt);

/** Asks for a file name. Without a user the answer is empty. */
QString AskFile(const SFilePrompt& prompt);

/** A message with an "Ok" button. Always false, so that a failing function can end with it. */
bool Tell(PromptKind_e eKind, const QString& sTitle, const QString& sText);

/** A question with "Yes" and "No". False where no user is. */
bool Confirm(const QString& sTitle, const QString& sText, bool bDefaultYes = true);

} // namespace UserPrompt
