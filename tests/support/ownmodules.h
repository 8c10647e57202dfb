#pragma once

#include "frame/moduleregistry.h"

/** While it lives, the program has the modules that the test has registered and no others. */
class COwnModules
{
public:
    COwnModules() : m_pFormer(CModuleRegistry::Install(&m_registry)) {}
    ~COwnModules() { CModuleRegistry::Install(m_pFormer); }
    Q_DISABLE_COPY_MOVE(COwnModules)

private:
    CModuleRegistry m_registry;
    CModuleRegistry* m_pFormer;
};
