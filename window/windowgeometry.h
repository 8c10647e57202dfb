#pragma once

#include <QByteArray>
#include <QStringList>

class QMainWindow;

/** The geometry and the layout of docks and toolbars of a window. */
struct SWindowLayout
{
    QByteArray geometry;
    QByteArray state;
    QStringList sHiddenToolBarList; ///< those that the user has hidden, by their object names
};

SWindowLayout TakeLayout(const QMainWindow& window);
void ApplyLayout(QMainWindow& window, const SWindowLayout& layout);

/**
 * Brings the window to where the last run left it.
 *
 * @param defaultLayout  where no run has left one
 * @return true if the window is maximised now
 */
bool RestoreWindow(QMainWindow& window, const SWindowLayout& defaultLayout);

/** Keeps the window's place and layout for the next run; of a maximised one its normal place too. */
void StoreWindow(const QMainWindow& window);
