#pragma once

#include "window/preferences/preferencespage.h"

#include <memory>

namespace Ui {
class CRemotePage;
}

/** "Remote Servers": the computers on which solvers can run. */
class CRemotePage : public CPreferencesPage
{
    Q_OBJECT

public:
    CRemotePage(CDataPack& pack, QWidget* pParent);
    ~CRemotePage() override;

    void Fill() override;

private:
    std::unique_ptr<Ui::CRemotePage> m_pUi;
};
