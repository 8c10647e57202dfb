#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class CDockWidget;
class CMainWindow;
class CPickSession;
class IMouseClickReceiver;
class ISelectable;

/**
 * The docks of all modules in the main window, and how they live together. What selectables tell goes to
 * them: a double click to those of the module whose case it is, a change to those on show.
 */
class CDockLogic : public QObject
{
    Q_OBJECT

public:
    /** Adds the docks of all modules to the window, hidden, and connects them with it. */
    CDockLogic(CMainWindow& window, CPickSession& picks);

signals:
    /** A dock has been opened. Blocked while a module shows all of its docks. */
    void SignalCloseExcept(QWidget* pRequestingWidget);

public slots:
    /** The receiver takes over the clicks of the views; null: who had them gives them back. */
    void SlotMouseClickReceiver(IMouseClickReceiver* pMouseClickReceiver);

private:
    /** A dock of a module; the module may delete it. */
    struct SModuleDock
    {
        qint64 nModuleId;
        QPointer<CDockWidget> pDock;
    };

    void AddDock(CMainWindow& window, qint64 nModuleId, CDockWidget* pDock);
    void RouteSelectables();
    void OpenFor(const QVector<ISelectable*>& selectables) const;

    QVector<SModuleDock> m_docks;
    CPickSession& m_picks;
};
