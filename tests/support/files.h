#pragma once

#include <QFile>

#include <gtest/gtest.h>

/** Whole files; one that can't be read or written fails the test. */
namespace Files {

inline QByteArray Read(const QString& sName)
{
    QFile file(sName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << sName.toStdString();
    return file.readAll();
}

/** @return the name */
inline QString Write(const QString& sName, const QByteArray& bytes = {})
{
    QFile file(sName);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()) << sName.toStdString();
    return sName;
}

} // namespace Files
