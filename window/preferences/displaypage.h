#pragma once

#include "window/preferences/preferencespage.h"

#include <memory>

namespace Ui {
class CDisplayPage;
}

/** "Display": colours, what views show, mouse and keyboard, the look of the program. */
class CDisplayPage : public CPreferencesPage
{
    Q_OBJECT

public:
    CDisplayPage(CDataPack& pack, QWidget* pParent);
    ~CDisplayPage() override;

    /** That of the groups below each other. */
    QSize minimumSizeHint() const override;

protected:
    /** Two columns where there is room for them, one where the page would have to be moved sideways. */
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    QVector<int> ColumnWidths() const;
    void FillLists();
    void BindColors();
    void BindViews();
    void BindInput();
    void BindProgram();
    void ResetColors();

    std::unique_ptr<Ui::CDisplayPage> m_pUi;
};
