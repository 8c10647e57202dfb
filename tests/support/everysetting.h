#pragma once

#include "scene/iselectable.h"

/** Variables of a case, by what an item shows with them. */
struct SShownVariables
{
    qint64 nScalar = -1, nVector = -1, nThreshold = -1;
};

/** Everything that can be set of what an item shows is set to what it isn't at first; n sets items apart. */
template <class Shown> void SetEverySetting(Shown& shown, const SShownVariables& variables, int n)
{
    shown.setScalarVariable(variables.nScalar);
    shown.setVectorVariable(variables.nVector);
    shown.setThresholdVariable(variables.nThreshold);
    shown.setDisplayType(n % 3 == 0 ? DisplayVector : DisplayShadedWireframe);
    shown.setNodeVisible(true);
    shown.setDisplayOnNodes(n % 2);
    shown.setShowHoles(false);
    shown.setContourCount(7 + n);
    shown.setGeometricColor(n % 4 == 3);
    shown.setShadeColor(QColor(10, 20 + n, 30, 200));
    shown.setWireframeColor(QColor(200, 100, n));
    shown.setLineThickness(1.5 + n);
    shown.setAlphaValue(0.75);
    shown.setThresholdEnable(n % 2);
    shown.setThresholdRange({-1e3 - n, 1e9 / 3.0});
    shown.setVectorPlane(n % 4);
    shown.setVectorSkip(1);
    shown.setVectorHeadScale(0.3);
    shown.setVectorBodyScale(1.0 / 7.0);
    shown.setColormapType(n % 10);
    shown.setColormapValues(-2.0 * n, 1e3 / 3.0);
    shown.setColormapBindToLocal(n % 2);
}
