#pragma once

#include <QObject>

class CWindowActions;
class ISelectable;

/** What is selected and shown of the case on top of the active view. */
class CSelectionCommands : public QObject
{
    Q_OBJECT

public:
    /** Binds its actions. */
    explicit CSelectionCommands(CWindowActions& actions);

public slots:
    void SlotSelectAll();
    void SlotDeselectAll();
    void SlotToggleSelection();
    /** Adds what borders on the selection, by the case's own rule. */
    void SlotSelectAdjacent();
    /** Asks for the preference "Data.AngleLimit", in degrees. */
    void SlotAngleLimit();
    void SlotShow();
    void SlotHide();

private:
    void Select(bool (*select)(const ISelectable&));
    void SetVisible(bool bVisible);

    const CWindowActions& m_actions;
};
