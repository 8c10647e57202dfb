#pragma once

#include "window/preferences/preferencespage.h"

#include <memory>

namespace Ui {
class CMemoryPage;
}

/** "Memory": the limit for loaded data, and what is in use. */
class CMemoryPage : public CPreferencesPage
{
    Q_OBJECT

public:
    CMemoryPage(CDataPack& pack, QWidget* pParent);
    ~CMemoryPage() override;

    void Fill() override;

protected:
    /** The figures are those of the moment. */
    void showEvent(QShowEvent* pEvent) override;

private slots:
    void on_m_pClearMemoryB_clicked();

private:
    void FillLimit();
    void FillInfo();
    void StoreLimit();
    void ChangeLimited(bool bLimited);

    std::unique_ptr<Ui::CMemoryPage> m_pUi;
};
