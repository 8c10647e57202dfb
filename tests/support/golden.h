#pragma once

#include "tests/support/files.h"

/**
 * Files that former versions of the program have written. What is read from them, and that the same comes out
 * again, holds for all versions to come: a new kind of file gets one more, none is ever written anew. (With
 * ZENTO_WRITE_GOLDEN in the environment missing ones are made.)
 */
namespace Golden {

inline QString Path(const QString& sName) { return QString(ZENTO_GOLDEN) + '/' + sName; }

inline QByteArray Read(const QString& sName) { return Files::Read(Path(sName)); }

/** The bytes are those of the file. */
inline void Expect(const QString& sName, const QByteArray& bytes)
{
    if (qEnvironmentVariableIsSet("ZENTO_WRITE_GOLDEN") && !QFile::exists(Path(sName)))
        Files::Write(Path(sName), bytes);
    EXPECT_TRUE(Read(sName) == bytes) << sName.toStdString() << " would be written in another way";
}

} // namespace Golden
