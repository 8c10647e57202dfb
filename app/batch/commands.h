#pragma once

#include <QStringList>

// The sub-commands of zento-batch; each gives a BatchStatus_e.
int RunInfo(const QStringList& sArgumentList);
int RunStats(const QStringList& sArgumentList);
int RunProbe(const QStringList& sArgumentList);
int RunRender(const QStringList& sArgumentList);
