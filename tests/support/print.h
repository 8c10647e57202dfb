#pragma once

// How gtest shows Qt's values when an expectation fails.
#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ostream>

inline void PrintTo(const QString& sText, std::ostream* pOut) { *pOut << '"' << sText.toStdString() << '"'; }
inline void PrintTo(const QByteArray& bytes, std::ostream* pOut) { *pOut << bytes.toHex(' ').toStdString(); }
inline void PrintTo(const QStringList& sList, std::ostream* pOut)
{
    *pOut << "[\"" << sList.join("\", \"").toStdString() << "\"]";
}
