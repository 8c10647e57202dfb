// Writes the example case: compressible flow past a sphere, from formulas, on overlapping blocks.
//   makeexample FOLDER
// Four curvilinear blocks lie round the sphere; a Cartesian block lies behind them all, blanked where they
// stand. The flow is the potential flow past a sphere at Mach 0.55 (Batchelor, An Introduction to Fluid
// Dynamics, section 6.8), made compressible by the isentropic relations, slowed down near the wall and in a
// wake behind the sphere. It is there to be looked at, not to be believed.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr double PI = 3.14159265358979323846;
constexpr double GAMMA = 1.4;
constexpr float MACH = 0.55F;
constexpr float ALPHA = 0.0F; // [degrees]
constexpr float REYNOLDS = 1.0e6F;
constexpr double SHELL = 2.6;  // outer radius of the blocks round the sphere; the sphere's is 1
constexpr double HOLE = 1.9;   // the background is blanked inside of it
constexpr double LAYER = 0.06; // thickness of the layer at the wall

struct SPoint
{
    double x, y, z;
};

struct SBlock
{
    int nI, nJ, nK;
    std::vector<SPoint> points; // i fastest
    std::vector<std::int32_t> blanks;
};

using Place = std::function<SPoint(double i, double j, double k)>; // of 0 to 1 in each direction

SBlock MakeBlock(int nI, int nJ, int nK, const Place& place, double dHole)
{
    SBlock block{nI, nJ, nK, {}, {}};
    for (int k = 0; k < nK; ++k)
        for (int j = 0; j < nJ; ++j)
            for (int i = 0; i < nI; ++i) {
                const SPoint p = place(double(i) / (nI - 1), double(j) / (nJ - 1), double(k) / (nK - 1));
                block.points.push_back(p);
                block.blanks.push_back(std::hypot(p.x, p.y, p.z) < dHole ? 0 : 1);
            }
    return block;
}

/** A quarter of the shell: i from pole to pole, j round the axis, k from the wall outwards, finer at the
 * wall. */
SBlock MakeShell(int nQuarter)
{
    return MakeBlock(
        61, 25, 29,
        [nQuarter](double i, double j, double k) {
            const double dTheta = PI * (0.004 + 0.992 * i);
            const double dPhi = 0.5 * PI * (nQuarter + j);
            const double dStretch = (std::exp(2.5 * k) - 1.0) / (std::exp(2.5) - 1.0);
            const double r = 1.0 + (SHELL - 1.0) * dStretch;
            return SPoint{-r * std::cos(dTheta), r * std::sin(dTheta) * std::cos(dPhi),
                          r * std::sin(dTheta) * std::sin(dPhi)};
        },
        0.0);
}

SBlock MakeBackground()
{
    return MakeBlock(
        71, 45, 45,
        [](double i, double j, double k) {
            return SPoint{-6.0 + 16.0 * i, -5.0 + 10.0 * j, -5.0 + 10.0 * k};
        },
        HOLE);
}

/** Velocity over that far ahead, without friction. */
SPoint PotentialVelocity(const SPoint& p)
{
    const double r = std::max(std::hypot(p.x, p.y, p.z), 0.5);
    const double dCubed = 0.5 / (r * r * r);
    const double dFactor = 3.0 * dCubed * p.x / (r * r);
    return {1.0 + dCubed - dFactor * p.x, -dFactor * p.y, -dFactor * p.z};
}

/** What friction leaves of the velocity near the wall and in the wake. */
double Remainder(const SPoint& p)
{
    const double dWall = 1.0 - std::exp(-std::max(std::hypot(p.x, p.y, p.z) - 1.0, 0.0) / LAYER);
    const double dAside = std::hypot(p.y, p.z) / (0.55 + 0.06 * std::max(p.x, 0.0));
    const double dBehind = p.x > 0.0 ? 1.0 - std::exp(-p.x * p.x) : 0.0;
    const double dLoss = 0.75 * dBehind * std::exp(-dAside * dAside) * std::exp(-0.12 * std::max(p.x, 0.0));
    return dWall * (1.0 - dLoss);
}

/** Of the speed, with the total enthalpy that is the same everywhere. */
double SquaredSpeedOfSound(double dSpeed2) { return 1.0 + 0.5 * (GAMMA - 1.0) * (MACH * MACH - dSpeed2); }

/** Density, momentum and energy, made dimensionless with density and speed of sound far ahead. */
std::vector<float> ConservativeState(const SBlock& block)
{
    const std::size_t nPoints = block.points.size();
    std::vector<float> q(5 * nPoints);
    for (std::size_t n = 0; n < nPoints; ++n) {
        const SPoint outer = PotentialVelocity(block.points[n]);
        const double dOuter2 = (outer.x * outer.x + outer.y * outer.y + outer.z * outer.z) * MACH * MACH;
        // The layer takes the pressure of the flow outside of it.
        const double dPressure = std::pow(SquaredSpeedOfSound(dOuter2), GAMMA / (GAMMA - 1.0)) / GAMMA;
        const double dRemainder = Remainder(block.points[n]);
        const double dSpeed2 = dOuter2 * dRemainder * dRemainder;
        const double dDensity = GAMMA * dPressure / SquaredSpeedOfSound(dSpeed2);
        const double dMomentum = dDensity * MACH * dRemainder; // for a velocity of 1
        const double values[] = {dDensity, dMomentum * outer.x, dMomentum * outer.y, dMomentum * outer.z,
                                 dPressure / (GAMMA - 1.0) + 0.5 * dDensity * dSpeed2};
        for (int nVariable = 0; nVariable < 5; ++nVariable)
            q[nVariable * nPoints + n] = float(values[nVariable]);
    }
    return q;
}

/** A binary file; failures show when it is closed. */
class CFile
{
public:
    explicit CFile(const std::string& sName) : m_pFile(std::fopen(sName.c_str(), "wb")) {}
    template <class T> void Write(const std::vector<T>& values)
    {
        m_bOk = m_pFile && std::fwrite(values.data(), sizeof(T), values.size(), m_pFile) == values.size() &&
                m_bOk;
    }
    bool Close() { return m_pFile && std::fclose(m_pFile) == 0 && m_bOk; }

private:
    std::FILE* m_pFile;
    bool m_bOk = true;
};

void WriteDimensions(CFile& file, const std::vector<SBlock>& blocks)
{
    std::vector<std::int32_t> header = {std::int32_t(blocks.size())};
    for (const SBlock& block : blocks)
        header.insert(header.end(), {block.nI, block.nJ, block.nK});
    file.Write(header);
}

bool WriteGrid(const std::string& sName, const std::vector<SBlock>& blocks)
{
    CFile file(sName);
    WriteDimensions(file, blocks);
    for (const SBlock& block : blocks) {
        for (double SPoint::*const axis : {&SPoint::x, &SPoint::y, &SPoint::z}) {
            std::vector<float> values;
            for (const SPoint& point : block.points)
                values.push_back(float(point.*axis));
            file.Write(values);
        }
        file.Write(block.blanks);
    }
    return file.Close();
}

bool WriteQ(const std::string& sName, const std::vector<SBlock>& blocks)
{
    CFile file(sName);
    WriteDimensions(file, blocks);
    for (const SBlock& block : blocks) {
        file.Write(std::vector<float>{MACH, ALPHA, REYNOLDS, 0.0F});
        file.Write(ConservativeState(block));
    }
    return file.Close();
}

bool WriteBoundaries(const std::string& sName, int nShells)
{
    std::FILE* const pFile = std::fopen(sName.c_str(), "w");
    if (!pFile)
        return false;
    std::fputs("FVBND 1 4\nSphere\nBOUNDARIES\n", pFile);
    for (int n = 1; n <= nShells; ++n)
        std::fprintf(pFile, "1 %d 1 $ 1 $ 1 1 F 1\n", n);
    return std::fclose(pFile) == 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: makeexample FOLDER\n", stderr);
        return 1;
    }
    constexpr int SHELLS = 4;
    std::vector<SBlock> blocks;
    for (int n = 0; n < SHELLS; ++n)
        blocks.push_back(MakeShell(n));
    blocks.push_back(MakeBackground());
    const std::string sStem = std::string(argv[1]) + "/sphere";
    const bool bWritten = WriteGrid(sStem + ".xyz", blocks) && WriteQ(sStem + ".q", blocks) &&
                          WriteBoundaries(sStem + ".fvbnd", SHELLS);
    if (!bWritten)
        std::fprintf(stderr, "makeexample: can't write %s.*\n", sStem.c_str());
    return bWritten ? 0 : 1;
}
