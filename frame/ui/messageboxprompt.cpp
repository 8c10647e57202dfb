#include "frame/ui/messageboxprompt.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace {

QMessageBox::Icon IconOf(PromptKind_e eKind)
{
    switch (eKind) {
    case PromptInformation:
        return QMessageBox::Information;
    case PromptWarning:
        return QMessageBox::Warning;
    case PromptCritical:
        return QMessageBox::Critical;
    case PromptQuestion:
        break;
    }
    return QMessageBox::Question;
}

/** Work that takes long may have to ask: meanwhile it is the program that waits for the user. */
class CUserIsAsked
{
public:
    CUserIsAsked() : m_bWaitCursor(QGuiApplication::overrideCursor())
    {
        if (m_bWaitCursor)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~CUserIsAsked()
    {
        if (m_bWaitCursor)
            QGuiApplication::restoreOverrideCursor();
    }
    Q_DISABLE_COPY_MOVE(CUserIsAsked)

private:
    const bool m_bWaitCursor;
};

} // namespace

int CMessageBoxPrompt::Ask(const SPrompt& prompt)
{
    const CUserIsAsked asked;
    QMessageBox box(IconOf(prompt.eKind), prompt.sTitle, prompt.sText, QMessageBox::NoButton,
                    QApplication::activeWindow());
    QVector<QPushButton*> buttons;
    for (const QString& sButton : prompt.sButtonList)
        buttons.append(box.addButton(sButton, QMessageBox::ActionRole)); // this role keeps the order given
    box.setDefaultButton(buttons.value(prompt.nDefault));
    box.setEscapeButton(buttons.value(prompt.nEscape));
    box.exec();
    const int nPressed = buttons.indexOf(static_cast<QPushButton*>(box.clickedButton()));
    return nPressed < 0 ? prompt.nEscape : nPressed;
}

QString CMessageBoxPrompt::AskFile(const SFilePrompt& prompt)
{
    const CUserIsAsked asked;
    QWidget* const pParent = QApplication::activeWindow();
    if (prompt.bFolder)
        return QFileDialog::getExistingDirectory(pParent, prompt.sTitle, prompt.sStart);
    return prompt.bSave ? QFileDialog::getSaveFileName(pParent, prompt.sTitle, prompt.sStart, prompt.sFilter)
                        : QFileDialog::getOpenFileName(pParent, prompt.sTitle, prompt.sStart, prompt.sFilter);
}

int CMessageBoxPrompt::AskChoice(const SChoicePrompt& prompt)
{
    const CUserIsAsked asked;
    QInputDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(prompt.sTitle);
    dialog.setLabelText(prompt.sLabel);
    dialog.setComboBoxItems(prompt.sEntryList);
    dialog.setOption(QInputDialog::UseListViewForComboBoxItems);
    dialog.setTextValue(prompt.sEntryList.value(prompt.nDefault));
    return dialog.exec() == QDialog::Accepted ? prompt.sEntryList.indexOf(dialog.textValue()) : -1;
}

std::optional<double> CMessageBoxPrompt::AskNumber(const SNumberPrompt& prompt)
{
    const CUserIsAsked asked;
    bool bAccepted = false;
    const double dValue =
        QInputDialog::getDouble(QApplication::activeWindow(), prompt.sTitle, prompt.sLabel, prompt.dValue,
                                prompt.dMinimum, prompt.dMaximum, prompt.nDecimals, &bAccepted);
    return bAccepted ? std::optional(dValue) : std::nullopt;
}

QColor CMessageBoxPrompt::AskColor(const QString& sTitle, const QColor& start)
{
    const CUserIsAsked asked;
    return QColorDialog::getColor(start, QApplication::activeWindow(), sTitle,
                                  QColorDialog::DontUseNativeDialog);
}

std::optional<QFont> CMessageBoxPrompt::AskFont(const QString& sTitle, const QFont& start)
{
    const CUserIsAsked asked;
    bool bAccepted = false;
    const QFont font = QFontDialog::getFont(&bAccepted, start, QApplication::activeWindow(), sTitle,
                                            QFontDialog::DontUseNativeDialog);
    return bAccepted ? std::optional(font) : std::nullopt;
}
