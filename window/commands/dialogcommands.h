#pragma once

#include "data/variables/ivariable.h"

#include <QObject>

class CWindowActions;
class QWidget;

/** The dialogs about variables, vectors and colours of the case on top of the active view. */
class CDialogCommands : public QObject
{
    Q_OBJECT

public:
    /** Binds its actions. @param pParent  above which the dialogs open */
    CDialogCommands(CWindowActions& actions, QWidget* pParent);

    /** Lets the user choose a variable; gives the current one if the user cancelled. */
    qint64 ChooseVariable(VariableKind_e eKind, qint64 nCurrent) const;

public slots:
    /** Colormap and range of everything in the view. */
    void SlotColormap();
    /** Colormap, range and legend of the selection. */
    void SlotColormapDialog();
    void SlotVectorDialog();
    /** Variables are looked at, made of formulas and deleted. */
    void SlotVariables();

private:
    void OpenColormaps(bool bGlobal);

    QWidget* m_pParent;
};
