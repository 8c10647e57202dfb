// The base of the docks of packs: what several items share in its fields, and how its edits reach them.
#include "simulation/panel/packdock.h"
#include "tests/support/simulationfixture.h"

#include <QTest>

namespace {

namespace TestKey {
inline constexpr SKey<qint64> COUNT{"Test.Count", 3};
inline constexpr SKey<double> WIDTH{"Test.Width", 1.5};
inline constexpr SKey<bool> ACTIVE{"Test.Active", false};
inline constexpr SKey<qint64> SHAPE{"Test.Shape", 0};
inline constexpr SKey<const char*> TITLE{"Test.Title", ""};
} // namespace TestKey

/** A dock of one field of each kind; it can't edit items of type 9. */
class CFieldsDock : public CPackDock
{
public:
    CFieldsDock()
    {
        m_shape.addItems({"plate", "rod"});
        connect(&m_count, QOverload<int>::of(&QSpinBox::valueChanged), this,
                [this] { Store(&m_count, TestKey::COUNT); });
        connect(&m_width, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                [this] { Store(&m_width, TestKey::WIDTH); });
        connect(&m_active, &QCheckBox::stateChanged, this, [this] { Store(&m_active, TestKey::ACTIVE); });
        connect(&m_shape, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                [this] { Store(&m_shape, TestKey::SHAPE); });
        connect(&m_title, &QLineEdit::editingFinished, this, [this] { Store(&m_title, TestKey::TITLE); });
    }
    bool CanEdit(const ISelectable& selectable) const override { return selectable.typeId() != 9; }
    void Fill() override
    {
        ++m_nFills;
        Show(&m_count, TestKey::COUNT);
        Show(&m_width, TestKey::WIDTH);
        Show(&m_active, TestKey::ACTIVE);
        Show(&m_shape, TestKey::SHAPE);
        Show(&m_title, TestKey::TITLE);
    }

    QSpinBox m_count;
    QDoubleSpinBox m_width;
    QCheckBox m_active;
    QComboBox m_shape;
    QLineEdit m_title;
    int m_nFills = 0;
};

class PackDock : public SimulationFixture
{
protected:
    PackDock()
    {
        for (int n = 0; n < 2; ++n) {
            m_items.append(m_pSimulation->Make());
            m_shown.append(new CTestSelectable(1, m_pSimulation->GetId(), m_items[n]->GetId()));
            CSelectableManager::Instance().Add(m_shown[n]);
        }
        m_dock.SlotSelectableDoubleClicked(m_shown);
    }

    CTestSimulation* const m_pSimulation = Add();
    QVector<CItem*> m_items;
    QVector<ISelectable*> m_shown;
    CFieldsDock m_dock;
};

} // namespace

TEST_F(PackDock, FieldsShowWhatItemsShareAndStoreForAllInOneStep)
{
    EXPECT_FALSE(m_dock.isHidden());
    EXPECT_EQ(m_dock.m_count.text(), "3");
    const QByteArray former = m_pSimulation->CaptureState();
    Set(*m_items[0], TestKey::COUNT, 0);
    Set(*m_items[0], TestKey::WIDTH, 7.0);
    Set(*m_items[0], TestKey::ACTIVE, true);
    Set(*m_items[0], TestKey::SHAPE, 1);
    Set(*m_items[0], TestKey::TITLE, "left");
    m_dock.SlotRefreshAll();
    EXPECT_EQ(m_dock.m_count.text(), MULTIPLE);
    EXPECT_EQ(m_dock.m_width.text(), MULTIPLE);
    EXPECT_EQ(m_dock.m_active.checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(m_dock.m_shape.currentIndex(), -1);
    EXPECT_EQ(m_dock.m_title.placeholderText(), MULTIPLE);
    emit m_dock.m_title.editingFinished();
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 0) << "showing and leaving a field is no edit";

    m_dock.m_count.setValue(0); // the least of its range, which the mixed state stands below
    m_dock.m_width.setValue(2.5);
    m_dock.m_active.click();
    m_dock.m_shape.setCurrentIndex(1);
    QTest::keyClicks(&m_dock.m_title, "both");
    emit m_dock.m_title.editingFinished();
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 5);
    for (const CItem* const pItem : m_items) {
        EXPECT_EQ(Get(*pItem, TestKey::COUNT), 0);
        EXPECT_EQ(Get(*pItem, TestKey::WIDTH), 2.5);
        EXPECT_TRUE(Get(*pItem, TestKey::ACTIVE));
        EXPECT_EQ(Get(*pItem, TestKey::SHAPE), 1);
        EXPECT_EQ(Get(*pItem, TestKey::TITLE), "both");
    }
    EXPECT_EQ(m_dock.m_count.text(), "0");
    EXPECT_EQ(m_dock.m_count.minimum(), 0) << "its own range is back";
    EXPECT_NE(m_pSimulation->CaptureState(), former);
}

TEST_F(PackDock, ManyChangesCostOneLookAndTheLastOneThatGoesHidesIt)
{
    const int nFills = m_dock.m_nFills;
    for (int n = 0; n < 100; ++n)
        m_dock.SlotSelectableChanged(m_shown[n % 2]);
    EXPECT_EQ(m_dock.m_nFills, nFills);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_dock.m_nFills, nFills + 1);
    m_dock.SlotSelectableDeleted(m_shown[0]);
    EXPECT_FALSE(m_dock.isHidden());
    m_dock.SlotSelectableDeleted(m_shown[1]);
    EXPECT_TRUE(m_dock.isHidden());
    Set(*m_items[0], TestKey::COUNT, 8);
    m_dock.SetSelectables({m_shown[0]});
    m_dock.hide();
    Set(*m_items[0], TestKey::COUNT, 9); // nobody tells a hidden dock
    m_dock.show();
    EXPECT_EQ(m_dock.m_count.text(), "9");
}

TEST_F(PackDock, OnlyWhatItCanEditAndIsOfOneCaseIsShown)
{
    CTestSelectable other(1, m_pSimulation->GetId(), 1), foreign(1, m_pSimulation->GetId() + 1, 1);
    other.m_nTypeId = 9;
    m_dock.SetSelectables({&other, m_shown[1], &foreign, m_shown[1], m_shown[0]});
    EXPECT_EQ(m_dock.GetSelectables(), (QVector<ISelectable*>{m_shown[1], m_shown[0]}));
}
