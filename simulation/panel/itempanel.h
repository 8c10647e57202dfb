#pragma once
#include <QWidget>
class CItemPanel : public QWidget
{
    Q_OBJECT
signals:
    void SignalPopupMenu();
};
