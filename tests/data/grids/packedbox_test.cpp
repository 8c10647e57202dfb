#include "data/grids/packedbox.h"

#include <gtest/gtest.h>

#include <random>

namespace {

SCoarseBox Coarse(const CCoarseSpace& space, const SBox& box)
{
    return {space.Coarse(box.min), space.Coarse(box.max)};
}

} // namespace

TEST(PackedBox, WhatABoxHoldsItsPackedFormHoldsAtAnySizeAndPlace)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    for (const double dSize : {1.0, 1e30, 1e-30, 1e-44, 1e60, 1e290}) {
        for (const double dPlace : {0.0, -0.0, 3.0 * dSize, -1e5 * dSize, 1e12 * dSize}) {
            for (int nTry = 0; nTry < 50; ++nTry) {
                SBox outer, inner;
                DVector3D point;
                for (int nAxis = 0; nAxis < 3; ++nAxis) {
                    outer.min[nAxis] = dPlace + dSize * share(random);
                    outer.max[nAxis] = outer.min[nAxis] + dSize * (nTry % 4 == nAxis ? 0.0 : share(random));
                    const double dExtent = outer.max[nAxis] - outer.min[nAxis];
                    inner.min[nAxis] = outer.min[nAxis] + dExtent * std::min(0.6 * share(random), 0.5);
                    inner.max[nAxis] = outer.max[nAxis] - dExtent * std::min(0.6 * share(random), 0.5);
                    inner.max[nAxis] = std::max(inner.max[nAxis], inner.min[nAxis]);
                    const double dInside =
                        inner.min[nAxis] + share(random) * (inner.max[nAxis] - inner.min[nAxis]);
                    const double ends[] = {inner.min[nAxis], inner.max[nAxis],
                                           std::clamp(dInside, inner.min[nAxis], inner.max[nAxis])};
                    point[nAxis] = ends[nTry % 3];
                }
                const CCoarseSpace space(outer.min);
                const SCoarseBox whole = Coarse(space, outer);
                const SCoarseBox packed =
                    Unpack(Pack(Coarse(space, inner), whole), whole, whole.PackingStep());
                ASSERT_TRUE(inner.Contains(point));
                ASSERT_TRUE(packed.Holds(space.Coarse(point))) << dSize << ' ' << dPlace << ' ' << nTry;
            }
        }
    }
}

TEST(PackedBox, ABoxIsKnownToATwoHundredthOfTheOneAroundIt)
{
    const CCoarseSpace space;
    const SCoarseBox whole = Coarse(space, {{0, 0, 0}, {100, 100, 100}});
    const SCoarseBox inner = Coarse(space, {{20, 30, 0}, {40, 31, 100}});
    const SCoarseBox packed = Unpack(Pack(inner, whole), whole, whole.PackingStep());
    EXPECT_TRUE(packed.Holds(space.Coarse({20, 30, 0})));
    EXPECT_FALSE(packed.Holds(space.Coarse({19.5, 30, 0})));
    EXPECT_FALSE(packed.Holds(space.Coarse({40.5, 30, 0})));
    EXPECT_FALSE(packed.Holds(space.Coarse({30, 31.5, 50})));
    const SCoarseBox nothing = Unpack(Pack(Coarse(space, SBox()), whole), whole, whole.PackingStep());
    EXPECT_FALSE(nothing.Holds(space.Coarse({50, 50, 50}))) << "of a range without points";
}

TEST(PackedBox, ZeroHasOneSign)
{
    const CCoarseSpace space;
    const SCoarseBox box = Coarse(space, {{0.0, -0.0, -1.0}, {1.0, 0.0, -0.0}});
    EXPECT_TRUE(box.Holds(space.Coarse({-0.0, 0.0, 0.0})));
    EXPECT_TRUE(box.Holds(space.Coarse({0.0, -0.0, -0.0})));
}
