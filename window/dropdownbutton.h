#pragma once

#include <QToolButton>
#include <QVector>

/**
 * A tool button with a menu of actions that shows the one used last and runs it again on a click; of
 * actions that exclude each other it shows the one that holds. It can be used while any of them can.
 */
class CDropDownButton : public QToolButton
{
    Q_OBJECT

public:
    /**
     * @param sText    the button's name
     * @param icon     shown for actions that have none; may be null
     * @param actions  the menu; the checked one of several, else the first, is shown at the start
     */
    CDropDownButton(const QString& sText, const QString& sToolTip, const QIcon& icon,
                    const QVector<QAction*>& actions, QWidget* pParent = nullptr);

    QAction* GetLastAction() const { return m_pLast; }

public slots:
    /** Shows the action as the one used last. */
    void SlotInitializeToolButton(QAction* pAction);

private:
    void ShowEnabled();

    const QIcon m_icon;
    QAction* m_pLast = nullptr;
};
