#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QStringList>

#include <optional>

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
    bool bFolder = false; ///< the question is for a folder; it has no filter
    QString sEnding = {}; ///< ".xyz": what a name to save under gets that doesn't end so, or so in capitals
};

/** A question for one of several entries. */
struct SChoicePrompt
{
    QString sTitle;
    QString sLabel; ///< above the entries
    QStringList sEntryList;
    int nDefault = 0;
};

/** A question for a number. */
struct SNumberPrompt
{
    QString sTitle;
    QString sLabel;
    double dValue = 0.0; ///< the one to start from
    double dMinimum = 0.0;
    double dMaximum = 0.0;
    int nDecimals = 0;
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
    /** The index of the entry chosen; -1 if the user cancelled. */
    virtual int AskChoice(const SChoicePrompt& prompt) = 0;
    /** Nothing if the user cancelled. */
    virtual std::optional<double> AskNumber(const SNumberPrompt& prompt) = 0;
    /** @param start  the colour to start from; the answer is invalid if the user cancelled */
    virtual QColor AskColor(const QString& sTitle, const QColor& start) = 0;
    /** Nothing if the user cancelled. */
    virtual std::optional<QFont> AskFont(const QString& sTitle, const QFont& start) = 0;
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

/**
 * Asks for a file name. Without a user the answer is empty. Where the ending makes it the name of a file that
 * is there, which no dialog has asked about, that is asked.
 */
QString AskFile(const SFilePrompt& prompt);

/** Asks for one of several entries. Without a user the answer is -1. */
int AskChoice(const SChoicePrompt& prompt);

/** Asks for a number. Without a user there is none. */
std::optional<double> AskNumber(const SNumberPrompt& prompt);

/** Asks for a colour. Without a user it is invalid. */
QColor AskColor(const QString& sTitle, const QColor& start);

/** Asks for a font. Without a user there is none. */
std::optional<QFont> AskFont(const QString& sTitle, const QFont& start);

/** A message with an "Ok" button. Always false, so that a failing function can end with it. */
bool Tell(PromptKind_e eKind, const QString& sTitle, const QString& sText);

/** A question with "Yes" and "No". False where no user is. */
bool Confirm(const QString& sTitle, const QString& sText, bool bDefaultYes = true);

} // namespace UserPrompt
