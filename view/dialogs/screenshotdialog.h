#pragma once

#include "frame/capture.h"

#include <QDialog>

#include <memory>

namespace Ui {
class CScreenshotDialog;
}

/**
 * Asks what a picture of the window is to show and how large it is to be, and saves as many as the user
 * likes. Width and height keep the aspect of what is captured.
 */
class CScreenshotDialog : public QDialog
{
    Q_OBJECT

public:
    /** The pictures' sizes at the scale of the screen [pixels]. */
    struct SBaseSizes
    {
        QSize window;
        QSize view;
    };

    /** @param bOneTarget  a view fills the window's area: there is nothing else to choose */
    CScreenshotDialog(const SBaseSizes& sizes, bool bOneTarget, QWidget* pParent = nullptr);
    ~CScreenshotDialog() override;

    /** As the fields say it. */
    SCapture GetCapture() const;

private slots:
    void on_m_pImageWidthE_valueChanged(int arg1);
    void on_m_pImageHeightE_valueChanged(int arg1);
    void on_m_pScreenshotTargetCB_currentIndexChanged(int index);
    void on_m_pBackgroundCB_currentIndexChanged(int index);
    void on_m_pBackgroundB_clicked();
    void on_m_pSaveImageB_clicked();
    void on_m_pCloseB_clicked();

private:
    QSize BaseSize() const;
    void ShowBaseSize();
    void ShowBackgroundColor();

    const SBaseSizes m_sizes;
    const std::unique_ptr<Ui::CScreenshotDialog> m_pUi;
    bool m_bFilling = false; // the other side of the size is being set
};
