#pragma once

#include <QStringList>

#include <bit>
#include <limits>
#include <random>
#include <vector>

/** Formulas over given names that use the whole language, and values of every kind. Repeats with its seed. */
class CRandomFormula
{
public:
    explicit CRandomFormula(quint32 nSeed) : m_random(nSeed) {}

    QString Text(const QStringList& sInputs, int nDepth)
    {
        const auto part = [&] { return Text(sInputs, nDepth - 1); };
        switch (nDepth <= 0 ? Below(2) : Below(8)) {
        case 0:
            return sInputs[Below(sInputs.size())];
        case 1:
            return QStringList{"2", "0.1", "pi", "0", "1e300", "(-3)"}[Below(6)];
        case 2:
            return ONE[Below(ONE.size())] + "(" + part() + ")";
        case 3:
            return TWO[Below(TWO.size())] + "(" + part() + "," + part() + ")";
        case 4:
            return "-" + part();
        default:
            return "(" + part() + QString("+-*/%^")[Below(6)] + part() + ")";
        }
    }

    double Value()
    {
        constexpr double INF = std::numeric_limits<double>::infinity();
        constexpr double SPECIAL[] = {
            0.0,  -0.0, INF, -INF,    std::numeric_limits<double>::quiet_NaN(), 5e-324, -1e-310, 1.7e308, 1.0,
            -1.0, 2.0,  0.5, 999999.0};
        return Below(3) == 0 ? SPECIAL[Below(std::size(SPECIAL))] : Plain();
    }

    double Plain() { return std::ldexp(double(m_random()) / 4294967296.0 - 0.5, Below(12)); }

    /** Half of the times all of them are plain: runs without and with special values go different ways. */
    std::vector<double> Values(size_t nCount)
    {
        std::vector<double> values(nCount);
        const bool bPlain = Below(2) == 0;
        std::ranges::generate(values, [this, bPlain] { return bPlain ? Plain() : Value(); });
        return values;
    }

    int Below(size_t nEnd) { return int(m_random() % nEnd); }

private:
    inline static const QStringList ONE = {"abs",   "acos", "asin", "atan",  "ceil", "cos",
                                           "cosh",  "exp",  "fac",  "floor", "ln",   "log",
                                           "round", "sin",  "sinh", "sqrt",  "tan",  "tanh"};
    inline static const QStringList TWO = {"max", "min", "pow", "atan2", "ncr", "npr"};
    std::mt19937 m_random;
};

/** So that a difference in any bit shows, and NaN equals itself. */
inline std::vector<quint64> BitsOf(const std::vector<double>& values)
{
    std::vector<quint64> bits(values.size());
    std::ranges::transform(values, bits.begin(), [](double d) { return std::bit_cast<quint64>(d); });
    return bits;
}
