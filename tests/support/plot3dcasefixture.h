#pragma once

#include "data/cases/casedata.h"
#include "data/cases/plot3dcase.h"
#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/variables/variablemanager.h"
#include "tests/support/plot3dfile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/** A test with a Plot3D case on disk and in the managers; it leaves both empty. */
class Plot3DCaseFixture : public testing::Test
{
protected:
    static constexpr qint64 SIMULATION = 1;

    ~Plot3DCaseFixture() override
    {
        RemoveCaseData(SIMULATION);
        EXPECT_EQ(CGridManager::Instance().CountGrids(), 0) << "a grid was not given back";
        EXPECT_EQ(CSolutionManager::Instance().CountSolutions(), 0) << "a solution was not given back";
    }

    QString Write(const char* sName, int nCode, FileKind_e eKind,
                  const QVector<Plot3DFixture::SBlock>& blocks)
    {
        return Plot3DFixture::Write(m_folder.filePath(sName), nCode, eKind, blocks);
    }
    /** A grid with IBlank (code 26, double) and a Q file (49) of two blocks. */
    SPlot3DCase OpenTwoBlocks()
    {
        const auto blocks = Plot3DFixture::Blocks({{5, 4, 3}, {3, 3, 3}});
        return RegisterPlot3DCase(
            SIMULATION, {Write("case.x", 26, KindGrid, blocks), {Write("case.q", 49, KindQ, blocks)}, {}});
    }
    qint64 Id(const char* sName) const
    {
        return CVariableManager::Instance().FindByName(SIMULATION, sName, LocationNode);
    }
    CLease<IStructredSolution> Field(const char* sName, qint64 nItemId, double dTime = STEADY_TIME)
    {
        return AsStructured(
            CSolutionManager::Instance().GetSolution(Id(sName), SIMULATION, nItemId, -1, dTime));
    }
    CLease<IGrid> Grid(qint64 nItemId, double dTime = STEADY_TIME)
    {
        return CGridManager::Instance().GetGrid(SIMULATION, nItemId, -1, dTime);
    }

    QTemporaryDir m_folder;
};
