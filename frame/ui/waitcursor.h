#pragma once

#include <QCursor>
#include <QGuiApplication>
#include <QVector>

/** The wait cursor while it lives. */
class CWaitCursor
{
public:
    CWaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CWaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};

/** The ordinary cursor while it lives, whoever waits: over a question the user is the one to act. */
class CAskingCursor
{
public:
    CAskingCursor()
    {
        for (; const QCursor* const pCursor = QGuiApplication::overrideCursor();
             QGuiApplication::restoreOverrideCursor())
            m_lifted.prepend(*pCursor);
    }
    ~CAskingCursor()
    {
        for (const QCursor& cursor : std::as_const(m_lifted))
            QGuiApplication::setOverrideCursor(cursor);
    }
    CAskingCursor(const CAskingCursor&) = delete;
    CAskingCursor& operator=(const CAskingCursor&) = delete;

private:
    QVector<QCursor> m_lifted; // the one set first ahead
};
