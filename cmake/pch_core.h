// Headers that nearly every library without widgets needs.
#include <QByteArray>
#include <QColor>
#include <QDataStream>
#include <QFont>
#include <QHash>
#include <QList>
#include <QMap>
#include <QMatrix4x4>
#include <QObject>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <vector>
