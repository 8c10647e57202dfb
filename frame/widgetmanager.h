#pragma once

#include "frame/imainwindow.h"

#include <QVector>

#include <type_traits>

class QWidget;

/**
 * The way from any part of the program to the main window. Without one (a command-line run) every
 * operation does nothing and gives a neutral result: -1, null, false. Main thread only.
 */
class CWidgetManager
{
public:
    static constexpr qint32 MAIN_WINDOW = 1; ///< role of the main window

    static CWidgetManager& Instance();

    /**
     * Lists a widget (not owned) under a role; one that is listed already is ignored. The main window
     * must implement IMainWindow. Unregister before the widget goes.
     */
    template <class Widget> void Register(Widget* pWidget, qint32 nRole)
    {
        if constexpr (std::is_base_of_v<IMainWindow, Widget>)
            Add(pWidget, nRole, pWidget);
        else
            Add(pWidget, nRole, nullptr);
    }
    void Unregister(const QWidget* pWidget);
    /** The first widget of that role, or null. */
    QWidget* GetWidget(qint32 nRole) const;

    qint64 GetActiveViewId() const;
    /** The active simulation of the active view. */
    ISimulation* GetActiveSimulation() const;
    void UpdateActions();
    void RefreshDocks(qint64 nViewId, bool bForce = false, bool bAll = false);
    void UpdateActiveViewer(qint64 nFlags = 0);
    IViewer* GetViewer(qint64 nIndex) const;
    IViewer* GetViewerById(qint64 nViewId) const;
    void SetStatusText(const QString& sText);
    /** Takes the text away if it is still the one on show. */
    void ForgetStatusText(const QString& sText);
    void RunInTerminal();
    void CloseAll();
    void BlockUpdates(qint64 nSimulationId, bool bBlock);
    QImage CaptureImage(const SCapture& capture);

private:
    CWidgetManager() = default;
    void Add(QWidget* pWidget, qint32 nRole, IMainWindow* pWindow);
    IMainWindow* MainWindow() const;

    QVector<QWidget*> m_widgets;
    QVector<qint32> m_roles;         // parallel to m_widgets
    QVector<IMainWindow*> m_windows; // the same; null for other roles
    QString m_sStatusText;           // the last one that was set
};
