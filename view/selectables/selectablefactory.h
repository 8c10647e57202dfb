#pragma once

#include "simulation/iselectablefactory.h"

/** Makes the selectables of the program by their kind (view/selectables/kinds.h). In use while it lives. */
class CSelectableFactory : public ISelectableFactory
{
public:
    CSelectableFactory() : m_pFormer(Install(this)) {}
    ~CSelectableFactory() override { Install(m_pFormer); }
    CSelectableFactory(const CSelectableFactory&) = delete;
    CSelectableFactory& operator=(const CSelectableFactory&) = delete;

    /** Never null: kinds without a class of their own are CItemSelectables. */
    ISelectable* CreateItemSelectable(CItem& item, const SItemPart& part, qint64 nViewId) override;

private:
    ISelectableFactory* const m_pFormer;
};
