#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/** A formula of the user that is made again in every case that has its inputs. */
struct SStoredVariable
{
    qint64 nId = -1;
    QString sName; ///< tells one from another
    QString sFormula;
    qint64 nLocation = 0;      ///< 1 node, 2 cell centre, 0 constant
    QStringList sUsedNameList; ///< names of the variables that the formula refers to

    friend bool operator==(const SStoredVariable&, const SStoredVariable&) = default;
};
