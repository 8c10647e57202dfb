#pragma once

#include <QObject>

class CWindowActions;

/** What the program says about itself. */
class CHelpCommands : public QObject
{
    Q_OBJECT

public:
    /** Binds its actions. */
    explicit CHelpCommands(CWindowActions& actions);

public slots:
    void SlotWhatsNew();
    void SlotAbout();
};
