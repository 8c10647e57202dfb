#include "modules/plot3d/fieldview/fieldviewvariables.h"

#include <QHash>

namespace {

/** Without the suffix; hyphens are blanks. */
const QHash<QString, QString>& VariableTable()
{
    static const QHash<QString, QString> names = {
        {"density", "R"},
        {"x momentum", "RU"},
        {"y momentum", "RV"},
        {"z momentum", "RW"},
        {"stagnation energy", "RE"},
        {"u velocity", "U"},
        {"v velocity", "V"},
        {"w velocity", "W"},
        {"velocity magnitude", "Vmag[Q]"},
        {"pressure", "P[Q]"},
        {"temperature", "T[Q]"},
        {"mach number", "M[Q]"},
        {"speed of sound", "C[Q]"},
        {"velocity", "Velocity"},
        {"velocity vectors", "Velocity"},
        {"momentum", "Momentum"},
        {"momentum vectors", "Momentum"},
    };
    return names;
}

/** "Density (Q1)": the arrays of a Q file by their place. */
constexpr std::pair<const char*, const char*> Q_ARRAYS[] = {
    {"(q1)", "R"}, {"(q2)", "RU"}, {"(q3)", "RV"}, {"(q4)", "RW"}, {"(q5)", "RE"}};

} // namespace

QString TranslateFieldViewVariable(const QString& sName)
{
    constexpr const char* SUFFIX = " [plot3d]";
    const QString sLower = sName.trimmed().toLower();
    for (const auto& [sEnd, sArray] : Q_ARRAYS)
        if (sLower.endsWith(sEnd))
            return sArray;
    if (!sLower.endsWith(SUFFIX))
        return sName.trimmed();
    const QString sPlain = sLower.left(sLower.size() - int(qstrlen(SUFFIX))).replace('-', ' ');
    return VariableTable().value(sPlain, sName.trimmed());
}
