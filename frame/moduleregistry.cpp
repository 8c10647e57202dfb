#include "frame/moduleregistry.h"

#include <utility>

namespace {
// Velor, Plot3D, Corin, Ostra, CGNS, CGNS Structured, CGNS Unstructured; 4 and 5 are free.
constexpr std::array<qint32, 7> MODULE_ORDER = {0, 1, 2, 3, 6, 7, 8};

CModuleRegistry* s_pInstalled = nullptr;
} // namespace

CModuleRegistry& CModuleRegistry::Instance()
{
    static CModuleRegistry* const pRegistry = new CModuleRegistry; // never destroyed, see CMessageSink
    return s_pInstalled ? *s_pInstalled : *pRegistry;
}

CModuleRegistry* CModuleRegistry::Install(CModuleRegistry* pRegistry)
{
    return std::exchange(s_pInstalled, pRegistry);
}

void CModuleRegistry::SetFactory(qint32 nId, Factory factory)
{
    Q_ASSERT(std::find(MODULE_ORDER.begin(), MODULE_ORDER.end(), nId) != MODULE_ORDER.end());
    m_factories[nId] = std::move(factory);
}

void CModuleRegistry::CreateModules()
{
    if (!m_modules.empty())
        return;
    for (const qint32 nId : MODULE_ORDER) {
        const auto factory = m_factories.find(nId);
        if (factory == m_factories.end())
            continue;
        m_modules.push_back(factory->second());
        Q_ASSERT(m_modules.back()->GetId() == nId);
    }
}

IModuleInterface* CModuleRegistry::FindById(qint64 nId) const
{
    for (const auto& pModule : m_modules)
        if (pModule->GetId() == nId)
            return pModule.get();
    return nullptr;
}

IModuleInterface* CModuleRegistry::FindByName(const QString& sName) const
{
    for (const auto& pModule : m_modules)
        if (pModule->GetName() == sName)
            return pModule.get();
    return nullptr;
}

void CModuleRegistry::InitializeAll()
{
    for (const auto& pModule : m_modules)
        pModule->Initialize();
}
