#include "frame/packs/bytestream.h"
#include "frame/packs/datapack.h"

#include <QElapsedTimer>

#include <random>

namespace {
QByteArray Hex(const char* sDigits) { return QByteArray::fromHex(sDigits); }

/** A pack with an entry in each table, and a child. */
CDataPack MakeFullPack()
{
    QFont font("Ab", 12, QFont::Bold, true);
    font.setStyleName("Q");
    font.setStyleHint(QFont::Courier, QFont::NoAntialias);
    font.setUnderline(true);
    font.setKerning(false);
    font.setStretch(125);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 2.0);
    font.setWordSpacing(1.5);
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setCapitalization(QFont::SmallCaps);
    font.setFamilies({"Ab", "C"});

    CDataPack pack;
    pack.SetString("A", QString::fromUtf8("H\xc3\xa9"), "");
    pack.SetString("B", "", "x");
    pack.SetString("C", QString(), "x");
    pack.SetDouble("D", -1.5, 0.0);
    pack.SetInt("I", -2, 0);
    pack.SetBool("T", true, false);
    pack.SetBool("F", false, true);
    pack.SetPoint("P", {3, -4}, {});
    pack.SetPointF("Q", {0.5, 2.0}, {});
    pack.SetColor("K", QColor(255, 128, 0, 64), {});
    pack.SetFont("N", font, {});
    pack.SetIntList("L", {1, -1}, {});
    pack.SetIVector("U", {1, 2, 3}, {});
    pack.SetDVector("V", {0.25, 0.0, -2.0}, {});
    pack.SetStringList("M", {"x", ""}, {});
    pack.SetMatrix("W", DMatrix4x4::Translation({8.0, 0.0, 0.0}), {});
    pack.SetTransform("X", STransform(DMatrix4x4::Scaling({2.0, 1.0, 1.0})), {});
    pack.SetInt("Y.Z", 7, 0);
    return pack;
}

// Put together by hand from docs/formats/datapack.md. It must never change: files hold these bytes.
const QByteArray FULL_PACK =
    Hex("00000003 00000002 0041 00000002 0042 00000002 0043" // 1 string keys: "A", "B", "C"
        "00000003 00000004 004800e9 00000000 ffffffff"       // 2 string values: two letters, empty, null
        "00000001 00000002 0044"                             // 3 double keys: "D"
        "00000001 bff8000000000000"                          // 4 double values: -1.5
        "00000001 00000002 0049"                             // 5 integer keys: "I"
        "00000001 fffffffffffffffe"                          // 6 integer values: -2
        "00000002 00000002 0054 00000002 0046"               // 7 bool keys: "T", "F"
        "00000002 01 00"                                     // 8 bool values
        "00000001 00000002 0050"                             // 9 point keys: "P"
        "00000001 00000003 fffffffc"                         // 10 point values: 3, -4
        "00000001 00000002 0051"                             // 11 real point keys: "Q"
        "00000001 3fe0000000000000 4000000000000000"         // 12 real point values: 0.5, 2
        "00000001 00000002 004b"                             // 13 colour keys: "K"
        "00000001"                                           // 14 colour values: one
        "01 4040 ffff 8080 0000 0000"                        //    Rgb; alpha, red, green, blue; padding
        "00000001 00000002 004e"                             // 15 font keys: "N"
        "00000001"                                           // 16 font values: one
        "00000004 00410062"                                  //    family "Ab"
        "00000002 0051"                                      //    style name "Q"
        "4028000000000000 ffffffff"                          //    point size 12, pixel size -1 (unset)
        "02 0100 00"                                         //    hint Courier, strategy NoAntialias, a zero
        "4b 03"                                              //    weight 75; italic (1) and underline (2)
        "007d 03"                                  //    stretch; any pitch (1), absolute spacing (2)
        "00000080 00000060"                        //    letter, word spacing in 64ths
        "03 03"                                    //    PreferFullHinting; SmallCaps
        "00000002 00000004 00410062 00000002 0043" //    families "Ab", "C"
        "00000001 00000002 004c"                   // 17 integer list keys: "L"
        "00000001 00000002 0000000000000001 ffffffffffffffff" // 18 integer list values: 1, -1
        "00000001 00000002 004d"                              // 19 string list keys: "M"
        "00000001 00000002 00000002 0078 00000000"            // 20 string list values: "x", empty
        "00000001 00000002 0055"                              // 21 integer triple keys: "U"
        "0000000000000001 0000000000000002 0000000000000003"  // 22 integer triple values
        "00000001 00000002 0056"                              // 23 real triple keys: "V"
        "3fd0000000000000 0000000000000000 c000000000000000"  // 24 real triple values: 0.25, 0, -2
        "00000001 00000002 0057"                              // 25 matrix keys: "W"
        "3ff0000000000000 0000000000000000 0000000000000000 4020000000000000" // 26: 1 0 0 8
        "0000000000000000 3ff0000000000000 0000000000000000 0000000000000000"
        "0000000000000000 0000000000000000 3ff0000000000000 0000000000000000"
        "0000000000000000 0000000000000000 0000000000000000 3ff0000000000000"
        "00000001 00000002 0058"                                              // 27 transform keys: "X"
        "4000000000000000 0000000000000000 0000000000000000 0000000000000000" // 28: 2 0 0 0
        "0000000000000000 3ff0000000000000 0000000000000000 0000000000000000"
        "0000000000000000 0000000000000000 3ff0000000000000 0000000000000000"
        "0000000000000000 0000000000000000 0000000000000000 3ff0000000000000"
        "00000001 00000002 0059"                           // 29 child names: "Y"
        "00000072"                                         // 30 a child of 114 bytes:
        "00000000 00000000 00000000 00000000"              //    1 to 4
        "00000001 00000002 005a 00000001 0000000000000007" //    5, 6: "Z", 7
        "00000000 00000000 00000000 00000000 00000000"     //    7 to 11
        "00000000 00000000 00000000 00000000 00000000"     //    12 to 16
        "00000000 00000000 00000000 00000000"              //    17 to 20
        "00000000 00000000 00000000 00000000 00000000");   //    21, 23, 25, 27, 29
const QByteArray EMPTY_PACK = QByteArray(100, '\0');       // 25 counts of nothing

/** A pack that holds a pack that holds ... so many levels of children below the first. */
QByteArray NestedBytes(int nLevels)
{
    CByteWriter writer;
    for (int n = nLevels; n > 0; --n) {
        for (int nCount = 0; nCount < 24; ++nCount)
            writer.Write(qint32(0));
        writer.Write(QStringList("")); // the child's name
        writer.Write(qint32(108 * (n - 1) + EMPTY_PACK.size()));
    }
    return writer.Take() + EMPTY_PACK;
}

class CRandomPack
{
public:
    explicit CRandomPack(quint32 nSeed) : m_engine(nSeed) {}

    CDataPack Make()
    {
        CDataPack pack;
        for (int n = Below(60); n > 0; --n)
            WriteOne(pack);
        return pack;
    }

private:
    int Below(int nLimit) { return int(m_engine() % unsigned(nLimit)); }
    double Real() { return std::ldexp(double(m_engine()), Below(60) - 40); }
    QString Text() { return Below(9) == 0 ? QString() : QString(Below(5), QChar(Below(0x3000))); }
    QString Path()
    {
        return QStringList(QVector<QString>(1 + Below(3), "k").toList())
            .join(QString::number(Below(4)) + '.');
    }

    void WriteOne(CDataPack& pack)
    {
        const QString sPath = Path() + QString::number(Below(5));
        switch (Below(14)) {
        case 0:
            return pack.SetString(sPath, Text(), "");
        case 1:
            return pack.SetDouble(sPath, Real(), 0.0);
        case 2:
            return pack.SetInt(sPath, Below(3), 0);
        case 3:
            return pack.SetBool(sPath, Below(2), false);
        case 4:
            return pack.SetPoint(sPath, {Below(3), Below(9)}, {});
        case 5:
            return pack.SetPointF(sPath, {Real(), Real()}, {});
        case 6:
            return pack.SetColor(sPath, QColor::fromHsv(Below(360), Below(256), Below(256)), {});
        case 7:
            return pack.SetFont(sPath, QFont(Text(), 1 + Below(30)), {});
        case 8:
            return pack.SetIntList(sPath, QVector<qint64>(Below(4), Below(99)), {});
        case 9:
            return pack.SetStringList(sPath, {Text(), Text()}, {});
        case 10:
            return pack.SetIVector(sPath, {Below(3), 1, 2}, {});
        case 11:
            return pack.SetDVector(sPath, {Real(), Real(), Real()}, {});
        case 12:
            return pack.SetMatrix(sPath, DMatrix4x4::Scaling({Real(), Real(), Real()}), {});
        default:
            return pack.SetTransform(sPath, STransform(DMatrix4x4::Rotation(Below(3), Real())), {});
        }
    }

    std::mt19937 m_engine;
};
} // namespace

TEST(DataPackBytes, TheStreamIsWhatItAlwaysWas)
{
    EXPECT_EQ(MakeFullPack().ToBytes(), FULL_PACK);
    EXPECT_EQ(CDataPack().ToBytes(), EMPTY_PACK);
}

TEST(DataPackBytes, EveryChangeShowsInTheNextBytes)
{
    CDataPack other;
    other.SetInt("Other.Z", 1, 0);
    const std::function<void(CDataPack&)> changes[] = {
        [](CDataPack& p) { p.SetInt("I", 5, 0); },
        [](CDataPack& p) { p.SetInt("Y.Z", 8, 0); },
        [](CDataPack& p) { p.ClampInt("*.Z", 0, 3, 0); },
        [](CDataPack& p) { p.SetInt("Y.Z", 0, 0); },
        [](CDataPack& p) { p.SetInt("Y.1.A", 1, 0); },
        [](CDataPack& p) { p.ShiftSubPackIds("Y.*", 4); },
        [](CDataPack& p) { p.SetInt("Y.6.A", 1, 0), p.SetInt("Y.6.A", 2, 0); },
        [](CDataPack& p) { p.SwapSubPacks("Y", 0, 1, false); },
        [](CDataPack& p) { p.RemoveSubPack("Y.*"); },
        [](CDataPack& p) { p.AddSubPack("New"); },
        [](CDataPack& p) { p.PruneSubPack(p.SubPackNames("").indexOf("New")); },
        [&](CDataPack& p) { p.SetSubPack("Y.Sub", other); },
        [](CDataPack& p) { p.SetInt("Y.Sub.Other.Z", 2, 0); },
        [&](CDataPack& p) { p.Assign(other); },
        [](CDataPack& p) { p = MakeFullPack(); },
        [&](CDataPack& p) { p.FromBytes(other.ToBytes(), -1.0); },
    };
    other.ToBytes();
    CDataPack pack = MakeFullPack();
    for (size_t n = 0; n < std::size(changes); ++n) {
        const QByteArray before = pack.ToBytes();
        changes[n](pack);
        CDataPack fresh; // knows nothing of former bytes
        ASSERT_TRUE(fresh.FromBytes(pack.ToBytes(), -1.0));
        EXPECT_NE(pack.ToBytes(), before) << "change " << n;
        EXPECT_EQ(fresh.GetInt("Y.Z", 0), pack.GetInt("Y.Z", 0)) << "change " << n;
    }
}

TEST(DataPackBytes, EveryTableReadsBack)
{
    CDataPack pack;
    pack.SetInt("Old.Key", 1, 0);
    ASSERT_TRUE(pack.FromBytes(FULL_PACK, 2.5));
    EXPECT_EQ(pack.ToBytes(), FULL_PACK) << "values, order of keys, and nothing of what was there before";
    EXPECT_TRUE(pack.GetString("C", "x").isNull());
    EXPECT_FALSE(pack.GetString("B", "x").isNull());
    EXPECT_EQ(pack.GetColor("K", {}), QColor(255, 128, 0, 64));
    EXPECT_EQ(pack.GetFont("N", {}), MakeFullPack().GetFont("N", {}));
    EXPECT_EQ(pack.GetTransform("X", {}).FloatMatrix().map(QVector3D(1, 1, 1)), QVector3D(2, 1, 1));
    EXPECT_EQ(pack.GetInt("Y.Z", 0), 7);
    EXPECT_EQ(pack.GetSubPack("Y").GetParent(), &pack);
    ASSERT_TRUE(pack.FromBytes(EMPTY_PACK, -1.0));
    EXPECT_TRUE(pack.IsEmpty());
}

TEST(DataPackBytes, RandomPacksReadBackByteForByte)
{
    CRandomPack random(20260101);
    for (int n = 0; n < 500; ++n) {
        const QByteArray bytes = random.Make().ToBytes();
        CDataPack pack;
        ASSERT_TRUE(pack.FromBytes(bytes, -1.0)) << "pack " << n;
        ASSERT_EQ(pack.ToBytes(), bytes) << "pack " << n;
    }
}

TEST(DataPackBytes, WhatEndsEarlyIsRefusedAtEveryLengthAndKeepsWhatWasRead)
{
    CDataPack pack;
    for (int nSize = 0; nSize < FULL_PACK.size(); ++nSize) {
        const QByteArray exact(FULL_PACK.constData(), nSize);
        ASSERT_FALSE(pack.FromBytes(exact, -1.0)) << nSize << " bytes";
        ASSERT_NE(pack.ToBytes(), FULL_PACK);
    }
    EXPECT_EQ(pack.GetTransform("X", {}).Matrix(), DMatrix4x4::Scaling({2.0, 1.0, 1.0}));

    ASSERT_FALSE(pack.FromBytes(FULL_PACK.left(40), -1.0)); // within the third string value
    EXPECT_EQ(pack.GetString("A", ""), QString::fromUtf8("H\xc3\xa9"));
    EXPECT_EQ(pack.GetString("C", "x"), "x") << "a key without its value isn't kept";
}

TEST(DataPackBytes, NumbersThatCanNotBeAreSurvivedAtEveryPlace)
{
    for (const char* sNumber : {"7fffffff", "ffffffff", "80000000", "3fffffff", "00000010"}) {
        for (int nPlace = 0; nPlace + 4 <= FULL_PACK.size(); ++nPlace) {
            QByteArray bytes = FULL_PACK;
            bytes.replace(nPlace, 4, Hex(sNumber));
            CDataPack pack;
            CDataPack again;
            const bool bRead = pack.FromBytes(bytes, -1.0);
            ASSERT_EQ(again.FromBytes(pack.ToBytes(), -1.0) || !bRead, true) << sNumber << " at " << nPlace;
        }
    }
}

TEST(DataPackBytes, CountsThatTheBytesCanNotHoldAreRefused)
{
    for (const char* sCount : {"7fffffff", "ffffffff", "80000000", "00000200"}) {
        for (int nField = 0; nField < 25; ++nField) {
            QByteArray bytes = EMPTY_PACK;
            bytes.replace(4 * nField, 4, Hex(sCount));
            EXPECT_FALSE(CDataPack().FromBytes(bytes, -1.0)) << sCount << " as count " << nField;
        }
    }
}

TEST(DataPackBytes, MoreValuesThanKeysAreRefused)
{
    QByteArray bytes = EMPTY_PACK;
    bytes.replace(4, 4, Hex("00000001 00000000"));
    EXPECT_FALSE(CDataPack().FromBytes(bytes, -1.0));
}

TEST(DataPackBytes, AnyByteButZeroIsTrue)
{
    QByteArray bytes = FULL_PACK;
    const int nPlace = bytes.indexOf(Hex("00000002 0100")) + 4;
    bytes[nPlace] = char(0x80);
    CDataPack pack;
    ASSERT_TRUE(pack.FromBytes(bytes, -1.0));
    EXPECT_EQ(pack.ToBytes(), FULL_PACK);
}

TEST(DataPackBytes, AColourOfNoKindIsRefused)
{
    QByteArray bytes = FULL_PACK;
    bytes[bytes.indexOf(Hex("014040"))] = 6;
    EXPECT_FALSE(CDataPack().FromBytes(bytes, -1.0));
}

TEST(DataPackBytes, NestingHasALimitAndIsRefusedQuicklyBeyondIt)
{
    CDataPack pack;
    EXPECT_TRUE(pack.FromBytes(NestedBytes(200), -1.0));
    EXPECT_EQ(pack.ToBytes(), NestedBytes(200));
    EXPECT_FALSE(pack.FromBytes(NestedBytes(201), -1.0));
    EXPECT_FALSE(pack.FromBytes(NestedBytes(100000), -1.0)); // would end the stack, or copy for hours
}

TEST(DataPackBytes, TheBytesMayDieAfterReading)
{
    CDataPack pack;
    {
        QByteArray bytes = FULL_PACK;
        bytes.detach();
        ASSERT_TRUE(pack.FromBytes(QByteArray::fromRawData(bytes.constData(), bytes.size()), -1.0));
        bytes.fill('\xaa');
    }
    EXPECT_EQ(pack.ToBytes(), FULL_PACK);
}

TEST(ByteStream, TheWriterAgreesWithQtsStream)
{
    QByteArray expected;
    QDataStream stream(&expected, QIODevice::WriteOnly);
    PrepareStream(stream);
    stream << true << qint32(-5) << (qint64(1) << 40) << 0.1 << QString("\u00e9x") << QString()
           << QByteArray("ab") << QByteArray() << QByteArray("") << QStringList({"a", ""}) << QPoint(1, -2)
           << QFont("F", 7);
    CByteWriter writer;
    writer.Write(true);
    writer.Write(qint32(-5));
    writer.Write((qint64(1) << 40));
    writer.Write(0.1);
    writer.Write(QString("\u00e9x"));
    writer.Write(QString());
    writer.Write(QByteArray("ab"));
    writer.Write(QByteArray());
    writer.Write(QByteArray(""));
    writer.Write(QStringList({"a", ""}));
    writer.Write(QPoint(1, -2));
    writer.Write(QFont("F", 7));
    EXPECT_EQ(writer.Take(), expected);
}
