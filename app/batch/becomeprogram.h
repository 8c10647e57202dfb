#pragma once

#include <QStringList>

/** Becomes another program; comes back only if that isn't possible. */
void BecomeProgram(const QString& sProgram, const QStringList& sArgumentList);
