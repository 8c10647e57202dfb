#pragma once

#include <QObject>
#include <QVector>

class CDockWidget;
class CMainWindow;
class IMouseClickReceiver;

/** The docks of all modules in the main window, and how they live together. */
class CDockLogic : public QObject
{
    Q_OBJECT

public:
    /** Adds the docks of all modules to the window, hidden, and connects them with it. */
    explicit CDockLogic(CMainWindow& window);

    /** Who has taken over the clicks of the views; null for nobody. */
    IMouseClickReceiver* GetMouseClickReceiver() const { return m_pMouseClickReceiver; }

signals:
    /** A dock has been opened. Blocked while a module shows all of its docks. */
    void SignalCloseExcept(QWidget* pRequestingWidget);

public slots:
    void SlotMouseClickReceiver(IMouseClickReceiver* pMouseClickReceiver);

private:
    void AddDock(CMainWindow& window, CDockWidget* pDock);

    IMouseClickReceiver* m_pMouseClickReceiver = nullptr;
};
