#pragma once

#include "simulation/displaytransforms.h"

#include <QToolBar>

#include <array>

class CWindowActions;
class QAction;
class QLineEdit;
class QSpinBox;

/**
 * Mirror and periodic display of the case on top of the active view: for each axis whether to mirror and
 * where the plane lies, whether to repeat and how often. The actions stand in menus too.
 */
class CMirrorToolBar : public QToolBar
{
    Q_OBJECT

public:
    CMirrorToolBar(CWindowActions& actions, QWidget* pParent);

    /** Shows the stored settings of the active pair; greys everything without one. */
    void ShowStored();

signals:
    /** The settings of the pair have changed. */
    void SignalChanged();

private:
    static constexpr int AXES = 3;

    void AddAxis(CWindowActions& actions, int nAxis);
    QLineEdit* MakeOffsetBox(int nAxis);
    QSpinBox* MakeSectorBox(int nAxis);
    void Store();
    SMirrorSetting MirrorFromWidgets(const SMirrorSetting& stored) const;
    SSectorSetting SectorsFromWidgets() const;

    std::array<QAction*, AXES> m_mirrorActions;
    std::array<QAction*, AXES> m_periodicActions;
    std::array<QLineEdit*, AXES> m_offsetBoxes;
    std::array<QSpinBox*, AXES> m_sectorBoxes;
    bool m_bFilling = false;
};
