#pragma once

#include "frame/transform.h"

#include <QColor>
#include <QFont>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVector>

/** How the values of a pack in text mode are spelled; docs/formats/datapack.md has the table. */
namespace PackText {

/** What stands for a real number that is its default. All other types leave the key out. */
inline constexpr char DEFAULT_REAL[] = "Default";

QString ToText(double dValue);
QString ToText(qint64 nValue);
QString ToText(bool bValue);
QString ToText(const QPoint& value);
QString ToText(const QPointF& value);
QString ToText(const QColor& value);
QString ToText(const QFont& value);
QString ToText(const QVector<qint64>& values);
QString ToText(const IVector3D& value);
QString ToText(const DVector3D& value);
QString ToText(const QStringList& values);
QString ToText(const DMatrix4x4& value);
QString ToText(const STransform& value);

/** False, and the value as it was, for text that spells no value of the type. */
bool FromText(const QString& sText, double& dValue);
bool FromText(const QString& sText, qint64& nValue);
bool FromText(const QString& sText, bool& bValue);
bool FromText(const QString& sText, QPoint& value);
bool FromText(const QString& sText, QPointF& value);
bool FromText(const QString& sText, QColor& value);
bool FromText(const QString& sText, QFont& value);
bool FromText(const QString& sText, QVector<qint64>& values);
bool FromText(const QString& sText, IVector3D& value);
bool FromText(const QString& sText, DVector3D& value);
bool FromText(const QString& sText, QStringList& values);
bool FromText(const QString& sText, DMatrix4x4& value);
bool FromText(const QString& sText, STransform& value);

} // namespace PackText
