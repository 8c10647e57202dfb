#include "window/preferences/preferencesdialog.h"

#include "frame/applicationinfo.h"
#include "frame/moduleregistry.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/themeicon.h"
#include "frame/ui/fontincrement.h"
#include "frame/ui/wheelguard.h"
#include "frame/userprompt.h"
#include "ui_preferencesdialog.h"
#include "window/preferences/acceleratorpage.h"
#include "window/preferences/displaypage.h"
#include "window/preferences/formlabels.h"
#include "window/preferences/memorypage.h"
#include "window/preferences/remotepage.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr const char* PAGE_ICON = ":/Icons/preferences.png";
constexpr double SCREEN_SHARE = 0.9; // of the screen that the dialog takes at most

QWidget* LastTabStop(const QWidget* pWindow)
{
    QWidget* pLast = pWindow->previousInFocusChain();
    while (pLast != pWindow && !(pLast->focusPolicy() & Qt::TabFocus))
        pLast = pLast->previousInFocusChain();
    return pLast;
}

/** Makes size hints follow a change of fonts at once; by itself it reaches the outer layouts event by event.
 */
void RefreshSizeHints(QWidget* pWidget)
{
    for (QWidget* const pChild : pWidget->findChildren<QWidget*>())
        pChild->updateGeometry();
    for (QLayout* const pLayout : pWidget->findChildren<QLayout*>())
        pLayout->invalidate();
}

} // namespace

CPreferencesDialog::CPreferencesDialog(QWidget* pParent)
    : QDialog(pParent), m_pUi(std::make_unique<Ui::CPreferencesDialog>())
{
    m_pUi->setupUi(this);
    setWindowIcon(ThemeIcon(PAGE_ICON));
    TakeCopy();
    AddOwnPage<CDisplayPage>("Display");
    AddOwnPage<CAcceleratorPage>("Accelerator");
    AddOwnPage<CMemoryPage>("Memory");
    AddOwnPage<CRemotePage>("Remote Servers");
    AddModulePages();
    connect(m_pUi->m_pListWidget, &QListWidget::currentRowChanged, m_pUi->m_pStack,
            &QStackedWidget::setCurrentIndex);
    connect(m_pUi->m_pOKB, &QPushButton::clicked, this, &CPreferencesDialog::accept);
    connect(m_pUi->m_pApplyB, &QPushButton::clicked, this, &CPreferencesDialog::Apply);
    connect(m_pUi->m_pCancelB, &QPushButton::clicked, this, &CPreferencesDialog::reject);
    m_pUi->m_pListWidget->setCurrentRow(0);
    GuardFromWheel(this);
    OrderTabs();
    ApplyFont();
    resize(PreferredSize());
}

CPreferencesDialog::~CPreferencesDialog() = default;

template <class Page> void CPreferencesDialog::AddOwnPage(const QString& sTitle)
{
    auto* const pPage = new Page(m_copy, this);
    m_ownPages.append(pPage);
    AddPage(sTitle, pPage);
}

void CPreferencesDialog::AddModulePages()
{
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId) {
        IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId);
        if (!pModule)
            continue;
        QWidget* const pPage = pModule->CreatePreferencesWidget(this);
        m_modulePages.append({pModule, pPage, pPage ? AddPage(pModule->GetName(), pPage) : -1});
    }
}

/** Puts the page into the list, and into an area that scrolls where it doesn't fit. Gives its row. */
int CPreferencesDialog::AddPage(const QString& sTitle, QWidget* pPage)
{
    auto* const pArea = new QScrollArea(m_pUi->m_pStack);
    pArea->setFrameShape(QFrame::NoFrame);
    pArea->setFocusPolicy(Qt::NoFocus);
    pArea->setWidgetResizable(true);
    pArea->setWidget(pPage);
    // The dialog's own background shows through, so that the sheets of themes need no rule for this.
    pArea->viewport()->setAutoFillBackground(false);
    pPage->setAutoFillBackground(false);
    new QListWidgetItem(ThemeIcon(PAGE_ICON), sTitle, m_pUi->m_pListWidget);
    return m_pUi->m_pStack->addWidget(pArea);
}

void CPreferencesDialog::TakeCopy()
{
    m_before = CPreferences::Instance();
    m_copy = m_before;
}

void CPreferencesDialog::accept()
{
    if (Apply())
        QDialog::accept();
}

bool CPreferencesDialog::Apply()
{
    if (!ValidateModules())
        return false;
    CPreferences& preferences = CPreferences::Instance();
    const qint64 nFormerIncrement = Get(preferences, PreferenceKey::FONT_INCREMENT);
    for (const SModulePage& page : m_modulePages)
        page.pModule->ApplyPreferences(&preferences, page.pPage);
    // Only what was changed here: the modules have just written theirs, and files may have been opened.
    preferences.MergeChanges(m_before, m_copy);
    preferences.Apply();
    const bool bSaved = preferences.Save(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    TakeCopy();
    for (CPreferencesPage* const pPage : m_ownPages)
        pPage->Fill();
    ApplyFont();
    if (Get(preferences, PreferenceKey::FONT_INCREMENT) != nFormerIncrement)
        resize(size().expandedTo(PreferredSize()));
    emit SignalPreferencesChanged();
    if (!bSaved)
        TellUnsaved();
    return true;
}

bool CPreferencesDialog::ValidateModules()
{
    for (const SModulePage& page : m_modulePages) {
        if (page.pModule->ValidatePreferences(page.pPage))
            continue;
        if (page.pPage)
            m_pUi->m_pListWidget->setCurrentRow(page.nRow);
        return false;
    }
    return true;
}

void CPreferencesDialog::TellUnsaved()
{
    if (m_bToldUnsaved)
        return;
    m_bToldUnsaved = true;
    UserPrompt::Tell(PromptWarning, "Preferences",
                     "The preferences hold until the program ends, but could not be saved");
}

/** The pages come between the list and the buttons, although they were made after both. */
void CPreferencesDialog::OrderTabs()
{
    for (QWidget* const pButton : {m_pUi->m_pOKB, m_pUi->m_pApplyB, m_pUi->m_pCancelB})
        setTabOrder(LastTabStop(this), pButton);
}

void CPreferencesDialog::ApplyFont()
{
    ApplyFontIncrement(this);
    for (CPreferencesPage* const pPage : m_ownPages)
        AlignFormLabels(pPage);
    RefreshSizeHints(this);
    QListWidget* const pList = m_pUi->m_pListWidget;
    pList->setFixedWidth(pList->sizeHintForColumn(0) + 2 * pList->frameWidth() + pList->spacing() +
                         pList->verticalScrollBar()->sizeHint().width());
}

/** All of the largest page can be seen, if the screen is large enough. */
QSize CPreferencesDialog::PreferredSize() const
{
    QSize page;
    for (int n = 0; n < m_pUi->m_pStack->count(); ++n)
        page = page.expandedTo(static_cast<QScrollArea*>(m_pUi->m_pStack->widget(n))->widget()->sizeHint());
    const QSize around = sizeHint() - m_pUi->m_pStack->sizeHint();
    const QSize available = screen()->availableGeometry().size();
    return (page + around).expandedTo(sizeHint()).boundedTo(available * SCREEN_SHARE);
}
