#pragma once

#include "window/preferences/preferencespage.h"

#include <memory>

namespace Ui {
class CAcceleratorPage;
}

/** "Accelerator": chooses a preset and shows what mouse and keyboard do in it. */
class CAcceleratorPage : public CPreferencesPage
{
    Q_OBJECT

public:
    CAcceleratorPage(CDataPack& pack, QWidget* pParent);
    ~CAcceleratorPage() override;

    void Fill() override;

private:
    void FillTable();

    std::unique_ptr<Ui::CAcceleratorPage> m_pUi;
};
