#pragma once

#include "frame/imoduleinterface.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <vector>

/**
 * The modules of the program, in their fixed order. Modules are compiled in: each registers how it is made
 * before the start-up creates them all. An id without a module gives null, and loops over all ids skip it.
 * Main thread only; modules live until the process ends.
 */
class CModuleRegistry
{
public:
    static constexpr qint32 HIGHEST_ID = 8; ///< loops over all modules run from 0 to this
    using Factory = std::function<std::unique_ptr<IModuleInterface>()>;

    static CModuleRegistry& Instance();
    /** Makes another registry (not owned) the instance; null: the program's own. Gives the former one. */
    static CModuleRegistry* Install(CModuleRegistry* pRegistry);
    CModuleRegistry() = default;

    /** How CreateModules makes the module with this id, which must be one of the fixed ids. */
    void SetFactory(qint32 nId, Factory factory);
    /** Creates the modules in their order; does nothing if there are some already. */
    void CreateModules();
    IModuleInterface* FindById(qint64 nId) const;
    /** By the exact name; null if there is none. */
    IModuleInterface* FindByName(const QString& sName) const;
    /** Initialize of each, in list order. */
    void InitializeAll();

private:
    std::map<qint32, Factory> m_factories;
    std::vector<std::unique_ptr<IModuleInterface>> m_modules;
};
