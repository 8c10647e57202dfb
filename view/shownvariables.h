#pragma once

#include "data/variables/ivariablelistener.h"

/** Keeps what the views show in step with the variables. In use while it lives. */
class CShownVariables : public IVariableListener
{
public:
    CShownVariables();
    ~CShownVariables() override;
    CShownVariables(const CShownVariables&) = delete;
    CShownVariables& operator=(const CShownVariables&) = delete;

    void VariableChanged(qint64 nVariableId) override;
    void VariableRemoved(qint64 nVariableId) override;
};
