#include "view/selectables/surfacegroup.h"

#include "data/values/blockshape.h"
#include "scene/selectablekeys.h"
#include "scene/selectablemanager.h"

bool CSurfaceGroup::CanEdit(const ISelectable& selectable)
{
    return (Get(selectable, SelectableKey::DATA_DOCKS) & DataDockSurface) != 0 &&
           dynamic_cast<const CSurfaceSelectable*>(&selectable);
}

CSurfaceGroup::CSurfaceGroup(const QVector<ISelectable*>& selectables)
{
    for (ISelectable* const pSelectable : selectables)
        m_surfaces.append(static_cast<CSurfaceSelectable*>(pSelectable));
}

std::optional<int> CSurfaceGroup::Direction() const
{
    return Common([](const CSurfaceSelectable& s) { return s.constantDirection(); });
}

std::optional<qint64> CSurfaceGroup::Constant() const
{
    return Common([](const CSurfaceSelectable& s) { return s.constantValue(); });
}

std::optional<qint64> CSurfaceGroup::Start(int nAxis) const
{
    return Common([nAxis](const CSurfaceSelectable& s) { return s.startIndices()[nAxis]; });
}

std::optional<qint64> CSurfaceGroup::End(int nAxis) const
{
    return Common([nAxis](const CSurfaceSelectable& s) { return s.endIndices()[nAxis]; });
}

qint64 CSurfaceGroup::Size(int nAxis) const
{
    qint64 nSize = IsEmpty() ? 1 : std::numeric_limits<qint64>::max();
    for (const CSurfaceSelectable* const pSurface : m_surfaces)
        nSize = std::min(nSize, pSurface->gridDimensions()[nAxis]);
    return std::max<qint64>(nSize, 1);
}

qint64 CSurfaceGroup::LeastEnd(int nAxis) const
{
    qint64 nEnd = Size(nAxis);
    for (const CSurfaceSelectable* const pSurface : m_surfaces)
        nEnd = std::min(nEnd, pSurface->endIndices()[nAxis]);
    return nEnd;
}

qint64 CSurfaceGroup::GreatestStart(int nAxis) const
{
    qint64 nStart = 1;
    for (const CSurfaceSelectable* const pSurface : m_surfaces)
        nStart = std::max(nStart, pSurface->startIndices()[nAxis]);
    return nStart;
}

bool CSurfaceGroup::HasFixedPlane() const
{
    return std::any_of(m_surfaces.begin(), m_surfaces.end(),
                       [](const CSurfaceSelectable* p) { return p->hasFixedPlane(); });
}

QString CSurfaceGroup::Title() const
{
    if (IsEmpty())
        return "Surface: Not Selected";
    QString sName = Common([](const CSurfaceSelectable& s) { return s.blockName(); }).value_or(MULTIPLE);
    if (sName.isEmpty())
        sName = "NONAME";
    return QString("Surface: [Zone %1]").arg(sName);
}

QString CSurfaceGroup::SizeText() const
{
    if (IsEmpty())
        return {};
    const auto size = Common([](const CSurfaceSelectable& s) { return s.gridDimensions(); });
    const auto onNodes = Common([](const CSurfaceSelectable& s) { return s.displayOnNodes(); });
    if (!size || !onNodes)
        return MULTIPLE;
    const IVector3D shown = *onNodes ? *size : SBlockShape{*size}.CellDimensions();
    return QString("%1 x %2 x %3 %4")
        .arg(shown.i)
        .arg(shown.j)
        .arg(shown.k)
        .arg(*onNodes ? "[nodes]" : "[cells]");
}

void CSurfaceGroup::Edit(const std::function<void(CSurfaceSelectable&)>& edit)
{
    for (CSurfaceSelectable* const pSurface : QVector<CSurfaceSelectable*>(m_surfaces)) {
        const SSurfacePlane former = pSurface->plane();
        edit(*pSurface);
        if (pSurface->plane() == former)
            CSelectableManager::Instance().NotifyUpdated(pSurface);
        else
            pSurface->apply();
    }
}

void CSurfaceGroup::SetDirection(int nDirection)
{
    Edit([=](CSurfaceSelectable& s) { s.setConstantDirection(nDirection); });
}

void CSurfaceGroup::SetConstant(qint64 nValue)
{
    Edit([=](CSurfaceSelectable& s) { s.setConstantValue(nValue); });
}

void CSurfaceGroup::SetStart(int nAxis, qint64 nValue)
{
    Edit([=](CSurfaceSelectable& s) {
        IVector3D start = s.startIndices();
        start[nAxis] = nValue;
        s.setStartIndices(start);
    });
}

void CSurfaceGroup::SetEnd(int nAxis, qint64 nValue)
{
    Edit([=](CSurfaceSelectable& s) {
        IVector3D end = s.endIndices();
        end[nAxis] = nValue;
        s.setEndIndices(end);
    });
}

void CSurfaceGroup::SetDisplayOnNodes(bool bOnNodes)
{
    Edit([=](CSurfaceSelectable& s) {
        s.setDisplayOnNodes(bOnNodes);
        CSelectableManager::Instance().NotifyDisplayOnNodes(&s);
    });
}
