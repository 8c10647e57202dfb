#include "window/commands/displaycommandtable.h"

#include "frame/userprompt.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "view/annotations/annotationcolormap.h"
#include "view/annotations/onelegend.h"
#include "view/colormaps/colormapedit.h"

namespace {

using Answer = std::optional<SDisplayAnswer>;
using Subjects = const QVector<ISelectable*>&;

constexpr double MOST_PIXELS = 64.0;
constexpr double LEAST_PIXELS = 0.1;
// Colours that can be told apart on light and dark backgrounds, with shading.
constexpr int RAINBOW_SATURATION = 200;
constexpr int RAINBOW_VALUE = 230;
constexpr int HUES = 360;

// Changes as commands: to a fixed value, to the answer.
template <DisplayType_e eType> void Show(Subjects subjects, const SDisplayAnswer&)
{
    for (ISelectable* const pSubject : subjects)
        pSubject->setDisplayType(eType);
}
template <auto Member, bool bValue> void Fix(Subjects subjects, const SDisplayAnswer&)
{
    for (ISelectable* const pSubject : subjects)
        pSubject->Change(Member, bValue);
}
template <auto Member, auto OfAnswer> void Take(Subjects subjects, const SDisplayAnswer& answer)
{
    for (ISelectable* const pSubject : subjects)
        pSubject->Change(Member, answer.*OfAnswer);
}
template <auto Member> constexpr auto TakeFlag = Take<Member, &SDisplayAnswer::bFlag>;

void TakeTransparency(Subjects subjects, const SDisplayAnswer& answer)
{
    for (ISelectable* const pSubject : subjects)
        pSubject->setAlphaValue(1.0 - answer.dNumber / 100.0);
}

void PaintOver(ISelectable& selectable, const QColor& color)
{
    selectable.setShadeColor(color);
    selectable.setGeometricColor(true); // or the new colour wouldn't be seen
}

void TakeShadeColor(Subjects subjects, const SDisplayAnswer& answer)
{
    for (ISelectable* const pSubject : subjects)
        PaintOver(*pSubject, answer.color);
}

/** The hue circle in equal steps, from red on, in the order of the items. */
void TakeRainbowColor(Subjects subjects, const SDisplayAnswer&)
{
    for (int n = 0; n < subjects.size(); ++n)
        PaintOver(*subjects[n],
                  QColor::fromHsv(n * HUES / subjects.size(), RAINBOW_SATURATION, RAINBOW_VALUE));
}

/** Items of one variable, map and range share the legend of the first: the same again would cover it. */
void TakeLegend(Subjects subjects, const SDisplayAnswer& answer)
{
    QVector<QPair<LegendKey, QVector<ISelectable*>>> groups;
    for (ISelectable* const pSubject : subjects) {
        if (CAnnotationColormap* const pLegend = pSubject->annotationColormap())
            pLegend->setVisible(false);
        const LegendKey key = LegendKeyOf(*pSubject);
        const auto group =
            std::find_if(groups.begin(), groups.end(), [&key](const auto& one) { return one.first == key; });
        if (group == groups.end())
            groups.append({key, {pSubject}});
        else
            group->second.append(pSubject);
    }
    for (int n = 0; answer.bFlag && n < groups.size(); ++n)
        ShowOneLegend(groups[n].second);
}

/** Gives the items of each scalar one range, so that their colours compare. */
template <class RangeOf> void TakeRanges(Subjects subjects, const RangeOf& rangeOf)
{
    QHash<qint64, QVector<ISelectable*>> items; // by scalar
    for (ISelectable* const pSubject : subjects)
        items[pSubject->scalarVariable()].append(pSubject);
    for (const QVector<ISelectable*>& ofScalar : std::as_const(items))
        ColormapEdit::SetRange(ofScalar, rangeOf(ofScalar));
}

void TakeLocalRange(Subjects subjects, const SDisplayAnswer&)
{
    TakeRanges(subjects, ColormapEdit::ItemsRange);
}

void TakeGlobalRange(Subjects subjects, const SDisplayAnswer&)
{
    TakeRanges(subjects, ColormapEdit::CaseRange);
}

// Questions.
Answer AskColor(const QColor& start)
{
    const QColor color = UserPrompt::AskColor("Select Color", start.isValid() ? start : QColor(Qt::gray));
    return color.isValid() ? Answer({0.0, color, false}) : std::nullopt;
}
Answer AskWireframeColor(const ISelectable& s) { return AskColor(s.wireframeColor()); }
Answer AskShadeColor(const ISelectable& s) { return AskColor(s.shadeColor()); }

Answer AskNumber(const SNumberPrompt& prompt)
{
    const std::optional<double> number = UserPrompt::AskNumber(prompt);
    return number ? Answer({*number, {}, false}) : std::nullopt;
}
Answer AskThickness(const ISelectable& s)
{
    const double dNow = s.lineThickness() == NO_VALUE ? 1.0 : s.lineThickness();
    return AskNumber({"Line Thickness", "Enter line thickness:", dNow, LEAST_PIXELS, MOST_PIXELS, 1});
}
Answer AskTransparency(const ISelectable& s)
{
    const double dNow = s.alphaValue() == NO_VALUE ? 0.0 : 100.0 * (1.0 - s.alphaValue());
    return AskNumber({"Transparency", "Enter transparency [%]:", dNow, 0.0, 100.0, 0});
}

// Toggles: on, unless all are on already.
template <class Is> bool NotAll(Subjects subjects, const Is& is)
{
    return !std::all_of(subjects.begin(), subjects.end(), is);
}
bool ShowHolesNow(Subjects subjects)
{
    return NotAll(subjects, [](const ISelectable* p) { return p->showHoles(); });
}
bool ShowLegendNow(Subjects subjects)
{
    return std::none_of(subjects.begin(), subjects.end(), [](const ISelectable* p) {
        return p->annotationColormap() && p->annotationColormap()->isVisible();
    });
}

bool HasScalar(const ISelectable& s) { return s.drawables().isEmpty() || s.scalarVariable() != NO_ID; }
bool HasVector(const ISelectable& s) { return s.drawables().isEmpty() || s.vectorVariable() != NO_ID; }

constexpr const char* NO_SCALAR = "Choose a scalar variable first";
constexpr const char* NO_VECTOR = "Choose a vector variable first";

const SDisplayCommand COMMANDS[] = {
    {ActionOutline, Show<DisplayOutline>},
    {ActionWireframe, Show<DisplayWireframe>},
    {ActionShaded, Show<DisplayShaded>},
    {ActionShadedWireframe, Show<DisplayShadedWireframe>},
    {ActionContour, Show<DisplayContour>, nullptr, nullptr, HasScalar, NO_SCALAR},
    {ActionNodes, Show<DisplayNodes>},
    {ActionVector, Show<DisplayVector>, nullptr, nullptr, HasVector, NO_VECTOR},
    {ActionGridOnNodes, Fix<&SDisplayState::bDisplayOnNodes, true>, nullptr, nullptr, nullptr, "",
     &CSelectableManager::NotifyDisplayOnNodes},
    {ActionGridOnCells, Fix<&SDisplayState::bDisplayOnNodes, false>, nullptr, nullptr, nullptr, "",
     &CSelectableManager::NotifyDisplayOnNodes},
    {ActionShowNodes, Fix<&SDisplayState::bNodeVisible, true>},
    {ActionHideNodes, Fix<&SDisplayState::bNodeVisible, false>},
    {ActionWireframeColor, Take<&SDisplayState::wireframeColor, &SDisplayAnswer::color>, AskWireframeColor},
    {ActionLineThickness, Take<&SDisplayState::dLineThickness, &SDisplayAnswer::dNumber>, AskThickness},
    {ActionShadeColor, TakeShadeColor, AskShadeColor},
    {ActionRainbowColor, TakeRainbowColor},
    {ActionShowHoles, Fix<&SDisplayState::bShowHoles, true>},
    {ActionHideHoles, Fix<&SDisplayState::bShowHoles, false>},
    {ActionGeometryColor, Fix<&SDisplayState::bGeometricColor, true>},
    {ActionScalarColor, Fix<&SDisplayState::bGeometricColor, false>, nullptr, nullptr, HasScalar, NO_SCALAR},
    {ActionTransparency, TakeTransparency, AskTransparency},
    {ActionGlobalTransparency, TakeTransparency, AskTransparency},
    {ActionToggleMasks, TakeFlag<&SDisplayState::bShowHoles>, nullptr, ShowHolesNow},
    {ActionToggleLegend, TakeLegend, nullptr, ShowLegendNow, HasScalar, NO_SCALAR},
    {ActionBindToLocal, TakeFlag<&SDisplayState::bColormapBindToLocal>},
    {ActionLocalRange, TakeLocalRange, nullptr, nullptr, HasScalar, NO_SCALAR},
    {ActionGlobalRange, TakeGlobalRange, nullptr, nullptr, HasScalar, NO_SCALAR},
};

} // namespace

std::span<const SDisplayCommand> DisplayCommandTable() { return COMMANDS; }
