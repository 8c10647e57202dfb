#include "window/preferences/displaypage.h"

#include "frame/preferences/colormapnames.h"
#include "frame/preferences/preferencekeys.h"
#include "ui_displaypage.h"

#include <QtMath>

#include <algorithm>
#include <numeric>

namespace {

constexpr const SKey<QColor>* COLOR_KEYS[] = {
    &PreferenceKey::AXES_COLOR,           &PreferenceKey::HIGHLIGHT_COLOR,
    &PreferenceKey::SELECT_COLOR,         &PreferenceKey::OUTLINE_COLOR,
    &PreferenceKey::PREVIEW_COLOR,        &PreferenceKey::BACKGROUND_COLORS[0],
    &PreferenceKey::BACKGROUND_COLORS[1], &PreferenceKey::BACKGROUND_COLORS[2],
    &PreferenceKey::BACKGROUND_COLORS[3]};

} // namespace

CDisplayPage::CDisplayPage(CDataPack& pack, QWidget* pParent)
    : CPreferencesPage(pack, pParent), m_pUi(std::make_unique<Ui::CDisplayPage>())
{
    m_pUi->setupUi(this);
    FillLists();
    BindColors();
    BindViews();
    BindInput();
    BindProgram();
    connect(m_pUi->m_pResetColorsB, &QPushButton::clicked, this, &CDisplayPage::ResetColors);
    Fill();
}

CDisplayPage::~CDisplayPage() = default;

QVector<int> CDisplayPage::ColumnWidths() const
{
    QVector<int> widths;
    for (int n = 0; n < m_pUi->columnsLayout->count(); ++n)
        widths.append(m_pUi->columnsLayout->itemAt(n)->minimumSize().width());
    return widths;
}

QSize CDisplayPage::minimumSizeHint() const
{
    const QVector<int> widths = ColumnWidths();
    const QMargins margins = m_pUi->columnsLayout->contentsMargins();
    return {*std::max_element(widths.begin(), widths.end()) + margins.left() + margins.right(),
            m_pUi->columnsLayout->minimumSize().height()};
}

void CDisplayPage::resizeEvent(QResizeEvent* pEvent)
{
    const QVector<int> widths = ColumnWidths();
    const QMargins margins = m_pUi->columnsLayout->contentsMargins();
    const int nNeeded = std::accumulate(widths.begin(), widths.end(), margins.left() + margins.right()) +
                        m_pUi->columnsLayout->spacing();
    m_pUi->columnsLayout->setDirection(width() < nNeeded ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    CPreferencesPage::resizeEvent(pEvent);
}

void CDisplayPage::FillLists()
{
    for (const char* const sName : COLORMAP_NAMES)
        m_pUi->m_pDefaultColormapCB->addItem(sName);
}

void CDisplayPage::BindColors()
{
    using namespace PreferenceKey;
    m_binder.Bind(m_pUi->m_pDefaultColormapCB, DEFAULT_COLORMAP);
    m_binder.Bind(m_pUi->m_pBGColorB1, BACKGROUND_COLORS[0]);
    m_binder.Bind(m_pUi->m_pBGColorB2, BACKGROUND_COLORS[1]);
    m_binder.Bind(m_pUi->m_pBGColorB3, BACKGROUND_COLORS[2]);
    m_binder.Bind(m_pUi->m_pHighlightColorB, HIGHLIGHT_COLOR);
    m_binder.Bind(m_pUi->m_pSelectColorB, SELECT_COLOR);
    m_binder.Bind(m_pUi->m_pOutlineColorB, OUTLINE_COLOR);
    m_binder.Bind(m_pUi->m_pUseOutlineColorCB, USE_OUTLINE_COLOR);
    m_binder.Bind(m_pUi->m_pPreviewColorB, PREVIEW_COLOR);
    m_binder.Bind(m_pUi->m_pAxesColorB, AXES_COLOR);
    m_pUi->m_pAxesColorB->OfferAutomatic();
}

void CDisplayPage::BindViews()
{
    using namespace PreferenceKey;
    m_binder.Bind(m_pUi->m_pPointSizeE, POINT_SIZE);
    m_binder.Bind(m_pUi->m_pLineThicknessE, LINE_THICKNESS);
    m_binder.Bind(m_pUi->m_pShowAxesCB, SHOW_AXES);
    m_binder.Bind(m_pUi->m_pShowScalingCB, SHOW_SCALING);
    m_binder.Bind(m_pUi->m_pRotationAxisCB, ROTATION_AXIS_VISIBILITY);
    m_binder.Bind(m_pUi->m_pHighlightWireframeCB, HIGHLIGHT_IN_ANALYZE);
    m_binder.Bind(m_pUi->m_pHighlightOutlineCB, HIGHLIGHT_OUTLINE);
    m_binder.Bind(m_pUi->m_pUseDisplayListsCB, USE_DISPLAY_LISTS);
    m_binder.Bind(m_pUi->m_pDefaultFaceCB, DEFAULT_FACE);
    m_binder.Bind(
        m_pUi->m_pAngleLimitE, ANGLE_LIMIT, [](double dRadians) { return qRadiansToDegrees(dRadians); },
        [](double dDegrees) { return qDegreesToRadians(dDegrees); });
}

void CDisplayPage::BindInput()
{
    using namespace PreferenceKey;
    m_binder.Bind(m_pUi->m_pZoomOnMouseCB, ZOOM_ON_MOUSE);
    m_binder.Bind(m_pUi->m_pFlipZoomCB, FLIP_ZOOM_DIRECTION);
    m_binder.Bind(m_pUi->m_pZoomSensitivityE, ZOOM_SENSITIVITY);
    m_binder.Bind(m_pUi->m_pMouseSensitivityE, MOUSE_SENSITIVITY);
    m_binder.Bind(m_pUi->m_pKeyboardSensitivityE, KEYBOARD_SENSITIVITY);
    m_binder.Bind(m_pUi->m_pSelectionAreaE, SELECTION_AREA);
}

void CDisplayPage::BindProgram()
{
    using namespace PreferenceKey;
    m_binder.Bind(m_pUi->m_pThemeCB, THEME);
    m_binder.Bind(m_pUi->m_pFontIncrementE, FONT_INCREMENT);
    m_binder.Bind(m_pUi->m_pSplitterWidthE, SPLITTER_WIDTH);
    m_binder.Bind(m_pUi->m_pDebugLevelE, DEBUG_LEVEL);
}

void CDisplayPage::ResetColors()
{
    for (const SKey<QColor>* const pKey : COLOR_KEYS)
        Set(m_pack, *pKey, pKey->defaultValue);
    Fill();
}
