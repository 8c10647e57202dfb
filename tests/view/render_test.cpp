// Pictures of small scenes: what is seen of one surface.
#include "tests/view/renderfixture.h"

TEST_F(Render, ValuesTakeTheirPlaceInTheColormap)
{
    CSurface& surface = Ramp(5);
    surface.setColormapValues(1.0, 3.0); // the outer columns lie beyond its ends
    Draw();
    ExpectColor(-0.9, 0.3, MapColor(0));
    ExpectColor(0.0, 0.3, MapColor(512));
    ExpectColor(0.9, 0.3, MapColor(1023));
    ExpectColor(1.1, 0.0, BACKGROUND);
}

TEST_F(Render, WhatHasNoValueTakesTheNanColour)
{
    for (const double dNoValue : {NO_VALUE, std::nan(""), double(INFINITY), 1e31}) {
        Square(5, [dNoValue](int r, int c) { return r == 2 && c == 2 ? dNoValue : 4.0; });
        Draw();
        ExpectColor(0.03, 0.03, NAN_COLOR);
        ExpectColor(0.2, 0.03, NAN_COLOR);
        ExpectColor(0.8, 0.8, MapColor(1023));
    }
}

TEST_F(Render, ASingularCellHasFullBrightness)
{
    SetPreference(PreferenceKey::USE_OUTLINE_COLOR, false); // all of its elements are at the edge
    // A cell with B in the place of C: neither triangle of the normal has an area, those that are drawn have.
    const auto draw = [this](double x) {
        const DVector3D corners[] = {{-1, -1, -4}, {x, -1, 4}, {1, -1, 4}, {1, 1, 4}}; // rows of two
        m_pSurface = std::make_unique<CColouredSurface>(
            m_nSimulation, VIEW, SSurfaceSize{2, 2}, [&](qint64 r, qint64 c) { return corners[2 * r + c]; });
        m_pSurface->setDisplayType(DisplayShaded);
        m_pSurface->setShadeColor(QColor(200, 200, 200));
        Draw();
        return At(0.5, -0.5).red();
    };
    EXPECT_LT(draw(0.9), 170); // steep: darker
    EXPECT_NEAR(draw(1.0), 200, TOLERANCE);
}

TEST_F(Render, AThresholdAndHolesCutTheSurface)
{
    CColouredSurface& surface = Ramp(5); // the threshold reads the same values
    surface.setThresholdVariable(2);
    surface.setThresholdRange({1.0, 3.0});
    surface.setThresholdEnable(true);
    Draw();
    ExpectColor(-0.6, 0.3, BACKGROUND);
    EXPECT_NE(At(0.0, 0.3), BACKGROUND);
    ExpectColor(0.6, 0.3, BACKGROUND);

    surface.setThresholdEnable(false);
    surface.m_mask.assign(25, 1.0);
    surface.m_mask[2 * 5 + 2] = 0.0; // the middle
    surface.invalidateAll();
    Draw();
    ExpectColor(0.05, 0.05, BACKGROUND);
    ExpectColor(0.2, 0.2, BACKGROUND);
    EXPECT_NE(At(0.7, 0.3), BACKGROUND);
    surface.setShowHoles(false);
    Draw();
    EXPECT_NE(At(0.05, 0.05), BACKGROUND);
}

TEST_F(Render, ContoursStopAtHolesAndThresholds)
{
    CColouredSurface& surface = Ramp(5);
    surface.setContourCount(8); // levels at each half
    surface.setDisplayType(DisplayContour);
    surface.m_mask.assign(25, 1.0);
    surface.m_mask[3 * 5 + 4] = 0.0;
    surface.invalidateAll();
    Draw();
    EXPECT_NE(At(-0.75, -0.3), BACKGROUND);
    EXPECT_NE(At(0.75, -0.3), BACKGROUND);
    ExpectColor(0.75, 0.8, BACKGROUND);
    ExpectColor(-0.62, 0.3, BACKGROUND);
    surface.setThresholdVariable(2);
    surface.setThresholdRange({2.0, 4.0});
    surface.setThresholdEnable(true);
    Draw();
    ExpectColor(-0.75, -0.3, BACKGROUND);
    EXPECT_NE(At(0.75, -0.3), BACKGROUND);
}

TEST_F(Render, ArrowsFollowTheScalarAndTheThreshold)
{
    CColouredSurface& surface = Square(5, [](int, int) { return 0.0; });
    surface.setVectorVariable(3);
    Draw();
    ASSERT_TRUE(HasColor(MapColor(0)));
    surface.m_values.assign(25, 4.0);
    surface.setScalarVariable(4);
    Draw();
    EXPECT_FALSE(HasColor(MapColor(0)));
    surface.setThresholdVariable(2);
    surface.setThresholdRange({0.0, 1.0});
    surface.setThresholdEnable(true);
    Draw();
    EXPECT_FALSE(HasColor(MapColor(1023)));
}

TEST_F(Render, WhatIsSelectedShowsInItsColour)
{
    SetPreference(PreferenceKey::HIGHLIGHT_OUTLINE, false);
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    CSurface& surface = Ramp(5);
    for (const DisplayType_e eType : {DisplayShaded, DisplayWireframe, DisplayOutline}) {
        surface.setDisplayType(eType);
        m_pSelectable->setSelected(true);
        Draw();
        ExpectColor(-1.0, 0.3, draw.selectColor);
        m_pSelectable->setHover(true); // goes ahead
        Draw();
        ExpectColor(-1.0, 0.3, draw.highlightColor);
        m_pSelectable->setSelected(false);
        m_pSelectable->setHover(false);
        Draw();
        EXPECT_NE(At(-1.0, 0.3).rgb(), draw.highlightColor.rgb());
        EXPECT_FALSE(HasColor(draw.selectColor));
    }
}

TEST_F(Render, SelectedArrowsShowItWhereOthersHaveASilhouetteToo)
{
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    Ramp(5).setVectorVariable(3);
    for (const bool bOutline : {false, true}) {
        SetPreference(PreferenceKey::HIGHLIGHT_OUTLINE, bOutline);
        Draw();
        EXPECT_FALSE(HasColor(draw.selectColor));
        m_pSelectable->setSelected(true);
        Draw();
        EXPECT_TRUE(HasColor(draw.selectColor)) << bOutline;
        m_pSelectable->setSelected(false);
    }
}

TEST_F(Render, APictureForOthersShowsNoSelectionAndNoHighlight)
{
    CSurface& surface = Ramp(5);
    surface.setVectorVariable(3);
    for (const DisplayType_e eType : {DisplayShaded, DisplayWireframe, DisplayVector})
        for (const bool bOutline : {false, true}) {
            SetPreference(PreferenceKey::HIGHLIGHT_OUTLINE, bOutline);
            surface.setDisplayType(eType);
            Draw();
            const QImage plain = m_image;
            m_pSelectable->setSelected(true);
            m_pSelectable->setHover(bOutline);
            Draw();
            EXPECT_NE(m_image, plain);
            m_bMarks = false;
            Draw();
            EXPECT_EQ(m_image, plain) << eType << bOutline;
            m_bMarks = true;
            m_pSelectable->setSelected(false);
            m_pSelectable->setHover(false);
        }
}

TEST_F(Render, WhatIsShadedAgainIsMarkedByItsEdge)
{
    CSurface& surface = Ramp(5);
    surface.setDisplayType(DisplayWireframe);
    surface.setDisplayType(DisplayShaded);
    m_pSelectable->setSelected(true);
    Draw();
    const QColor marked = CPreferences::Instance().Draw().selectColor;
    ExpectColor(-1.0, 0.3, marked);
    EXPECT_NE(At(0.0, 0.3).rgb(), marked.rgb()) << "a grid line";
    surface.setDisplayType(DisplayShadedWireframe);
    Draw();
    ExpectColor(0.0, 0.3, marked);
}

TEST_F(Render, GridLinesOnAShadedSurfaceAreWholeAndStandOutFromAScalar)
{
    SetPreference(PreferenceKey::USE_OUTLINE_COLOR, false);
    CColouredSurface& surface = Square(5, [](int, int) { return 2.0; });
    for (DVector3D& place : surface.m_places)
        place.z = 1.5 * place.x - 0.7 * place.y; // no line along its pixels' depth
    surface.setWireframeColor(Qt::black);
    surface.setDisplayType(DisplayShadedWireframe);
    const auto isDarkAlongLines = [&](const QColor& fill) {
        for (double y = -0.9; y < 0.9; y += 0.025)
            for (const double x : {-0.5, 0.0, 0.5})
                if (At(x, y).lightness() > 0.6 * fill.lightness())
                    return false;
        return true;
    };
    for (const bool bScalar : {false, true}) {
        surface.setGeometricColor(!bScalar);
        surface.invalidateAll();
        Draw();
        const QColor fill = At(0.25, 0.25);
        EXPECT_TRUE(isDarkAlongLines(fill)) << bScalar;
        if (bScalar)
            ExpectColor(0.0, 0.3,
                        QColor(int(0.45 * fill.red()), int(0.45 * fill.green()), int(0.45 * fill.blue())));
    }
}

TEST_F(Render, TheSilhouetteIsThreePixelsWide)
{
    SetPreference(PreferenceKey::HIGHLIGHT_OUTLINE, true);
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    Ramp(5);
    Draw();
    const QRgb within = m_image.pixel(12, 50);
    m_pSelectable->setSelected(true);
    Draw();
    for (const int nPixel : {7, 8, 9})
        EXPECT_EQ(m_image.pixelColor(nPixel, 50).rgb(), draw.selectColor.rgb()) << nPixel;
    EXPECT_EQ(m_image.pixelColor(6, 50).rgb(), BACKGROUND.rgb());
    EXPECT_EQ(m_image.pixel(12, 50), within);
    EXPECT_EQ(m_image.pixelColor(7, 7).rgb(), BACKGROUND.rgb()); // 3 * sqrt(2) from the corner
    EXPECT_EQ(m_image.pixelColor(8, 8).rgb(), draw.selectColor.rgb());
}

TEST_F(Render, DisplayListsDrawTheSamePicture)
{
    CColouredSurface& surface = Ramp(6);
    surface.m_mask.assign(36, 1.0);
    surface.m_mask[14] = 0.0;
    surface.setThresholdVariable(2);
    surface.setThresholdRange({0.0, 4.5});
    surface.setVectorVariable(3);
    const auto compare = [this](const std::string& sWhat) {
        SetPreference(PreferenceKey::USE_DISPLAY_LISTS, false);
        Draw();
        const QImage buffers = m_image;
        SetPreference(PreferenceKey::USE_DISPLAY_LISTS, true);
        Draw();
        EXPECT_EQ(m_image, buffers) << sWhat;
        Draw();
        EXPECT_EQ(m_image, buffers) << sWhat << ", second frame";
    };
    for (int nType = DisplayOutline; nType <= DisplayVector; ++nType) {
        surface.setDisplayType(DisplayType_e(nType));
        compare("type " + std::to_string(nType));
    }
    surface.setDisplayType(DisplayShaded);
    surface.setDrawContours(true); // after the list of the surface in one frame
    surface.setNodeVisible(true);
    surface.invalidateAll();
    compare("all at once");
    EXPECT_NE(At(0.7, 0.7), BACKGROUND);

    surface.m_values.assign(36, 2.0); // with lists on
    surface.setScalarVariable(4);
    surface.setThresholdEnable(true);
    Draw();
    const QImage lists = m_image;
    compare("after a change");
    EXPECT_EQ(lists, m_image);
}

TEST_F(Render, WhatIsShadedLaterIsLitToo)
{
    SetPreference(PreferenceKey::USE_OUTLINE_COLOR, false);
    for (const bool bLists : {false, true}) {
        SetPreference(PreferenceKey::USE_DISPLAY_LISTS, bLists);
        m_pSurface = std::make_unique<CColouredSurface>(
            m_nSimulation, VIEW, SSurfaceSize{2, 2}, [](qint64 r, qint64 c) {
                return DVector3D{2.0 * double(r) - 1.0, 2.0 * double(c) - 1.0, 2.0 * double(r)};
            });
        m_pSurface->setShadeColor(QColor(200, 200, 200));
        m_pSurface->setDisplayType(DisplayWireframe);
        Draw();
        ExpectColor(0.1, 0.3, BACKGROUND);
        m_pSurface->setDrawShaded(true); // over the lines; nothing else has changed
        Draw();
        const int nLit = int(200 * (0.15 + 0.85 * std::sqrt(0.5)));
        ExpectColor(0.1, 0.3, QColor(nLit, nLit, nLit));
        EXPECT_FALSE(m_pSurface->needsBuild());
    }
}

TEST_F(Render, FarFromTheOriginThePictureIsTheSame)
{
    for (const bool bLists : {false, true}) {
        SetPreference(PreferenceKey::USE_DISPLAY_LISTS, bLists);
        const auto draw = [this](const DVector3D& corner) {
            CColouredSurface& surface = Square(21, [](int r, int c) { return 0.7 * r + 0.3 * c; });
            for (DVector3D& place : surface.m_places) {
                place.z = 0.5 * std::sin(7.0 * place.x) * place.y;
                place = corner + place;
            }
            surface.setVectorVariable(3);
            surface.setDisplayType(DisplayShaded);
            surface.setDrawContours(true);
            surface.setDrawVectors(true);
            surface.invalidateAll();
            // Turned about the corner, which stays in the middle of the picture.
            m_view = DMatrix4x4::Rotation(0, 0.5) * DMatrix4x4::Rotation(1, 0.6);
            const DVector3D middle = m_view.MapPoint(corner);
            m_middle = {middle.x, middle.y};
            Draw();
            return m_image;
        };
        const QImage expected = draw({0, 0, 0});
        for (const DVector3D& corner : {DVector3D{1e4, 0, 0}, {-3e6, 2e6, 1e6}, {1e8, -1e8, 1e8}}) {
            const QImage image = draw(corner);
            int nDifferent = 0;
            for (int y = 0; y < PIXELS; ++y)
                for (int x = 0; x < PIXELS; ++x) {
                    const QColor a = image.pixelColor(x, y), b = expected.pixelColor(x, y);
                    nDifferent += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                                      std::abs(a.blue() - b.blue()) >
                                  30;
                }
            EXPECT_LT(nDifferent, PIXELS * PIXELS / 200) << corner.x << (bLists ? " with lists" : "");
        }
    }
}
