#include "frame/ui/progressdialog.h"

#include "frame/tasks/task.h"
#include "frame/themeicon.h"

#include <QApplication>
#include <QCloseEvent>
#include <QProgressBar>

CProgressDialog::CProgressDialog(std::function<void()> fnCancelled, QWidget* pParent)
    : QProgressDialog("Task Progress Dialog", "Abort", 0, 0, pParent),
      m_fnCancelled(std::move(fnCancelled)),
      m_pBar(new QProgressBar)
{
    // A bar of our own: QProgressDialog::setValue handles events, in which the task could end.
    setBar(m_pBar);
    setWindowIcon(ThemeIcon(":/Icons/sandglass.ico"));
    setWindowModality(Qt::ApplicationModal);
    setAutoReset(false);
    setAutoClose(false);
    reset(); // stops the timer that would show the dialog before the task is started
    // A connection made by name, as Qt makes this one, can only be found by name.
    disconnect(this, SIGNAL(canceled()), this, SLOT(cancel()));
    connect(this, &QProgressDialog::canceled, this, [this] { m_fnCancelled(); });
}

void CProgressDialog::Install()
{
    CTask::InstallDialogs([](std::function<void()> fnCancelled) {
        return std::make_unique<CProgressDialog>(std::move(fnCancelled), QApplication::activeWindow());
    });
}

void CProgressDialog::SetText(const QString& sText) { setLabelText(sText); }

void CProgressDialog::SetCancelText(const QString& sText) { setCancelButtonText(sText); }

void CProgressDialog::SetDone(double dDone)
{
    m_pBar->setRange(0, 100);
    m_pBar->setValue(qRound(100 * dDone));
}

void CProgressDialog::RunModal()
{
    m_pBar->setRange(0, 0);
    exec();
}

void CProgressDialog::Close()
{
    m_fnCancelled = [] {};
    cancel(); // hides, which ends exec
    hide();
}

void CProgressDialog::reject() { emit canceled(); }

void CProgressDialog::closeEvent(QCloseEvent* pEvent)
{
    pEvent->ignore();
    emit canceled();
}
