#pragma once

#include <QString>

/** The system's own name of a variable of a FieldView restart; a name that isn't known stays as it is. */
QString TranslateFieldViewVariable(const QString& sName);
