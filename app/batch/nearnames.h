#pragma once

#include <QStringList>

/**
 * The names that a user who wrote another one may have meant, likeliest first: the same in other letters, one
 * that holds the other, one that is a slip or two away. At most five.
 */
QStringList NearNames(const QString& sWritten, const QStringList& sNameList);

/** ", near it: a, b" for a message; empty if no name is near. */
QString NearNamesText(const QString& sWritten, const QStringList& sNameList);
