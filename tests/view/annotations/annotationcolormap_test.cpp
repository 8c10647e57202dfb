#include "view/annotations/annotationcolormap.h"

#include "data/variables/expressionvariable.h"
#include "data/variables/variablemanager.h"
#include "scene/selectablekeys.h"
#include "tests/support/shownselectable.h"
#include "view/annotations/icolormapeditor.h"
#include "view/annotations/legendtexts.h"
#include "view/colormaps/colormaptables.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

/** An item coloured by the variable "Mach", whose legend is on show. */
class Legend : public testing::Test
{
protected:
    Legend()
    {
        m_pVariable->SetName("Mach");
        m_pVariable->SetExpression("1", false, false);
        m_pItem = Add(KindFace);
        m_pDrawable = m_pItem->Show(m_pVariable->GetId());
        Annotation().setVisible(true);
    }
    ~Legend() override
    {
        CSelectableManager::Instance().RemovePair(1, 1);
        CVariableManager::Instance().RemoveVariable(m_pVariable->GetId());
    }

    CShownSelectable* Add(qint64 nTypeId)
    {
        auto* const pItem = new CShownSelectable(1, 1, 7);
        pItem->m_nTypeId = nTypeId;
        pItem->m_sName = "first column";
        CSelectableManager::Instance().Add(pItem);
        return pItem;
    }
    CAnnotationColormap& Annotation() { return *m_pDrawable->annotationColormap(); }
    template <class Edit> const SLegendLayout& Layout(Edit edit)
    {
        SLegendSettings settings = Annotation().settings();
        edit(settings);
        Annotation().setSettings(settings);
        Annotation().updateLayout();
        return Annotation().layout();
    }
    QImage Painted(double dScale = 1.0)
    {
        QImage image(int(400 * dScale), int(400 * dScale), QImage::Format_RGB32);
        image.fill(Qt::gray);
        QPainter painter(&image);
        Annotation().paint(&painter, {{400, 400}, dScale, Qt::gray});
        return image;
    }

    CExpressionVariable* m_pVariable = new CExpressionVariable(1, true);
    CShownSelectable* m_pItem;
    IDrawable* m_pDrawable;
};

} // namespace

TEST_F(Legend, NumbersStandBesideTheBarTheMinimumAtTheBottom)
{
    const SLegendLayout layout = Layout([](SLegendSettings& settings) { settings.nLabelCount = 3; });
    const int nHeight = QFontMetrics(OverlayFont()).height();
    const int nAhead = 2 * (nHeight + 8); // title and subtitle with their gaps
    const int nTop = 50 - nHeight / 2 + nAhead;
    EXPECT_EQ(Annotation().content().sLabelList, QStringList({"0.000", "0.500", "1.000"}));
    EXPECT_EQ(layout.colorbar, QRect(50, 50 + nAhead, 40, 200));
    EXPECT_EQ(layout.labels[0].topLeft(), QPoint(95, nTop + 200));
    EXPECT_EQ(layout.labels[1].topLeft(), QPoint(95, nTop + 100));
    EXPECT_EQ(layout.labels[2].topLeft(), QPoint(95, nTop));
    EXPECT_EQ(layout.size.height(), nHeight / 2 + 200 + nAhead);
    EXPECT_EQ(layout.frame, QRect(QPoint(50, 50), layout.size).adjusted(-5, -5, 5, 5));
}

TEST_F(Legend, OneNumberIsTheMeanInTheMiddleAndNoneTakesNoWidth)
{
    SLegendLayout layout = Layout([](SLegendSettings& settings) {
        settings.nLabelCount = 1;
        settings.title.bVisible = settings.subtitle.bVisible = false;
        settings.nFormat = LegendExponential;
        settings.nDigits = 1;
    });
    EXPECT_EQ(Annotation().content().sLabelList, QStringList{"5.0E-01"});
    EXPECT_NEAR(layout.labels[0].center().y(), layout.colorbar.center().y(), 1);
    EXPECT_EQ(layout.colorbar.topLeft(), QPoint(50, 50)); // nothing ahead of it
    layout = Layout([](SLegendSettings& settings) { settings.nLabelCount = 0; });
    EXPECT_TRUE(layout.labels.isEmpty());
    EXPECT_EQ(layout.size.width(), 40 + 5);
    layout = Layout([](SLegendSettings& settings) { settings.labels.bVisible = false; });
    EXPECT_EQ(layout.size, QSize(40, 200));
}

TEST_F(Legend, ADragMovesAllOfItAsALayoutWould)
{
    Painted();
    const SLegendLayout before = Annotation().layout();
    Annotation().setPosition({150, 30});
    EXPECT_FALSE(Annotation().hitTest({50, 51}));
    EXPECT_TRUE(Annotation().hitTest({150, 31}));
    const SLegendLayout moved = Annotation().layout();
    const SLegendLayout& anew = Layout([](SLegendSettings&) {});
    EXPECT_EQ(moved.labels, anew.labels);
    EXPECT_EQ(moved.frame, anew.frame);
    EXPECT_EQ(moved.colorbar, before.colorbar.translated(100, -20));
}

TEST_F(Legend, ItFollowsTheRangeAndTheVariableWithoutBeingTold)
{
    Painted();
    const int nNarrow = Annotation().size().width();
    m_pDrawable->setColormapValues(0.0, 1e12);
    m_pVariable->SetName("Mach number");
    Painted();
    EXPECT_GT(Annotation().size().width(), nNarrow);
    EXPECT_EQ(Annotation().content().sTitle, "Mach number");
}

TEST_F(Legend, ItSaysWhenNothingOnShowHasAValue)
{
    m_pDrawable->build();
    Painted();
    EXPECT_EQ(Annotation().content().sLabelList, QStringList("no values"));
    auto& surface = static_cast<CTestSurface&>(*m_pDrawable);
    surface.m_values = {1.0, 2.0, 3.0, NO_VALUE};
    surface.invalidateValues();
    surface.build();
    Painted();
    EXPECT_EQ(Annotation().content().sLabelList.size(), 2);
}

TEST_F(Legend, TheSubtitleSaysWhatTheItemIs)
{
    const auto Text = [&] { return AutomaticSubtitle(*m_pDrawable); };
    EXPECT_EQ(Text(), "first column");
    CShownSelectable* const pOther = Add(KindFace);
    EXPECT_EQ(Text(), "first column 1"); // two of the kind
    CSelectableManager::Instance().Remove(pOther);
    m_pItem->m_nTypeId = KindStreamline;
    EXPECT_EQ(Text(), "Streamline");
    m_pItem->m_nTypeId = KindCoordinateSurface;
    EXPECT_EQ(Text(), "Coordinate Surface");
    m_pItem->m_nTypeId = KindSurface;
    EXPECT_EQ(Text(), "Computational Surface");
    Set(*m_pItem, SelectableKey::COLUMN, 1, "zone 1");
    EXPECT_EQ(Text(), QString("Computational Surface \u2014 zone 1"));
    Set(*m_pItem, SelectableKey::COLUMN, 2, "K");
    Set(*m_pItem, SelectableKey::COLUMN, 3, "12");
    EXPECT_EQ(Text(), "zone 1 K=12");
    Set(*m_pItem, SelectableKey::COLUMN, 1, "");
    EXPECT_EQ(Text(), "K=12");
}

TEST_F(Legend, TheHighEndIsPaintedAtTheTopAtAnyScale)
{
    for (const double dScale : {1.0, 2.0}) {
        const QImage image = Painted(dScale);
        const QRect bar = Annotation().layout().colorbar;
        const auto At = [&](int nY) { return QColor(image.pixel(int(70 * dScale), int(nY * dScale))); };
        EXPECT_GT(At(bar.top() + 1).red(), 240);
        EXPECT_LT(At(bar.top() + 1).blue(), 15);
        EXPECT_GT(At(bar.bottom() - 1).blue(), 240);
        EXPECT_EQ(At(bar.bottom() + 8), QColor(Qt::gray));
    }
}

TEST_F(Legend, InAConstantColorThereIsNone)
{
    const QImage shown = Painted();
    EXPECT_TRUE(Annotation().hitTest({60, 60}));
    m_pDrawable->setGeometricColor(true);
    EXPECT_NE(Painted(), shown);
    EXPECT_EQ(QColor(Painted().pixel(70, 200)), QColor(Qt::gray));
    EXPECT_FALSE(Annotation().hitTest({60, 60}));
}

TEST_F(Legend, BothStoredFormsGiveItBackToAnotherDrawable)
{
    SLegendSettings settings;
    settings.title = {false, "T", QFont("Serif", 17), Qt::red};
    settings.subtitle.sText = "below";
    settings.labels.color = Qt::black; // chosen, not automatic
    settings.nLabelCount = 5;
    settings.nFormat = LegendExponential;
    settings.nDigits = 6;
    settings.colorbarSize = {30, 90};
    Annotation().setSettings(settings);
    Annotation().setBrush(QColor(1, 2, 3));
    Annotation().setBackgroundOutline(true);
    Annotation().setPosition({12, 34});

    CAnnotationColormap fromBytes, fromJson;
    fromBytes.setDrawableSerial(99);
    EXPECT_TRUE(fromBytes.fromBinary(Annotation().toBinary()));
    EXPECT_EQ(fromBytes.drawableSerial(), 99);
    fromJson.fromJson(Annotation().toJson());
    for (const CAnnotationColormap* const pRead : {&fromBytes, &fromJson}) {
        EXPECT_EQ(pRead->settings(), settings);
        EXPECT_TRUE(pRead->isVisible() && pRead->isBackgroundOutline());
        EXPECT_EQ(pRead->brush().color(), QColor(1, 2, 3));
        EXPECT_EQ(pRead->position(), QPoint(12, 34));
    }
}

TEST_F(Legend, ATextFindsTheColourThatStandsOutAndIsLargeEnough)
{
    EXPECT_EQ(ColorToReadOn(QColor(16, 56, 121)), QColor(Qt::white)); // the default background
    EXPECT_EQ(ColorToReadOn(QColor(240, 240, 240)), QColor(Qt::black));
    EXPECT_EQ(ColorToReadOn(QColor(0, 160, 0)), QColor(Qt::black)); // though dark by its mean
    QLinearGradient gradient(0, 0, 1, 0);
    gradient.setCoordinateMode(QGradient::ObjectBoundingMode);
    gradient.setColorAt(0.0, Qt::black);
    gradient.setColorAt(1.0, Qt::white);
    const SCanvas canvas{{400, 400}, 1.0, gradient};
    EXPECT_EQ(canvas.TextColor({}, QRectF(10, 10, 50, 20)), QColor(Qt::white));
    EXPECT_EQ(canvas.TextColor({}, QRectF(340, 10, 50, 20)), QColor(Qt::black));
    EXPECT_EQ(canvas.TextColor(Qt::red, QRectF(10, 10, 50, 20)), QColor(Qt::red));
    const SCanvas nothing{{400, 400}};
    EXPECT_EQ(nothing.TextColor({}, QRectF()), QColor(Qt::black));
    EXPECT_FALSE(Annotation().settings().title.color.isValid());
    EXPECT_GE(Annotation().settings().labels.font.pointSizeF(), 12.0);
}

TEST_F(Legend, FilesWithoutTheAutomaticColourHaveItWhereNobodyChose)
{
    QJsonObject json = Annotation().toJson();
    QJsonObject title = json["title"].toObject();
    title.remove("automaticColor");
    json["title"] = title;
    QJsonObject labels = title;
    labels["color"] = "#ff00ff00";
    json["labels"] = labels;
    SLegendSettings settings;
    settings.title.color = settings.labels.color = Qt::red;
    Annotation().setSettings(settings);
    Annotation().fromJson(json);
    EXPECT_FALSE(Annotation().settings().title.color.isValid());
    EXPECT_EQ(Annotation().settings().labels.color, QColor(Qt::green));

    settings.title.color = QColor(); // stored as black, with the word that it is automatic
    settings.labels.color = Qt::green;
    settings.subtitle.color = Qt::black;
    Annotation().setSettings(settings);
    const QByteArray bytes = Annotation().toBinary();
    CAnnotationColormap now, former;
    EXPECT_TRUE(now.fromBinary(bytes));
    EXPECT_EQ(now.settings(), settings);
    EXPECT_TRUE(former.fromBinary(bytes.left(bytes.size() - 3)));
    EXPECT_FALSE(former.settings().title.color.isValid());
    EXPECT_EQ(former.settings().labels.color, QColor(Qt::green));
}

TEST_F(Legend, BytesThatEndEarlyChangeNothing)
{
    const QByteArray bytes = Annotation().toBinary();
    for (int nSize = 0; nSize < bytes.size(); nSize += 7) {
        CAnnotationColormap legend;
        legend.setPosition({1, 2});
        EXPECT_FALSE(legend.fromBinary(bytes.left(nSize))) << nSize;
        EXPECT_EQ(legend.position(), QPoint(1, 2));
        EXPECT_EQ(legend.settings(), SLegendSettings());
    }
}

TEST_F(Legend, ADoubleClickSelectsTheItemAloneAndEditsIt)
{
    struct CEditor : IColormapEditor
    {
        bool EditColormap(qint64, qint64) override { return ++m_nCalls > 0; }
        int m_nCalls = 0;
    } editor;
    EXPECT_FALSE(Annotation().doubleClicked()); // nobody to edit with
    CShownSelectable* const pOther = Add(KindFace);
    pOther->setSelected(true);
    IColormapEditor* const pFormer = IColormapEditor::Install(&editor);
    EXPECT_TRUE(Annotation().doubleClicked());
    IColormapEditor::Install(pFormer);
    EXPECT_EQ(editor.m_nCalls, 1);
    EXPECT_TRUE(m_pItem->isSelected());
    EXPECT_FALSE(pOther->isSelected());
}

TEST_F(Legend, EachNumberIsPaintedBesideTheColourOfItsValue)
{
    m_pDrawable->setColormapValues(-2.0, 6.0);
    m_pDrawable->setColormapType(16);
    const SLegendLayout layout = Layout([](SLegendSettings& settings) {
        settings.nLabelCount = 5;
        settings.nDigits = 1;
    });
    const SLegendContent& content = Annotation().content();
    ASSERT_EQ(content.sLabelList, QStringList({"-2.0", "0.0", "2.0", "4.0", "6.0"}));
    const QImage image = Painted();
    const auto* const pTexels = reinterpret_cast<const uchar*>(FindColormap(16)->texels.constData());
    for (int n = 0; n < 5; ++n) {
        SCOPED_TRACE(content.sLabelList[n].toStdString());
        const QRect label = layout.labels[n];
        const int nY = std::clamp(label.center().y(), layout.colorbar.top(), layout.colorbar.bottom());
        const QColor beside = image.pixelColor(layout.colorbar.right() - 2, nY);
        const uchar* const pTexel = pTexels + 3 * int((content.sLabelList[n].toDouble() + 2.0) / 8.0 * 1023);
        EXPECT_NEAR(beside.red(), pTexel[0], 6);
        EXPECT_NEAR(beside.green(), pTexel[1], 6);
        EXPECT_NEAR(beside.blue(), pTexel[2], 6);
        // The number as the painter writes it, there and nowhere else.
        QImage expected(label.size(), QImage::Format_RGB32);
        expected.fill(Qt::gray);
        QPainter painter(&expected);
        painter.setFont(OverlayFont());
        painter.drawText(expected.rect(), Qt::AlignLeft | Qt::AlignVCenter, content.sLabelList[n]);
        painter.end();
        for (int y = 0; y < label.height(); ++y)
            for (int x = 0; x < label.width(); ++x)
                EXPECT_NEAR(qGray(image.pixel(label.topLeft() + QPoint(x, y))), qGray(expected.pixel(x, y)),
                            25);
    }
    EXPECT_EQ(image.pixelColor(layout.frame.right() + 10, 150), QColor(Qt::gray));
}
