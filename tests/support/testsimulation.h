#pragma once

#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/iselectablefactory.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"

#include <QMap>

/** An item whose grid content a test can name. */
class CTestItem : public CItem
{
public:
    ~CTestItem() override { ++s_nDestroyed; }

    QByteArray GetLinkKey() const override { return m_linkKey; }
    void OnDependedDeleted() override { ++m_nDependedDeleted; }
    bool OnAttached() override { return ++m_nAttached > 0; }
    void OnSizeChanged() override { ++m_nSizeChanges; }
    void ConvertAxis(int nAxis) override { m_converted.append(nAxis); }
    qint64 GetPointCount() const override { return GetSize().i * GetSize().j * GetSize().k; }

    QByteArray m_linkKey;
    int m_nDependedDeleted = 0;
    int m_nAttached = 0;
    int m_nSizeChanges = 0;
    QVector<int> m_converted;
    static inline int s_nDestroyed = 0;
};

/** A simulation of a module's own: items of types 0 to 9, a display state that is a text for each view. */
class CTestSimulation : public ISimulation
{
public:
    explicit CTestSimulation(qint64 nModuleId = 1) : ISimulation(nModuleId) {}
    ~CTestSimulation() override
    {
        if (m_onDestroyed)
            m_onDestroyed();
    }

    CItem* CreateItem(qint64 nType, qint64 nKind, bool, qint64, qint64 nId, qint64 nSubId) override
    {
        if (nType < 0 || nType > 9)
            return nullptr;
        auto* const pItem = new CTestItem;
        pItem->SetId(nId == -1 ? GetNextItemId() : nId);
        pItem->SetSubId(nSubId);
        pItem->SetType(nType);
        pItem->SetKind(nKind);
        return InsertItem(pItem);
    }
    CTestItem* Make(qint64 nType = 0, qint64 nId = -1, qint64 nSubId = 0)
    {
        return static_cast<CTestItem*>(CreateItem(nType, 0, true, 0, nId, nSubId));
    }

    QByteArray SaveViewState(qint64 nViewId) const override { return m_viewStates.value(nViewId); }
    bool LoadViewState(const QByteArray& state, qint64 nViewId, double) override
    {
        ++m_nLoads;
        m_viewStates[nViewId] = state;
        return true;
    }
    QJsonObject SaveViewJson(qint64) const override { return {}; }
    bool LoadViewJson(const QJsonObject&, qint64, double) override { return true; }
    double GetDefaultScale() const override { return 1.0; }
    void SaveDisplayFile(qint64 nViewId) override
    {
        m_displayFilesSaved.append(nViewId);
        if (m_onSaveDisplay)
            m_onSaveDisplay();
    }
    bool ChooseDisplayFile(qint64) override { return false; }
    bool LoadDisplayFile(const QString&, qint64) override { return false; }
    bool UndoIncludesPack() const override { return m_bUndoIncludesPack; }
    QString GetCloseWarning() const override { return m_sCloseWarning; }
    QByteArray GetDataFileKey() const override { return m_dataKey; }
    bool IsSameDataFile(const QByteArray& key) const override { return !key.isEmpty() && key == m_dataKey; }
    void SelectAdjacent(qint64) override {}
    void ActivateSelection(qint64) override {}
    /** Deletes the items whose selectables are selected in the view. */
    void DeleteSelection(qint64 nViewId) override
    {
        for (const ISelectable* const p : CSelectableManager::Instance().GetSelected(nViewId, GetId()))
            DeleteItem(p->itemId());
    }
    void DuplicateSelection(qint64) override {}
    void TransformSelection(const QVector<qint64>&, const STransform&, bool) override {}
    bool CanActivateSelection(qint64) const override { return false; }
    bool CanDelete(qint64 nViewId) const override
    {
        return !CSelectableManager::Instance().GetSelected(nViewId, GetId()).isEmpty();
    }
    bool CanDuplicate(qint64) const override { return false; }
    bool CanTransform(qint64) const override { return false; }

    QMap<qint64, QByteArray> m_viewStates;
    int m_nLoads = 0;
    QVector<qint64> m_displayFilesSaved;
    bool m_bUndoIncludesPack = true;
    QString m_sCloseWarning;
    QByteArray m_dataKey;
    std::function<void()> m_onDestroyed;
    std::function<void()> m_onSaveDisplay;
};

/** A selectable that only knows what it stands for. */
class CTestSelectable : public ISelectable
{
public:
    CTestSelectable(qint64 nViewId, qint64 nSimulationId, qint64 nItemId)
        : m_nViewId(nViewId), m_nSimulationId(nSimulationId), m_nItemId(nItemId)
    {}

    qint64 simulationId() const override { return m_nSimulationId; }
    qint64 viewId() const override { return m_nViewId; }
    qint64 itemId() const override { return m_nItemId; }
    qint64 typeId() const override { return m_nTypeId; }
    QString name() const override { return m_sName.isNull() ? QString::number(m_nItemId) : m_sName; }
    qint64 childCount() const override { return m_children.size(); }
    void addChild(ISelectable* pChild) override { m_children.append(pChild); }
    void removeChild(ISelectable* pChild) override { m_children.removeOne(pChild); }
    void addParent(ISelectable* pParent, bool) override { m_parents.append(pParent); }
    void removeParent(ISelectable* pParent) override { m_parents.removeOne(pParent); }
    void setHover(bool bHover) override { m_bHover = bHover; }
    bool isHover() const override { return m_bHover; }
    void setSelected(bool bSelected) override { m_bSelected = bSelected; }
    bool isSelected() const override { return m_bSelected; }
    void setVisible(bool bVisible) override { m_bVisible = bVisible; }
    bool isVisible() const override { return m_bVisible; }
    void setDimension(int nDimension) override { m_nDimension = nDimension; }

    QString m_sName; // null: the item's id
    qint64 m_nTypeId = 0;
    QVector<ISelectable*> m_children;
    QVector<ISelectable*> m_parents;
    int m_nDimension = 0;

private:
    qint64 m_nViewId;
    qint64 m_nSimulationId;
    qint64 m_nItemId;
    bool m_bHover = false;
    bool m_bSelected = false;
    bool m_bVisible = true;
};

/** Makes CTestSelectables while it lives. */
class CTestSelectableFactory : public ISelectableFactory
{
public:
    CTestSelectableFactory() : m_pFormer(Install(this)) {}
    ~CTestSelectableFactory() override { Install(m_pFormer); }
    ISelectable* CreateItemSelectable(CItem& item, const SItemPart&, qint64 nViewId) override
    {
        return new CTestSelectable(nViewId, item.GetSimulationId(), item.GetId());
    }

private:
    ISelectableFactory* m_pFormer;
};

/** Makes such that know the type and the name of their item. */
class CNamedSelectableFactory : public CTestSelectableFactory
{
public:
    ISelectable* CreateItemSelectable(CItem& item, const SItemPart&, qint64 nViewId) override
    {
        auto* const pSelectable = new CTestSelectable(nViewId, item.GetSimulationId(), item.GetId());
        pSelectable->m_sName = item.GetName(0);
        pSelectable->m_nTypeId = item.GetType();
        return pSelectable;
    }
};
