#pragma once
#include "simulation/iitempanels.h"
#include "simulation/panel/itempanel.h"
class CItemPanels : public IItemPanels
{
public:
    CItemPanel* Create(qint64, qint64) override { return new CItemPanel; }
    void Delete(CItemPanel* p) override { delete p; }
};
