#pragma once

#include "data/io/plot3dfile.h"
#include "data/variables/builtinvariables.h"
#include "frame/novalue.h"

#include <QStringList>
#include <QVector>

#include <vector>

/** A file of a case, or one file for each time level. */
struct SFileSeries
{
    struct SLevel
    {
        QString sFileName;
        double dTime = STEADY_TIME;

        friend bool operator==(const SLevel&, const SLevel&) = default;
    };

    QString sFileName;      ///< the one by whose header all go; empty: there is no such file
    QVector<SLevel> levels; ///< by time; empty: the file alone, at all times

    /** The levels, or the file alone at STEADY_TIME. */
    QVector<SLevel> Levels() const;
};

/** The files of a Plot3D case and what of them is wanted. */
struct SPlot3DCaseFiles
{
    struct SFunctionFile
    {
        SFileSeries series;
        QStringList sNameList; ///< of its variables; "F1.2" (second of the first file) where it is shorter
    };

    SPlot3DCaseFiles() = default;
    /**
     * Files as a command line names them. Several Q files are the levels of a series, whose times are the
     * last numbers in their names; all else is at all times.
     */
    SPlot3DCaseFiles(const QString& sGridFile, const QStringList& sQFileList,
                     const QStringList& sFunctionFileList);

    SFileSeries grid;
    SFileSeries q;
    QVector<SFunctionFile> functions;
    QVector<qint64> blockIndices; ///< chosen blocks of the grid file, from 0; empty: all
    bool bHole = true;            ///< grid files offer "Hole"
};

/** A file of fields as it is registered. */
struct SPlot3DFieldFile
{
    SFileSeries series;
    SPlot3DFile file;       ///< of series.sFileName
    QVector<qint64> places; ///< for each block of the case its index in the file
    QStringList sNameList;  ///< of its variables
};

/** A case as the headers of its files tell it. */
struct SPlot3DCase
{
    QString sError; ///< empty if all files fit
    QVector<IVector3D> blocks;
    QVector<qint64> blockIndices; ///< for each block its index in the grid file
    double dFreeStreamMach = 0.0; ///< of the first Q header; 0 if it has none above 0
    double dAngleOfAttack = 0.0;  ///< [degrees]
    SReferenceState reference;    ///< what built-in variables are made with
    SPlot3DFile gridFile;
    SFileSeries grid;
    std::vector<SPlot3DFieldFile> fields;

    /** All times at which some file has a level, ascending. */
    QVector<double> Times() const;
};

/** Reads the headers and checks that the files go together. Nothing is registered. */
SPlot3DCase ExaminePlot3DCase(const SPlot3DCaseFiles& files);

/**
 * Registers blocks and variables of an examined case: grid coordinates and "Hole", the conservative state
 * ("R", "RU", "RV", "RW", "RE") and function variables stand in CVariableManager afterwards. No data are
 * read. What was registered at the same places makes way.
 *
 * @param itemIds  for each block of the case its item; -1 for a block that isn't wanted
 */
void RegisterPlot3DData(qint64 nSimulationId, const SPlot3DCase& plot3DCase, const QVector<qint64>& itemIds);

/** All of it with the built-in variables; block n is item n + 1. With an error nothing is registered. */
SPlot3DCase RegisterPlot3DCase(qint64 nSimulationId, const SPlot3DCaseFiles& files);

/**
 * Whether a file may be a level of the series that the other is of. Only files of another size are opened:
 * they fit if kind and blocks are the same.
 *
 * @param ofSeries  what the other one was detected as
 */
bool IsLevelOf(const QString& sFileName, const QString& sSeriesFile, const SPlot3DFile& ofSeries);

/** The last number in a file's name, by which a series of files counts; nFallback if there is none. */
double TimeOfFile(const QString& sFileName, double dFallback);
