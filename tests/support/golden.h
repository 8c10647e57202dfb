#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>

/**
 * Files that former versions of the program have written. What is read from them, and that the same comes out
 * again, holds for all versions to come: a new kind of file gets one more, none is ever written anew. (With
 * ZENTO_WRITE_GOLDEN in the environment missing ones are made.)
 */
namespace Golden {

inline QString Path(const QString& sName) { return QString(ZENTO_GOLDEN) + '/' + sName; }

inline QByteArray Read(const QString& sName)
{
    QFile file(Path(sName));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << "no " << sName.toStdString();
    return file.readAll();
}

/** The bytes are those of the file. */
inline void Expect(const QString& sName, const QByteArray& bytes)
{
    if (qEnvironmentVariableIsSet("ZENTO_WRITE_GOLDEN") && !QFile::exists(Path(sName))) {
        QFile file(Path(sName));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    EXPECT_TRUE(Read(sName) == bytes) << sName.toStdString() << " would be written in another way";
}

} // namespace Golden
