#include "view/colormaps/colormaptables.h"

#include "view/colormaps/perceptualmaps.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

using Rgb = std::array<int, 3>;

/** A corner of a piecewise linear map. */
struct SStop
{
    int nIndex; // place in the control list
    Rgb color;
};

constexpr SStop NASA1[] = {{0, {0, 1, 255}},    {14, {0, 145, 255}},  {19, {0, 248, 255}},
                           {20, {0, 255, 251}}, {22, {0, 255, 86}},   {24, {0, 255, 4}},
                           {25, {5, 255, 0}},   {31, {252, 255, 0}},  {33, {255, 236, 0}},
                           {56, {255, 0, 0}},   {66, {255, 127, 255}}};
constexpr SStop NASA2[] = {
    {0, {0, 0, 25}},    {9, {0, 1, 255}},      {23, {0, 145, 255}},  {28, {0, 248, 255}}, {29, {0, 255, 251}},
    {31, {0, 255, 86}}, {33, {0, 255, 4}},     {34, {5, 255, 0}},    {40, {252, 255, 0}}, {42, {255, 236, 0}},
    {65, {255, 0, 0}},  {75, {255, 127, 255}}, {80, {255, 255, 255}}};
constexpr SStop HSV[] = {{0, {255, 0, 0}},    {10, {255, 239, 0}}, {11, {247, 255, 0}}, {21, {7, 255, 0}},
                         {22, {0, 255, 15}},  {32, {0, 255, 255}}, {42, {0, 15, 255}},  {43, {7, 0, 255}},
                         {53, {247, 0, 255}}, {54, {255, 0, 239}}, {63, {255, 0, 23}}};
constexpr SStop JET[] = {{0, {0, 0, 135}},    {7, {0, 0, 247}},    {8, {0, 7, 255}},    {23, {0, 247, 255}},
                         {24, {7, 255, 247}}, {39, {247, 255, 7}}, {40, {255, 247, 0}}, {55, {255, 7, 0}},
                         {56, {247, 0, 0}},   {63, {135, 0, 0}}};
constexpr SStop HOT[] = {{0, {10, 0, 0}}, {23, {255, 0, 0}}, {47, {255, 255, 0}}, {63, {255, 255, 255}}};
constexpr SStop RAINBOW[] = {{0, {45, 0, 36}},       {4, {70, 0, 59}},       {10, {71, 0, 87}},
                             {25, {34, 36, 134}},    {30, {24, 64, 142}},    {82, {33, 137, 127}},
                             {120, {59, 175, 86}},   {134, {87, 190, 72}},   {153, {153, 199, 74}},
                             {177, {236, 190, 100}}, {197, {255, 179, 152}}, {200, {255, 180, 167}},
                             {232, {255, 209, 209}}, {254, {255, 255, 255}}};
constexpr SStop BTY[] = {{0, {7, 7, 254}},       {1, {23, 23, 252}},     {3, {36, 36, 248}},
                         {7, {50, 50, 242}},     {16, {68, 68, 230}},    {34, {90, 90, 216}},
                         {62, {114, 114, 202}},  {129, {164, 164, 178}}, {168, {191, 191, 160}},
                         {197, {212, 212, 140}}, {221, {229, 229, 116}}, {235, {239, 239, 94}},
                         {243, {245, 245, 77}},  {249, {250, 250, 58}},  {252, {252, 252, 44}},
                         {254, {253, 253, 28}},  {255, {254, 254, 13}}};
constexpr SStop BTC[] = {{0, {0, 0, 40}},        {1, {0, 4, 56}},       {21, {0, 51, 105}},
                         {115, {4, 186, 249}},   {133, {32, 205, 255}}, {173, {111, 255, 255}},
                         {248, {241, 255, 255}}, {254, {255, 255, 255}}};
constexpr SStop RED[] = {{0, {0, 0, 0}}, {1, {125, 0, 0}}, {2, {255, 0, 0}}};
constexpr SStop GREEN[] = {{0, {0, 0, 0}}, {1, {0, 125, 0}}, {2, {0, 255, 0}}};
constexpr SStop BLUE[] = {{0, {0, 0, 0}}, {1, {0, 0, 125}}, {2, {0, 0, 255}}};
constexpr SStop GRAY[] = {{0, {0, 0, 0}}, {1, {128, 128, 128}}, {2, {255, 255, 255}}};
constexpr SStop RGB_LINEAR[] = {{0, {0, 0, 255}},    {24, {0, 240, 255}}, {25, {0, 255, 255}},
                                {26, {0, 255, 240}}, {50, {0, 255, 0}},   {74, {240, 255, 0}},
                                {75, {255, 255, 0}}, {76, {255, 240, 0}}, {100, {255, 0, 0}}};

constexpr int ZEBRA_STRIPES = 20;

QVector<Rgb> FromStops(std::span<const SStop> stops)
{
    QVector<Rgb> controls;
    for (size_t n = 1; n < stops.size(); ++n) {
        const SStop &from = stops[n - 1], &to = stops[n];
        for (int nIndex = from.nIndex; nIndex < to.nIndex; ++nIndex) {
            const double dShare = double(nIndex - from.nIndex) / (to.nIndex - from.nIndex);
            Rgb color;
            for (int nChannel = 0; nChannel < 3; ++nChannel)
                color[nChannel] =
                    qRound(from.color[nChannel] + dShare * (to.color[nChannel] - from.color[nChannel]));
            controls.append(color);
        }
    }
    controls.append(stops.back().color);
    return controls;
}

QVector<Rgb> FromBytes(const QByteArray& bytes)
{
    const auto* const p = reinterpret_cast<const uchar*>(bytes.constData());
    QVector<Rgb> controls;
    for (int n = 0; n + 2 < bytes.size(); n += 3)
        controls.append({p[n], p[n + 1], p[n + 2]});
    return controls;
}

QVector<Rgb> Zebra()
{
    QVector<Rgb> controls;
    for (int n = 0; n < ZEBRA_STRIPES; ++n)
        controls.append(n % 2 == 0 ? Rgb{0, 0, 0} : Rgb{255, 255, 255});
    return controls;
}

/** The line between two neighbours, cut to an integer. */
int Between(const QVector<int>& channel, int nIndex, double dShare)
{
    return int((channel[nIndex + 1] - channel[nIndex]) * dShare + channel[nIndex]);
}

QByteArray Texels(const SColormap& map)
{
    QByteArray texels;
    texels.reserve(3 * SColormap::TEXELS);
    const int nLast = map.ControlCount() - 1;
    for (int n = 0; n < SColormap::TEXELS; ++n) {
        const double dPlace = n / double(SColormap::TEXELS - 1) * nLast;
        const int nIndex = std::min(int(dPlace), nLast - 1);
        for (const auto* const pChannel : {&map.red, &map.green, &map.blue})
            texels.append(char(Between(*pChannel, nIndex, dPlace - nIndex)));
    }
    return texels;
}

SColormap Make(const char* sName, const QVector<Rgb>& controls)
{
    SColormap map;
    map.sName = sName;
    for (const Rgb& color : controls) {
        map.red.append(color[0]);
        map.green.append(color[1]);
        map.blue.append(color[2]);
    }
    map.texels = Texels(map);
    return map;
}

} // namespace

const QVector<SColormap>& colormapTables()
{
    static const QVector<SColormap> s_tables = {
        Make("NASA1", FromStops(NASA1)),
        Make("NASA2", FromStops(NASA2)),
        Make("HSV", FromStops(HSV)),
        Make("JET", FromStops(JET)),
        Make("HOT", FromStops(HOT)),
        Make("RAINBOW", FromStops(RAINBOW)),
        Make("BTY", FromStops(BTY)),
        Make("BTC", FromStops(BTC)),
        Make("ZEBRA", Zebra()),
        Make("RED", FromStops(RED)),
        Make("GREEN", FromStops(GREEN)),
        Make("BLUE", FromStops(BLUE)),
        Make("GRAY", FromStops(GRAY)),
        Make("Magma", FromBytes(PerceptualMap::Magma())),
        Make("Inferno", FromBytes(PerceptualMap::Inferno())),
        Make("Plasma", FromBytes(PerceptualMap::Plasma())),
        Make("Viridis", FromBytes(PerceptualMap::Viridis())),
        Make("RGB LINEAR", FromStops(RGB_LINEAR)),
    };
    return s_tables;
}

const SColormap* FindColormap(qint32 nId)
{
    const QVector<SColormap>& tables = colormapTables();
    return nId >= 0 && nId < tables.size() ? &tables[nId] : nullptr;
}

QStringList ColormapNames()
{
    QStringList sNameList;
    for (const SColormap& map : colormapTables())
        sNameList.append(map.sName);
    return sNameList;
}

qint32 ColormapId(const QString& sName) { return ColormapNames().indexOf(sName); }

QColor colormapColor(const SColormapRecord& record, double dValue)
{
    const SColormap* const pMap = FindColormap(record.nId);
    if (!pMap)
        return {};
    const double dShare = (dValue - record.dMinimum) / record.Range();
    const double dInside = dShare > 0.0 ? std::min(dShare, 1.0) : 0.0; // a NaN counts as the minimum
    const double dPlace = (pMap->ControlCount() - 2) * (1.0 - dInside);
    const int nIndex = int(dPlace);
    return {Between(pMap->red, nIndex, dPlace - nIndex), Between(pMap->green, nIndex, dPlace - nIndex),
            Between(pMap->blue, nIndex, dPlace - nIndex)};
}

QGradientStops LegendStops(qint32 nId)
{
    const SColormap* const pMap = FindColormap(nId);
    QGradientStops stops;
    for (int n = 0; pMap && n < pMap->ControlCount(); ++n)
        stops.append(
            {double(n) / (pMap->ControlCount() - 1), pMap->ControlColor(pMap->ControlCount() - 1 - n)});
    return stops;
}
