#pragma once

#include <QObject>
#include <QVector>

class CWindowActions;
class ISelectable;
struct SDisplayAnswer;
struct SDisplayCommand;

/**
 * How the selected items of the case on top of the active view are shown: one command for each action of its
 * table. With "Apply to children" a command also goes to what stands below them. Each is one undo step; one
 * that asks does nothing if the user cancels.
 */
class CDisplayCommands : public QObject
{
    Q_OBJECT

public:
    /** Binds its actions. */
    explicit CDisplayCommands(CWindowActions& actions);

public slots:
    /** Checkable actions take the state of the selection. */
    void SlotShowSelection();

private:
    QVector<ISelectable*> GetSubjects() const;
    void Run(const SDisplayCommand& command);
    void Apply(const SDisplayCommand& command, const SDisplayAnswer& answer);

    const CWindowActions& m_actions;
};
