#pragma once

#include "frame/tasks/itaskdialog.h"

#include <QProgressDialog>

class QProgressBar;

/**
 * The dialog of a running task. It stays open after a cancel, since the work function still has to notice:
 * the user sees that the task isn't over, and no other window takes input meanwhile.
 */
class CProgressDialog : public QProgressDialog, public ITaskDialog
{
    Q_OBJECT

public:
    CProgressDialog(std::function<void()> fnCancelled, QWidget* pParent);

    /** Makes all tasks show this dialog from now on, above the window that is active then. */
    static void Install();

    void SetText(const QString& sText) override;
    void SetCancelText(const QString& sText) override;
    void SetDone(double dDone) override;
    void RunModal() override;
    void Close() override;

    /** Escape. */
    void reject() override;

protected:
    void closeEvent(QCloseEvent* pEvent) override;

private:
    std::function<void()> m_fnCancelled;
    QProgressBar* m_pBar;
};
