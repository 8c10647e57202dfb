#pragma once

#include "data/cases/casedata.h"
#include "modules/plot3d/block.h"
#include "modules/plot3d/boundaryitem.h"
#include "modules/plot3d/plot3dkeys.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "scene/selectablekind.h"
#include "tests/support/files.h"
#include "tests/support/plot3dfile.h"
#include "tests/support/print.h"
#include "tests/support/testsimulation.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/** A folder with files of four blocks, and simulations of them. */
class Plot3DCaseTest : public testing::Test
{
protected:
    static constexpr qint64 VIEW = 1;

    ~Plot3DCaseTest() override { CSimulationManager::Instance().RemoveAllViews(); }

    QString Path(const QString& sName) const { return m_folder.filePath(sName); }
    QString Write(const QString& sName, int nCode, FileKind_e eKind,
                  const QVector<Plot3DFixture::SBlock>& blocks = FourBlocks())
    {
        return Plot3DFixture::Write(Path(sName), nCode, eKind, blocks);
    }
    static QVector<Plot3DFixture::SBlock> FourBlocks()
    {
        return {{{5, 4, 3}, 2}, {{3, 3, 3}, 2}, {{2, 6, 4}, 2}, {{4, 4, 4}, 2}};
    }
    QString WriteGrid(const QString& sName = "case.x") { return Write(sName, 2, KindGrid); }
    QString WriteQ(const QString& sName = "case.q") { return Write(sName, 49, KindQ); }
    QString WriteFunction(const QString& sName = "case.f") { return Write(sName, 53, KindFunction); }
    void WriteText(const QString& sName, const QByteArray& text) { Files::Write(Path(sName), text); }
    /** Records of the files, as the dialog makes them. */
    static CCaseRecords Records(const QStringList& sFileList)
    {
        CCaseRecords records;
        for (const QString& sFile : sFileList)
            EXPECT_EQ(records.AddFile(sFile).sText, "") << sFile.toStdString();
        return records;
    }
    CPlot3DSimulation* Add()
    {
        auto* const pSimulation = new CPlot3DSimulation(1);
        CSimulationManager::Instance().AddSimulation(pSimulation, VIEW);
        return pSimulation;
    }
    CPlot3DSimulation* Open(const CCaseRecords& records)
    {
        CPlot3DSimulation* const pSimulation = Add();
        EXPECT_EQ(pSimulation->Load(records), "");
        return pSimulation;
    }
    static QStringList Names(const ISimulation& simulation, qint64 nType = -1)
    {
        QStringList sNameList;
        for (const CItem* const pItem : simulation.GetItems(nType))
            sNameList.append(pItem->GetName());
        return sNameList;
    }

    CNamedSelectableFactory m_selectables;
    QTemporaryDir m_folder;
};
