#pragma once

/** How an item is drawn. The values are stored in display files. */
enum DisplayType_e : int {
    DisplayOutline = 0,   ///< the edges of a surface
    DisplayWireframe = 1, ///< grid lines
    DisplayShaded = 2,    ///< filled and lit
    DisplayShadedWireframe = 3,
    DisplayContour = 4, ///< contour lines of the scalar
    DisplayNodes = 5,   ///< points
    DisplayVector = 6,  ///< arrows
};
