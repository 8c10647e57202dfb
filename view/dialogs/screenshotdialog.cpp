#include "view/dialogs/screenshotdialog.h"

#include "frame/applicationinfo.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/preferences/recentfolder.h"
#include "frame/themeicon.h"
#include "frame/ui/fontincrement.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "ui_screenshotdialog.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>
#include <QScopedValueRollback>

namespace {

constexpr const char *FILTER = "PNG Files (*.png)", *ENDING = ".png";
enum Target_e { TargetWindow, TargetView };

/** The whole picture or the former file. */
bool SaveImage(const QImage& image, const QString& sFileName)
{
    QSaveFile file(sFileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QImageWriter writer(&file, QFileInfo(sFileName).suffix().toLatin1());
    return writer.write(image) && file.commit();
}

/** Zero only where a side of the base is. */
int KeepAspect(int nSide, int nBaseSide, int nOtherBase)
{
    return nBaseSide > 0 ? int(nOtherBase * (double(nSide) / nBaseSide)) : 0;
}

} // namespace

CScreenshotDialog::CScreenshotDialog(const SBaseSizes& sizes, bool bOneTarget, QWidget* pParent)
    : QDialog(pParent), m_sizes(sizes), m_pUi(new Ui::CScreenshotDialog)
{
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    {
        const QScopedValueRollback<bool> guard(m_bFilling, true);
        m_pUi->setupUi(this);
        m_pUi->m_pScreenshotTargetCB->setCurrentIndex(TargetView);
    }
    ApplyFontIncrement(this);
    m_pUi->m_pScreenshotTargetL->setVisible(!bOneTarget);
    m_pUi->m_pScreenshotTargetCB->setVisible(!bOneTarget);
    m_pUi->m_pScalingCB->setChecked(draw.bShowScaling);
    m_pUi->m_pAxesCB->setChecked(draw.bShowAxes);
    m_pUi->m_pBackgroundB->setVisible(false);
    m_pUi->m_pSaveImageB->setIcon(ThemeIcon(":/Icons/camera.png"));
    ShowBackgroundColor();
    ShowBaseSize();
}

CScreenshotDialog::~CScreenshotDialog() = default;

SCapture CScreenshotDialog::GetCapture() const
{
    return {{m_pUi->m_pImageWidthE->value(), m_pUi->m_pImageHeightE->value()},
            {static_cast<CaptureBackground_e>(m_pUi->m_pBackgroundCB->currentIndex()),
             m_pUi->m_pAxesCB->isChecked(), m_pUi->m_pAnnotationCB->isChecked(),
             m_pUi->m_pScalingCB->isChecked()},
            m_pUi->m_pScreenshotTargetCB->currentIndex() == TargetView};
}

QSize CScreenshotDialog::BaseSize() const
{
    return m_pUi->m_pScreenshotTargetCB->currentIndex() == TargetView ? m_sizes.view : m_sizes.window;
}

void CScreenshotDialog::ShowBaseSize()
{
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    m_pUi->m_pImageWidthE->setValue(BaseSize().width());
    m_pUi->m_pImageHeightE->setValue(BaseSize().height());
}

void CScreenshotDialog::ShowBackgroundColor()
{
    const QColor color = CPreferences::Instance().Draw().backgroundColors.last();
    m_pUi->m_pBackgroundB->setStyleSheet(QString("background-color: %1").arg(color.name()));
}

void CScreenshotDialog::on_m_pImageWidthE_valueChanged(int arg1)
{
    if (m_bFilling)
        return;
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    m_pUi->m_pImageHeightE->setValue(KeepAspect(arg1, BaseSize().width(), BaseSize().height()));
}

void CScreenshotDialog::on_m_pImageHeightE_valueChanged(int arg1)
{
    if (m_bFilling)
        return;
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    m_pUi->m_pImageWidthE->setValue(KeepAspect(arg1, BaseSize().height(), BaseSize().width()));
}

void CScreenshotDialog::on_m_pScreenshotTargetCB_currentIndexChanged(int)
{
    if (!m_bFilling)
        ShowBaseSize();
}

void CScreenshotDialog::on_m_pBackgroundCB_currentIndexChanged(int index)
{
    m_pUi->m_pBackgroundB->setVisible(index == CaptureCustom);
}

void CScreenshotDialog::on_m_pBackgroundB_clicked()
{
    CPreferences& preferences = CPreferences::Instance();
    const QColor color = UserPrompt::AskColor("Select Color", preferences.Draw().backgroundColors.last());
    if (!color.isValid())
        return;
    Set(preferences, PreferenceKey::BACKGROUND_COLORS[3], color);
    preferences.Apply();
    preferences.Save(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    ShowBackgroundColor();
}

void CScreenshotDialog::on_m_pSaveImageB_clicked()
{
    const QString sFileName = RecentFolder::AskFile({"Choose file name", {}, FILTER, true, ENDING});
    if (sFileName.isEmpty())
        return;
    QImage image;
    bool bSaved = false;
    {
        const CWaitCursor wait;
        QCoreApplication::processEvents(); // what the file dialog lay over is drawn again
        image = CWidgetManager::Instance().CaptureImage(GetCapture());
        bSaved = !image.isNull() && SaveImage(image, sFileName);
    }
    if (image.isNull())
        UserPrompt::Tell(
            PromptWarning, windowTitle(),
            "The view could not be captured. The 3D view may be hidden, detached or too large for "
            "the available graphics memory.");
    else if (!bSaved)
        UserPrompt::Tell(PromptCritical, windowTitle(), QString("Failed to write %1").arg(sFileName));
    else
        CWidgetManager::Instance().SetStatusText(QString("Saved %1").arg(sFileName));
}

void CScreenshotDialog::on_m_pCloseB_clicked() { reject(); }
