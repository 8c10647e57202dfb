#include "frame/ui/messageboxprompt.h"

#include <QApplication>
#include <QFileDialog>
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

} // namespace

int CMessageBoxPrompt::Ask(const SPrompt& prompt)
{
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
    QWidget* const pParent = QApplication::activeWindow();
    return prompt.bSave ? QFileDialog::getSaveFileName(pParent, prompt.sTitle, prompt.sStart, prompt.sFilter)
                        : QFileDialog::getOpenFileName(pParent, prompt.sTitle, prompt.sStart, prompt.sFilter);
}
