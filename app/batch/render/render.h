#pragma once

#include <QStringList>

/** zento-batch render, with an application object and, where there is none, a display of its own. Gives a
 * BatchStatus_e. */
int RunRenderHere(const QStringList& sArgumentList);
