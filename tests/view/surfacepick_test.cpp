// Picked points of surfaces over a case on disk.
#include "tests/support/plot3dcasefixture.h"
#include "view/drawables/surfacedrawable.h"
#include "view/pick/gltree.h"

using SurfacePick = Plot3DCaseFixture;

TEST_F(SurfacePick, APickedPointIsThatOfTheGridWithTheValueOfTheField)
{
    OpenTwoBlocks();
    CSurfaceDrawable surface(SIMULATION, 99, 1);
    SSurfacePlane plane{1, {1, 3, 1}, {2, 1, 1}, {5, 4, 3}}; // J = 3, I from 2
    surface.setDefinition(plane);
    surface.setScalarVariable(Id("RE"));
    surface.build();
    const auto pGrid = Grid(1);
    const auto pField = Field("RE", 1);
    ASSERT_TRUE(pGrid && pField);
    ASSERT_EQ(surface.size().Count(), 4 * 3);
    for (const CGLItem& item : surface.pickTree().Items()) {
        if (item.nKind != PickPoint)
            continue;
        const SPickedPoint point = surface.pickedPoint(item.nCorners[0]);
        ASSERT_TRUE(point.bHasPoint);
        EXPECT_EQ(point.xyz, pGrid->GetPoint(point.ijk));
        EXPECT_EQ(point.dValue, pField->GetValue(point.ijk));
        EXPECT_EQ(point.sValueText, ": " + QString::number(point.dValue, 'g', 6));
        EXPECT_EQ(point.bIsHole, item.bIsHole);
    }
    EXPECT_FALSE(surface.pickedPoint(12).bHasPoint);
    plane.end = {3, 4, 3};
    surface.setDefinition(plane);
    surface.build(); // the former tree and its places are gone
    EXPECT_EQ(surface.pickTree().Items().size(), std::size_t(6 + 7 + 4));
}
