#pragma once

#include "data/values/valuerange.h"
#include "simulation/undostep.h"
#include "view/annotations/annotationcolormap.h"

#include <QDialog>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>

class ISelectable;
class QToolButton;

namespace Ui {
class CColormapDialog;
}

/**
 * Colormap, range and legend of several items at once. Every edit shows in the views at once; Cancel takes
 * all of them back. What it shows is of the first item.
 */
class CColormapDialog : public QDialog
{
    Q_OBJECT

public:
    /** @param bGlobal  all items of the pair instead of the selected ones */
    CColormapDialog(qint64 nSimulationId, qint64 nViewId, bool bGlobal, QWidget* pParent = nullptr);
    ~CColormapDialog() override;

    /** Whether there is anything to edit. */
    bool HasItems() const { return !m_saved.empty(); }
    void done(int nResult) override;

private slots:
    void SlotMinValueChanged(double dValue);
    void SlotMaxValueChanged(double dValue);
    void on_m_pColormapCB_currentIndexChanged(int index);
    void on_m_pOKB_clicked();
    void on_m_pCancelB_clicked();
    void on_m_pRangeCB_activated(int index);
    void on_m_pMaxE_editingFinished();
    void on_m_pMinE_editingFinished();
    void on_m_pContourAmountE_valueChanged(int arg1);
    void on_m_pTitleE_textChanged(QString arg1);
    void on_m_pTitleColorB_clicked();
    void on_m_pTitleFontB_clicked();
    void on_m_pTitleVisibleB_clicked();
    void on_m_pSubTitleE_textChanged(QString arg1);
    void on_m_pSubTitleColorB_clicked();
    void on_m_pSubTitleFontB_clicked();
    void on_m_pSubTitleVisibleB_clicked();
    void on_m_pLabelE_valueChanged(int arg1);
    void on_m_pLabelColorB_clicked();
    void on_m_pLabelFontB_clicked();
    void on_m_pLabelVisibleB_clicked();
    void on_m_pNumericalFormatCB_currentIndexChanged(int index);
    void on_m_pFloatingPointE_valueChanged(int arg1);
    void on_m_pColorbarWidthE_valueChanged(int arg1);
    void on_m_pColorbarHeightE_valueChanged(int arg1);
    void on_m_pBackgroundCB_currentIndexChanged(int index);
    void on_m_pBackgroundColorB_clicked();
    void on_m_pShowLegendCB_clicked(bool checked);

private:
    /** What Cancel gives back to an item, beside the colormap that the item keeps itself. */
    struct SSaved
    {
        ISelectable* pItem;
        QVector<bool> bindings;        // to the local range, of each drawable
        QVector<qint64> contourCounts; // the same
        CAnnotationColormap legend;
    };
    using TextPart = SLegendText SLegendSettings::*;

    void Save(const QVector<ISelectable*>& items);
    void Restore();
    /** Those that still live. */
    QVector<ISelectable*> Items() const;
    void Redraw() const;

    // The range (colormapdialog.cpp).
    void FillRangeTab();
    void ShowRange(const SValueRange& range);
    void ShowPreview();
    void ApplyRange(const SValueRange& range);
    SValueRange SliderRange() const;

    // The legend (colormapdialog_legend.cpp).
    void OfferAutomaticColors();
    void FillLegendTab();
    void ShowButtons();
    CAnnotationColormap* FirstLegend() const;
    void EditLegends(const std::function<void(CAnnotationColormap&)>& edit);
    void EditSettings(const std::function<void(SLegendSettings&)>& edit);
    void ToggleText(TextPart part);
    void AskColor(TextPart part);
    void AskFont(TextPart part);

    const qint64 m_nSimulationId;
    const std::unique_ptr<Ui::CColormapDialog> m_pUi;
    std::vector<SSaved> m_saved;
    bool m_bFilling = false;         // the slots of the widgets do nothing
    bool m_bRangeSet = false;        // the user has set a range here
    std::optional<CUndoStep> m_step; // until it is closed
};
