#pragma once

#include "frame/moduleregistry.h"
#include "scene/selectablekeys.h"
#include "tests/support/testmodule.h"
#include "tests/support/testsimulation.h"

/** A case whose editing commands leave a trace. Its items stand in the views under their names. */
class CPanelSimulation : public CTestSimulation
{
public:
    using CTestSimulation::CTestSimulation;

    bool CanActivateSelection(qint64) const override { return m_bCanEdit; }
    void ActivateSelection(qint64) override { ++m_nActivated; }
    bool CanDelete(qint64) const override { return m_bCanEdit; }
    bool LoadDisplayFile(const QString& sFile, qint64) override
    {
        m_sDisplayFile = sFile;
        return true;
    }

    /** A new item with its selectables in all views. */
    CItem* MakeShown(qint64 nType, const QString& sName, qint64 nParentId = -1)
    {
        CItem* const pItem = Make(nType);
        pItem->SetName(sName, 0);
        if (nParentId != -1)
            pItem->SetParentId(nParentId, true);
        pItem->CreateSelectable(-1);
        return pItem;
    }

    bool m_bCanEdit = true;
    int m_nActivated = 0;
    QString m_sDisplayFile;
};

/** A module with the three categories "Zone", "Body" and "Log" (types 0, 1, 2), whose items form a tree. */
class CPanelModule : public CTestModule
{
public:
    CPanelModule() : CTestModule(1, "Plot3D") {}
    bool CanAddTransient() const override { return true; }
    bool AddTransient(qint64 nSimulationId) override { return s_refreshed.append(nSimulationId), true; }
    bool ShowsHierarchy(qint64) const override { return true; }
    QVector<SItemCategory> GetCategoryTree(qint64) const override { return {{0}, {1}, {2}}; }
    QStringList GetCategoryNames(qint64) const override { return {"", "", "Log Files"}; }
    QString GetItemTypeName(qint64 nType) const override
    {
        return QStringList{"Zone", "Body"}.value(static_cast<int>(nType), "Unknown");
    }

    /** Makes it the module of all test simulations of this program. */
    static void Register()
    {
        CModuleRegistry::Instance().SetFactory(1, [] { return std::make_unique<CPanelModule>(); });
        CModuleRegistry::Instance().CreateModules();
    }

    static inline QVector<qint64> s_refreshed; // simulations whose results were asked for
};
