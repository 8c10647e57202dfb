#pragma once

#include "frame/packs/packkey.h"

/** Keys of a Plot3D simulation's pack: its files, and what their headers say. */
namespace Plot3DKey {

/** Files that lie in "Directory" (SimulationKey::DIRECTORY) or below it stand relative to it. */
inline constexpr SKey<const char*> GRID_FILE{"GridFile", ""};
inline constexpr SKey<const char*> Q_FILE{"QFile", ""};
inline const SKey<QStringList> GRID_FILES{"GridFileList", {}}; // of each level; one if the grid is static
inline const SKey<QStringList> Q_FILES{"QFileList", {}};       // of each level
inline const SKey<QStringList> FUNCTION_FILES{"FunctionFileList", {}};
inline const SKey<QVector<qint64>> GRID_BLOCKS{"GridFileIndexList", {}}; // from 0; empty: all
inline constexpr SKey<bool> IS_READ_TRANSIENT{"IsReadTransient", true};  // the series of numbered files
inline const SKey<QVector<qint64>> FUNCTION_VARIABLE_COUNTS{"FunctionVariableCountList", {}}; // of each file
inline const SKey<QStringList> FUNCTION_VARIABLE_NAMES{"FunctionVariableNameList", {}}; // all files in a row
inline constexpr SKey<double> ANGLE_OF_ATTACK{"AngleOfAttack", 0.0};                    // [degrees]
inline constexpr SKey<double> FREE_STREAM_MACH{"FreeStreamMach", 1.0};
/** The same, written: what a header told, 0 where none did. */
inline constexpr SKey<double> HEADER_MACH{"FreeStreamMach", 0.0};

} // namespace Plot3DKey

/** Keys of a block's pack. */
namespace BlockKey {

inline constexpr SKey<qint64> FILE_INDEX{"Grid.FileIndex", 0}; // block of the file, from 0
inline constexpr SKey<const char*> ABSOLUTE_FILE{"Grid.AbsoluteFileName", ""};
inline constexpr SKey<const char*> RELATIVE_FILE{"Grid.RelativeFileName", ""}; // to the case's directory

} // namespace BlockKey

/** Keys of a boundary surface's pack: the record that it comes from. */
namespace BoundaryKey {

inline constexpr SKey<const char*> TYPE_NAME{"Boundary.TypeName", ""};
inline constexpr SKey<qint64> TYPE_INDEX{"Boundary.TypeIndex", 0};        // into the file's names, from 1
inline constexpr SKey<qint64> BLOCK_NUMBER{"Boundary.GridIndex", 0};      // in the grid file, from 1
inline constexpr SKey<qint64> FACE{"Boundary.Face", 0};                   // 0 i low, 1 i high ... 5 k high
inline constexpr SKey<IVector3D> IJK_MIN{"Boundary.IjkMin", IVector3D()}; // from 1
inline constexpr SKey<IVector3D> IJK_MAX{"Boundary.IjkMax", IVector3D()}; // included
inline constexpr SKey<bool> FLIP{"Boundary.Flip", false};
inline constexpr SKey<qint64> DIRECTION{"Boundary.Direction", 1}; // 1 or -1

} // namespace BoundaryKey
