// Pictures of scenes of several items: what shines through, what stands in copies, and what of it is picked.
#include "simulation/displaytransforms.h"
#include "tests/view/renderfixture.h"

#include <QRegularExpression>

#include <random>

namespace {

const QColor ORANGE(240, 160, 0), BLUE(0, 40, 240), GREEN(0, 200, 80);

/** What a share of one colour over another gives. */
QColor Blend(const QColor& over, const QColor& under, double dShare)
{
    const auto mix = [&](int nOver, int nUnder) { return int(dShare * nOver + (1.0 - dShare) * nUnder); };
    return {mix(over.red(), under.red()), mix(over.green(), under.green()), mix(over.blue(), under.blue())};
}

/** Brightness of a surface whose normal leans so far from the line of sight. */
double Brightness(double dLean) { return 0.15 + 0.85 * std::cos(dLean); }
QColor Dimmed(const QColor& color, double dBrightness) { return Blend(color, Qt::black, dBrightness); }

class RenderItems : public Render
{
protected:
    void SetUp() override
    {
        Render::SetUp();
        if (m_context.IsValid())
            SetPreference(PreferenceKey::USE_OUTLINE_COLOR, false);
    }
    void SetMirror(int nAxis, double dOffset)
    {
        SMirrorSetting mirror;
        mirror.bActive[nAxis] = true;
        mirror.dOffset[nAxis] = dOffset;
        CSimulationManager::Instance().SetMirror(VIEW, m_nSimulation, mirror);
    }
    void SetSectors(int nAxis, qint64 nCount)
    {
        SSectorSetting sectors;
        sectors.bActive[nAxis] = true;
        sectors.nCount[nAxis] = nCount;
        CSimulationManager::Instance().SetSectors(VIEW, m_nSimulation, sectors);
    }
    /** Names of the items in the list: the numbers in which they were added. */
    QVector<qint64> Ids(const QVector<ISelectable*>& selectables) const
    {
        QVector<qint64> ids;
        for (const ISelectable* const p : selectables)
            ids.append(p->itemId());
        std::sort(ids.begin(), ids.end());
        return ids;
    }
};

/** Which items have lit pixels in a box of pixels, borders included, and which have them nowhere else. */
struct SLit
{
    QVector<qint64> on, in;
    friend bool operator==(const SLit&, const SLit&) = default;
};

SLit LitItems(const QImage& image, const QVector<QColor>& colors, const QRect& box)
{
    SLit lit;
    for (int n = 0; n < colors.size(); ++n) {
        bool bOn = false, bOut = false;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).rgb() == colors[n].rgb())
                    (box.contains(x, y) ? bOn : bOut) = true;
        if (bOn)
            lit.on.append(n + 2); // ids as the fixture gives them
        if (bOn && !bOut)
            lit.in.append(n + 2);
    }
    return lit;
}

} // namespace

TEST_F(RenderItems, WhatIsTransparentBlendsWithTheOpaqueBehindItInEitherOrder)
{
    for (const bool bOpaqueFirst : {true, false}) {
        m_more.clear();
        CSurface* pGlass = nullptr;
        for (const bool bOpaque : {bOpaqueFirst, !bOpaqueFirst})
            if (bOpaque)
                AddSquare({0, 0, 0}, 0.5, BLUE);
            else
                pGlass = &AddSquare({0.4, 0, 1}, 0.5, ORANGE);
        pGlass->setAlphaValue(0.25);
        AddSquare({0.9, 0.9, 2}, 0.2, GREEN);
        Draw();
        ExpectColor(0.2, 0.0, Blend(ORANGE, BLUE, 0.25));
        ExpectColor(-0.3, 0.0, BLUE);
        ExpectColor(0.7, 0.0, Blend(ORANGE, BACKGROUND, 0.25));
        ExpectColor(0.8, 0.8, GREEN); // in front of all
        pGlass->setAlphaValue(1.0);
        Draw();
        ExpectColor(0.2, 0.0, ORANGE);
        pGlass->setAlphaValue(0.0);
        Draw();
        ExpectColor(0.2, 0.0, BLUE);
    }
}

TEST_F(RenderItems, WhatIsTransparentAndBehindIsNotSeen)
{
    AddSquare({0, 0, -1}, 0.5, ORANGE).setAlphaValue(0.5);
    AddSquare({0, 0, 0}, 0.3, BLUE);
    Draw();
    ExpectColor(0.1, 0.1, BLUE);
    ExpectColor(0.4, 0.1, Blend(ORANGE, BACKGROUND, 0.5));
}

TEST_F(RenderItems, TransparentItemsShowEachOtherInAnyOrder)
{
    struct SGlass
    {
        double dDepth;
        QColor color;
    };
    std::vector<SGlass> glasses = {{1.0, ORANGE}, {2.0, GREEN}, {3.0, Qt::red}};
    const QColor seen = Blend(Qt::red, Blend(GREEN, Blend(ORANGE, BLUE, 0.5), 0.5), 0.5);
    int n = 0;
    do {
        m_more.clear();
        for (const SGlass& glass : glasses)
            AddSquare({0.1 * glass.dDepth, 0, glass.dDepth}, 0.5, glass.color).setAlphaValue(0.5);
        AddSquare({0, 0, 0}, 0.6, BLUE);
        AddSquare({0, 0, -1}, 0.9, Qt::white).setAlphaValue(0.5); // hidden where the blue one stands
        Draw();
        ExpectColor(0.2, 0.0, seen);
        ExpectColor(0.65, 0.0, Blend(Qt::red, Blend(GREEN, Blend(Qt::white, BACKGROUND, 0.5), 0.5), 0.5));
        ExpectColor(-0.35, 0.0, Blend(ORANGE, BLUE, 0.5));
        ++n;
    } while (std::next_permutation(glasses.begin(), glasses.end(),
                                   [](const SGlass& a, const SGlass& b) { return a.dDepth < b.dDepth; }));
    EXPECT_EQ(n, 6);
}

TEST_F(RenderItems, TransparentItemsThatCrossAndMoreOfThemThanLayersAreAllSeen)
{
    for (const bool bFirst : {false, true}) { // one leans to the left, one to the right
        m_more.clear();
        for (const bool bLeft : {bFirst, !bFirst})
            Add({2, 2}, bLeft ? Qt::red : Qt::green, [=](qint64 r, qint64 c) {
                const double x = double(2 * r - 1);
                return DVector3D{x, 0.5 * double(2 * c - 1), bLeft ? -0.01 * x : 0.01 * x};
            }).setAlphaValue(0.5);
        Draw();
        ExpectColor(-0.5, 0.0, Blend(Qt::red, Blend(Qt::green, BACKGROUND, 0.5), 0.5));
        ExpectColor(0.5, 0.0, Blend(Qt::green, Blend(Qt::red, BACKGROUND, 0.5), 0.5));
    }
    m_more.clear();
    constexpr int COUNT = 3 * CTransparentLayers::MAX_LAYERS;
    for (int n = 0; n < COUNT; ++n)
        AddSquare({0, 0, double(n)}, 0.5, Qt::white).setAlphaValue(0.05);
    Draw();
    const int nWhite = int(255 * (1.0 - std::pow(0.95, COUNT)));
    EXPECT_NEAR(At(0.1, 0.1).red(), nWhite, 2 * TOLERANCE);
}

TEST_F(RenderItems, WhatReachesFarOutOfItsItemIsWhole)
{
    CColouredSurface& surface = AddSquare({-0.5, 0.0125, 0}, 0.005, GREEN);
    surface.setWireframeColor(GREEN);
    surface.setLineThickness(3.0);
    surface.m_vector = {1000, 0, 800};
    surface.setVectorVariable(3);
    Draw();
    for (const double x : {-0.4, 0.0, 0.3})
        ExpectColor(x, 0.0125, GREEN);
    QMatrix4x4 extension; // a second copy, far behind
    extension.translate(0.0F, 0.5F, -30.0F);
    surface.setExtensionMatrix(extension);
    surface.setExtended(true);
    Draw();
    ExpectColor(0.0, 0.5125, GREEN);
    m_middle = {0.9, 0.0}; // the item itself is out of sight
    surface.setExtended(false);
    Draw();
    ExpectColor(-0.6, 0.0125, GREEN);
}

TEST_F(RenderItems, VectorsInTheSurfaceLieInIt)
{
    // It faces along (0, -1, 1) / sqrt(2): of the vector (600, 0, 800) the part (600, 400, 400) is left.
    CColouredSurface& surface = Add({2, 2}, GREEN, [](qint64 r, qint64 c) {
        const double d = 0.005 * double(2 * c - 1);
        return DVector3D{-0.4875 + 0.005 * double(2 * r - 1), 0.0125 + d, d};
    });
    surface.setWireframeColor(GREEN);
    surface.setLineThickness(3.0);
    surface.m_vector = {600, 0, 800};
    surface.setVectorVariable(3);
    surface.setVectorPlane(4);
    Draw();
    ExpectColor(-0.4875 + 0.3, 0.0125 + 0.2, GREEN);
    ExpectColor(-0.4875 + 0.3, 0.0125, BACKGROUND);
}

TEST_F(RenderItems, AMirroredCopyHasThePlaceTheColoursAndTheLightOfItsOriginal)
{
    const double dLean = 0.9; // about y: the normal has an x, which the mirror turns
    CColouredSurface& surface = Add({3, 2}, BLUE, [=](qint64 r, qint64 c) {
        return DVector3D{0.3 + 0.3 * double(r), 0.2 * double(c), 0.3 * std::tan(dLean) * double(r)};
    });
    SetMirror(0, 0.1); // x becomes 0.2 - x
    Draw();
    const QColor dimmed = Dimmed(BLUE, Brightness(dLean));
    ExpectColor(0.5, 0.1, dimmed);
    ExpectColor(-0.3, 0.1, dimmed);
    ExpectColor(-0.5, 0.1, dimmed);
    ExpectColor(0.1, 0.1, BACKGROUND);
    ExpectColor(-0.8, 0.1, BACKGROUND);

    surface.m_values = {0.0, 0.0, 0.0, 0.0, 1.0, 1.0}; // high at the far end only
    surface.setScalarVariable(1);
    surface.setGeometricColor(false);
    surface.setColormapType(0);
    surface.setColormapValues(0.0, 1.0);
    Draw();
    EXPECT_EQ(At(0.4, 0.1), At(-0.2, 0.1));
    EXPECT_EQ(At(0.80, 0.1).red(), At(-0.60, 0.1).red());
    ExpectColor(0.4, 0.1, Dimmed(MapColor(0), Brightness(dLean)));
    EXPECT_NE(At(-0.2, 0.1), At(-0.65, 0.1));
}

TEST_F(RenderItems, SectorsAreLitByWhereTheyStand)
{
    AddSquare({0.0, 0.6, 0.0}, 0.25, BLUE);
    SetSectors(2, 4);
    Draw();
    for (const auto& [x, y] : {std::pair{0.0, 0.6}, {-0.6, 0.0}, {0.0, -0.6}, {0.6, 0.0}})
        ExpectColor(x, y, BLUE); // still faces the user
    ExpectColor(0.0, 0.0, BACKGROUND);
    SetSectors(2, 1);
    SetSectors(0, 8); // about x
    Draw();
    ExpectColor(0.1, 0.75, BLUE);
    ExpectColor(0.1, 0.45, Dimmed(BLUE, Brightness(M_PI / 4))); // 0.247 to 0.601
    ExpectColor(0.1, -0.45, Dimmed(BLUE, Brightness(M_PI / 4)));
    ExpectColor(0.1, -0.75, BLUE);
}

TEST_F(RenderItems, ACopyThatIsLitIsPickedAndGivesItsItem)
{
    AddSquare({0.7, 0.7, 0.0}, 0.2, BLUE);
    AddSquare({0.0, 0.7, 0.0}, 0.2, ORANGE);
    SetMirror(0, 0.0);
    SetSectors(2, 2);
    Draw();
    for (double y = -1.15; y < 1.2; y += 0.1) // nowhere at an edge
        for (double x = -1.15; x < 1.2; x += 0.1) {
            QVector<qint64> expected;
            if (At(x, y).rgb() == BLUE.rgb())
                expected = {2};
            else if (At(x, y).rgb() == ORANGE.rgb())
                expected = {3};
            EXPECT_EQ(Ids(ViewPicker::Hits(Pointer(x, y))), expected) << "at " << x << ", " << y;
        }
    const SPointPick corner = ViewPicker::PointAt(Pointer(-0.9, -0.5)); // half a turn
    EXPECT_LT(Length(corner.displayed - DVector3D{-0.9, -0.5, 0.0}), 1e-12);
    EXPECT_LT(Length(corner.point.xyz - DVector3D{0.9, 0.5, 0.0}), 1e-12);
    EXPECT_EQ(corner.pDrawable, m_more[0].pSurface.get());
}

TEST_F(RenderItems, ThePointerMeetsWhatIsDrawnAtItsPixelAndWhatLiesBehind)
{
    CColouredSurface& surface = Ramp(5); // 2 to 4: rows from left to right
    AddSquare({0.5, 0.5, -1.0}, 0.7, BLUE);
    surface.m_mask.assign(25, 1.0);
    surface.m_mask[2 * 5 + 2] = 0.0; // the middle
    surface.invalidateAll();
    Draw();
    EXPECT_EQ(Ids(ViewPicker::Hits(Pointer(0.7, 0.7))), (QVector<qint64>{1, 2}));
    EXPECT_EQ(Ids(ViewPicker::Hits(Pointer(-0.7, 0.7))), QVector<qint64>{1});
    EXPECT_EQ(Ids(ViewPicker::Hits(Pointer(1.1, 0.7))), QVector<qint64>{2});
    EXPECT_EQ(Ids(ViewPicker::Hits(Pointer(0.1, 0.15))), QVector<qint64>{2}); // through the hole
    ExpectColor(0.1, 0.15, BLUE);
    EXPECT_TRUE(ViewPicker::Hits(Pointer(-1.1, -1.1)).isEmpty());
    ExpectColor(-1.1, -1.1, BACKGROUND);
    EXPECT_FALSE(ViewPicker::PointAt(Pointer(-1.1, -1.1)).point.bHasPoint);

    const SPointPick point = ViewPicker::PointAt(Pointer(0.5, -1.0)); // row 3, column 0
    ASSERT_TRUE(point.point.bHasPoint);
    EXPECT_EQ(point.point.xyz, (DVector3D{0.5, -1.0, 0.0}));
    EXPECT_EQ(point.point.ijk, (IVector3D{4, 1, 1}));
    EXPECT_EQ(point.point.dValue, 15.0 / 3.0);
    EXPECT_FALSE(point.point.bIsHole);
    EXPECT_EQ(point.pDrawable, &surface);
    surface.setShowHoles(false);
    Draw();
    EXPECT_NE(At(0.1, 0.15), BLUE);
    EXPECT_EQ(Ids(ViewPicker::Hits(Pointer(0.1, 0.15))), (QVector<qint64>{1, 2}));
    EXPECT_TRUE(ViewPicker::PointAt(Pointer(0.0, 0.0)).point.bIsHole);
}

TEST_F(RenderItems, AMeasuredLineIsDashedAndInFrontOfAll)
{
    AddSquare({0, 0, 0}, 1.2, ORANGE);
    AddSquare({0, 0, 0.5}, 1.2, ORANGE);
    m_measureLine = {{-0.5125, 0.0125, 0}, {0.4875, 0.0125, 0}}; // 40 pixels, through their middles
    Draw();
    QString sRow;
    for (int x = 0; x < PIXELS; ++x)
        sRow += m_image.pixelColor(x, 49).red() < 120 ? '#' : '.';
    // Dashes of five pixels, five apart, where its ends may be smoothed.
    static const QRegularExpression dashes("^#*\\.{30,38}(#{3,6}\\.{4,7}){3}#{3,6}\\.+#*$");
    EXPECT_TRUE(dashes.match(sRow).hasMatch()) << sRow.toStdString();
}

TEST_F(RenderItems, ABoxSelectsWhatIsDrawnOnItAndInIt)
{
    const QVector<QColor> colors = {
        {250, 10, 10}, {10, 250, 10}, {10, 10, 250}, {250, 250, 10}, {10, 250, 250}};
    AddSquare({-0.8, -0.8, 0.0}, 0.2, colors[0]);
    AddSquare({0.8, -0.7, 1.0}, 0.3, colors[1]);
    AddSquare({-0.6, 0.8, 0.5}, 0.1, colors[2]);
    Add({2, 2}, colors[3], [](qint64 r, qint64 c) { // a diamond: its box has empty corners
        return DVector3D{0.4 * double(r + c - 1), 0.4 * double(r - c), 0.0};
    });
    Add({2, 2}, colors[4], [](qint64 r, qint64 c) { // a thin one across
        return DVector3D{0.3 + 0.6 * double(r), 0.5 + 0.6 * double(r) + 0.06 * double(c), 0.0};
    });
    Draw();
    const double dPixel = 2.0 * HALF_WIDTH / PIXELS;
    std::mt19937 random(7);
    std::uniform_int_distribution<int> pixel(2, PIXELS - 3);
    const SPickRect whole{-HALF_WIDTH, -HALF_WIDTH, HALF_WIDTH, HALF_WIDTH};
    int nCompared = 0;
    for (int n = 0; n < 300; ++n) {
        const QRect box =
            QRect(QPoint(pixel(random), pixel(random)), QPoint(pixel(random), pixel(random))).normalized();
        const SLit lit = LitItems(m_image, colors, box.adjusted(1, 1, -1, -1));
        if (!(lit == LitItems(m_image, colors, box.adjusted(-1, -1, 1, 1))))
            continue; // something ends at its border
        ++nCompared;
        const SPickArea area{VIEW,
                             {},
                             {box.left() * dPixel - HALF_WIDTH, HALF_WIDTH - (box.bottom() + 1) * dPixel,
                              (box.right() + 1) * dPixel - HALF_WIDTH, HALF_WIDTH - box.top() * dPixel}};
        EXPECT_EQ(Ids(ViewPicker::Hits(area)), lit.on) << "box " << n;
        EXPECT_EQ(Ids(ViewPicker::HitsInside(area, whole)), lit.in) << "box " << n;
    }
    EXPECT_GT(nCompared, 150);
}
