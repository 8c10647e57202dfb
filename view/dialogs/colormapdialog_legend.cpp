// CColormapDialog: the tab of the legend.
#include "frame/themeicon.h"
#include "frame/ui/colorswatch.h"
#include "frame/userprompt.h"
#include "scene/iselectable.h"
#include "ui_colormapdialog.h"
#include "view/annotations/legendtexts.h"
#include "view/colormaps/colormapedit.h"
#include "view/dialogs/colormapdialog.h"

#include <QMenu>
#include <QPainter>

namespace {

enum Background_e { BackgroundNone = 0, BackgroundSolid = 1, BackgroundOutline = 2 };

void ShowColor(QToolButton& button, const QColor& color)
{
    QPixmap swatch(button.iconSize());
    QPainter painter(&swatch);
    PaintColorSwatch(painter, swatch.rect(), color);
    painter.setPen(button.palette().color(QPalette::Mid));
    painter.drawRect(swatch.rect().adjusted(0, 0, -1, -1));
    painter.end();
    button.setIcon(swatch);
}

void ShowVisible(QToolButton& button, bool bVisible)
{
    button.setIcon(ThemeIcon(bVisible ? ":/Icons/visible.png" : ":/Icons/novisible.ico"));
}

/** The text that all legends have been given; empty where they differ. */
QString CommonText(const QVector<ISelectable*>& items, SLegendText SLegendSettings::*part)
{
    QString sCommon;
    for (const ISelectable* const pItem : items) {
        const CAnnotationColormap* const pLegend = pItem->annotationColormap();
        const QString sText = pLegend ? (pLegend->settings().*part).sText : QString();
        if (pItem != items.first() && sText != sCommon)
            return {};
        sCommon = sText;
    }
    return sCommon;
}

} // namespace

CAnnotationColormap* CColormapDialog::FirstLegend() const
{
    for (const ISelectable* const pItem : Items())
        if (CAnnotationColormap* const pLegend = pItem->annotationColormap())
            return pLegend;
    return nullptr;
}

/** Beside a colour of their own, texts can take the automatic one. */
void CColormapDialog::OfferAutomaticColors()
{
    for (const auto& [pButton, part] : {std::pair(m_pUi->m_pTitleColorB, &SLegendSettings::title),
                                        {m_pUi->m_pSubTitleColorB, &SLegendSettings::subtitle},
                                        {m_pUi->m_pLabelColorB, &SLegendSettings::labels}}) {
        auto* const pMenu = new QMenu(pButton);
        pMenu->addAction("Automatic", this, [this, part = part] {
            EditSettings([=](SLegendSettings& settings) { (settings.*part).color = QColor(); });
        });
        pButton->setMenu(pMenu);
        pButton->setPopupMode(QToolButton::MenuButtonPopup);
    }
}

void CColormapDialog::FillLegendTab()
{
    const QVector<ISelectable*> items = Items();
    const CAnnotationColormap* const pLegend = FirstLegend();
    m_pUi->m_pLegendTab->setEnabled(pLegend);
    if (!pLegend)
        return;
    const SLegendSettings& settings = pLegend->settings();
    const QString sTitle = CommonText(items, &SLegendSettings::title);
    m_pUi->m_pTitleE->setText(sTitle.isEmpty() ? ColormapEdit::VariableText(items) : sTitle);
    m_pUi->m_pSubTitleE->setText(CommonText(items, &SLegendSettings::subtitle));
    m_pUi->m_pSubTitleE->setPlaceholderText(
        items.size() == 1 ? AutomaticSubtitle(*items.first()->drawables().first()) : "name of each item");
    m_pUi->m_pLabelE->setValue(int(settings.nLabelCount));
    m_pUi->m_pNumericalFormatCB->setCurrentIndex(int(settings.nFormat));
    m_pUi->m_pFloatingPointE->setValue(int(settings.nDigits));
    m_pUi->m_pColorbarWidthE->setValue(settings.colorbarSize.width());
    m_pUi->m_pColorbarHeightE->setValue(settings.colorbarSize.height());
    m_pUi->m_pBackgroundCB->setCurrentIndex(pLegend->isBackgroundSolid()     ? BackgroundSolid
                                            : pLegend->isBackgroundOutline() ? BackgroundOutline
                                                                             : BackgroundNone);
    m_pUi->m_pShowLegendCB->setChecked(pLegend->isVisible());
    ShowButtons();
}

void CColormapDialog::ShowButtons()
{
    const CAnnotationColormap* const pLegend = FirstLegend();
    if (!pLegend)
        return;
    const SLegendSettings& settings = pLegend->settings();
    ShowColor(*m_pUi->m_pTitleColorB, settings.title.color);
    ShowColor(*m_pUi->m_pSubTitleColorB, settings.subtitle.color);
    ShowColor(*m_pUi->m_pLabelColorB, settings.labels.color);
    ShowColor(*m_pUi->m_pBackgroundColorB, pLegend->brush().color());
    ShowVisible(*m_pUi->m_pTitleVisibleB, settings.title.bVisible);
    ShowVisible(*m_pUi->m_pSubTitleVisibleB, settings.subtitle.bVisible);
    ShowVisible(*m_pUi->m_pLabelVisibleB, settings.labels.bVisible);
}

void CColormapDialog::EditLegends(const std::function<void(CAnnotationColormap&)>& edit)
{
    if (m_bFilling)
        return;
    for (const ISelectable* const pItem : Items())
        if (CAnnotationColormap* const pLegend = pItem->annotationColormap())
            edit(*pLegend);
    ShowButtons();
    Redraw();
}

void CColormapDialog::EditSettings(const std::function<void(SLegendSettings&)>& edit)
{
    EditLegends([&](CAnnotationColormap& legend) {
        SLegendSettings settings = legend.settings();
        edit(settings);
        legend.setSettings(settings);
    });
}

/** All follow the first one, so that they agree afterwards. */
void CColormapDialog::ToggleText(TextPart part)
{
    const bool bVisible = FirstLegend() && !(FirstLegend()->settings().*part).bVisible;
    EditSettings([=](SLegendSettings& settings) { (settings.*part).bVisible = bVisible; });
}

void CColormapDialog::AskColor(TextPart part)
{
    if (!FirstLegend())
        return;
    const QColor former = (FirstLegend()->settings().*part).color;
    const QColor color = UserPrompt::AskColor("Select Color", former.isValid() ? former : Qt::black);
    if (color.isValid())
        EditSettings([=](SLegendSettings& settings) { (settings.*part).color = color; });
}

void CColormapDialog::AskFont(TextPart part)
{
    if (!FirstLegend())
        return;
    if (const auto font = UserPrompt::AskFont("Select Font", (FirstLegend()->settings().*part).font))
        EditSettings([=](SLegendSettings& settings) { (settings.*part).font = *font; });
}

void CColormapDialog::on_m_pTitleE_textChanged(QString arg1)
{
    EditSettings([=](SLegendSettings& settings) { settings.title.sText = arg1; });
}

void CColormapDialog::on_m_pSubTitleE_textChanged(QString arg1)
{
    EditSettings([=](SLegendSettings& settings) { settings.subtitle.sText = arg1; });
}

void CColormapDialog::on_m_pTitleColorB_clicked() { AskColor(&SLegendSettings::title); }
void CColormapDialog::on_m_pTitleFontB_clicked() { AskFont(&SLegendSettings::title); }
void CColormapDialog::on_m_pTitleVisibleB_clicked() { ToggleText(&SLegendSettings::title); }
void CColormapDialog::on_m_pSubTitleColorB_clicked() { AskColor(&SLegendSettings::subtitle); }
void CColormapDialog::on_m_pSubTitleFontB_clicked() { AskFont(&SLegendSettings::subtitle); }
void CColormapDialog::on_m_pSubTitleVisibleB_clicked() { ToggleText(&SLegendSettings::subtitle); }
void CColormapDialog::on_m_pLabelColorB_clicked() { AskColor(&SLegendSettings::labels); }
void CColormapDialog::on_m_pLabelFontB_clicked() { AskFont(&SLegendSettings::labels); }
void CColormapDialog::on_m_pLabelVisibleB_clicked() { ToggleText(&SLegendSettings::labels); }

void CColormapDialog::on_m_pLabelE_valueChanged(int arg1)
{
    EditSettings([=](SLegendSettings& settings) { settings.nLabelCount = arg1; });
}

void CColormapDialog::on_m_pNumericalFormatCB_currentIndexChanged(int index)
{
    EditSettings([=](SLegendSettings& settings) { settings.nFormat = index; });
}

void CColormapDialog::on_m_pFloatingPointE_valueChanged(int arg1)
{
    EditSettings([=](SLegendSettings& settings) { settings.nDigits = arg1; });
}

void CColormapDialog::on_m_pColorbarWidthE_valueChanged(int arg1)
{
    EditSettings([=](SLegendSettings& settings) { settings.colorbarSize.setWidth(arg1); });
}

void CColormapDialog::on_m_pColorbarHeightE_valueChanged(int arg1)
{
    EditSettings([=](SLegendSettings& settings) { settings.colorbarSize.setHeight(arg1); });
}

void CColormapDialog::on_m_pBackgroundCB_currentIndexChanged(int index)
{
    EditLegends([=](CAnnotationColormap& legend) {
        legend.setBackgroundSolid(index == BackgroundSolid);
        legend.setBackgroundOutline(index == BackgroundOutline);
    });
}

void CColormapDialog::on_m_pBackgroundColorB_clicked()
{
    if (!FirstLegend())
        return;
    const QColor color = UserPrompt::AskColor("Select Color", FirstLegend()->brush().color());
    if (color.isValid())
        EditLegends([=](CAnnotationColormap& legend) { legend.setBrush(color); });
}

void CColormapDialog::on_m_pShowLegendCB_clicked(bool checked)
{
    EditLegends([=](CAnnotationColormap& legend) { legend.setVisible(checked); });
}
