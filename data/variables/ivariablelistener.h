#pragma once

#include <QtGlobal>

/** Who shows variables: the views install themselves; without one nobody has to be told. */
class IVariableListener
{
public:
    virtual ~IVariableListener() = default;
    /** What shows the variable reads its values anew and redraws. */
    virtual void VariableChanged(qint64 nVariableId) = 0;
    /** What shows the variable shows none from now on. */
    virtual void VariableRemoved(qint64 nVariableId) = 0;
};
