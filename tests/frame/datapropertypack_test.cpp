#include "frame/packs/bytestream.h"
#include "frame/packs/datapropertypack.h"

namespace {
class CSheet : public CDataPropertyPack
{
public:
    CSheet()
    {
        AddProperty({"Range", "Level", "Level", PropertySlider, 0.5});
        AddProperty({"Range", "Count", "Count", PropertySpinBox, 3});
        AddProperty({"Look", "Visible", "Visible", PropertyCheckBox, true});
    }
    void PropertyAboutToChange(QString sName) override { m_calls.append("before " + sName); }
    void PropertyChanged(QString sName, QString sKey) override { m_calls.append(sName + "." + sKey); }

    QStringList Names() const
    {
        QStringList names;
        for (const CDataProperty& row : Properties())
            names.append(row.Name());
        return names;
    }
    QStringList TakeCalls() { return std::exchange(m_calls, {}); }

private:
    QStringList m_calls;
};
} // namespace

TEST(Property, ARowKeepsItsDescriptionAndReadsItsValueByType)
{
    const CDataProperty row("Group", "Id", "Label", PropertyRangeSlider, QPointF(0.25, 8));
    EXPECT_EQ(row.Category() + row.Name() + row.Text(), "GroupIdLabel");
    EXPECT_EQ(row.Type(), PropertyRangeSlider);
    EXPECT_EQ(Get(row, PropertyKey::VALUE_RANGE), QPointF(0.25, 8));
    EXPECT_EQ(row.GetString("Value", ""), "0.25,8") << "a row is in text mode";
    EXPECT_EQ(CDataProperty().Type(), PropertyLabel);
    EXPECT_EQ(Get(CDataProperty("", "", "", PropertyLineEdit, "text"), PropertyKey::VALUE_TEXT), "text");
}

TEST(Property, AValueReadsAsItWasSetWhateverTheReadersDefault)
{
    CDataProperty row;
    for (const bool bValue : {true, false}) {
        row.SetValue(bValue);
        EXPECT_EQ(row.GetBool("Value", true), bValue);
        EXPECT_EQ(row.GetBool("Value", false), bValue);
    }
    row.SetValue(0);
    EXPECT_EQ(row.GetInt("Value", 7), 0);
    row.SetValue(QPoint(0, 1), "Range");
    EXPECT_EQ(row.GetPoint("Range", {5, 6}), QPoint(0, 1));
}

TEST(PropertySheet, ARowOfTheSameNameIsReplacedInItsPlace)
{
    CSheet sheet;
    sheet.AddProperty({"Range", "Count", "Number", PropertySpinBox, 9});
    EXPECT_EQ(sheet.Names(), QStringList({"Level", "Count", "Visible"}));
    EXPECT_EQ(sheet.FindProperty("Count").Text(), "Number");
}

TEST(PropertySheet, ALookUpThatFindsNothingGivesAnEmptyRow)
{
    CSheet sheet;
    sheet.FindProperty("None").SetValue(5);
    EXPECT_TRUE(sheet.FindProperty("None").IsEmpty());
    EXPECT_TRUE(std::as_const(sheet).FindProperty("None").IsEmpty());
    EXPECT_EQ(sheet.Names().size(), 3);
}

TEST(PropertySheet, OnlyAChangeIsReported)
{
    CSheet sheet;
    sheet.SetProperty("Level", 0.5);
    EXPECT_EQ(sheet.TakeCalls(), QStringList("before Level"));
    sheet.SetProperty("Level", 0.75);
    EXPECT_EQ(sheet.TakeCalls(), QStringList({"before Level", "Level.Value"}));
    EXPECT_EQ(Get(sheet.FindProperty("Level"), PropertyKey::VALUE_REAL), 0.75);
    sheet.SetProperty("Visible", true);
    sheet.SetProperty("Count", QPoint(0, 9), "Range");
    EXPECT_EQ(sheet.TakeCalls(), QStringList({"before Visible", "before Count", "Count.Range"}));
}

TEST(PropertySheet, AFileFillsTheRowsThatTheSheetHas)
{
    CSheet stored;
    stored.SetInt("#Key", 4, 0);
    stored.SetProperty("Count", 8);
    stored.AddProperty({"New", "Extra", "Extra", PropertyLabel});
    const QByteArray bytes = stored.ToBytes();

    CSheet sheet;
    sheet.SetProperty("Visible", false);
    ASSERT_TRUE(sheet.FromBytes(bytes, -1.0));
    EXPECT_EQ(sheet.Names(), QStringList({"Level", "Count", "Visible"})) << "Extra isn't a row of the sheet";
    EXPECT_EQ(Get(sheet.FindProperty("Count"), PropertyKey::VALUE_INT), 8);
    EXPECT_TRUE(Get(sheet.FindProperty("Visible"), PropertyKey::VALUE_CHECKED));
    EXPECT_EQ(sheet.GetInt("#Key", 0), 4);
}

TEST(PropertySheet, TheStreamIsTheBaseThenTheRows)
{
    CDataPropertyPack sheet;
    sheet.AddProperty(CDataProperty());
    CByteWriter expected;
    expected.Write(QByteArray(100, '\0')); // the empty base
    expected.Write(qint64(1));
    expected.Write(QByteArray(100, '\0'));
    EXPECT_EQ(sheet.ToBytes(), expected.Take());
}

TEST(PropertySheet, BadBytesAreRefusedAndLeaveWholeRows)
{
    CSheet stored;
    stored.SetProperty("Level", 0.75);
    const QByteArray bytes = stored.ToBytes();
    for (int nSize = 0; nSize < bytes.size(); ++nSize) {
        CSheet sheet;
        ASSERT_FALSE(sheet.FromBytes(bytes.left(nSize), -1.0)) << nSize << " bytes";
        ASSERT_EQ(sheet.Names(), QStringList({"Level", "Count", "Visible"}));
    }
    QByteArray huge = bytes;
    const int nCount = 4 + CDataPack().ToBytes().size();
    huge.replace(nCount, 8, QByteArray::fromHex("7fffffffffffffff"));
    CSheet sheet;
    EXPECT_FALSE(sheet.FromBytes(huge, -1.0));
}
