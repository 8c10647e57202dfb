#pragma once

#include <QObject>

class CWindowActions;

/** Undo, redo and what changes the selected items of the case on top of the active view. */
class CEditCommands : public QObject
{
    Q_OBJECT

public:
    /** Binds its actions. */
    explicit CEditCommands(CWindowActions& actions);

public slots:
    void SlotUndo();
    void SlotRedo();
    void SlotDuplicate();
    void SlotDelete();
    /** Links what is selected with the items of the same grid; the user says whose settings all are to have.
     */
    void SlotUnify();
};
