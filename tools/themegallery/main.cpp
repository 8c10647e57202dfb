// themegallery THEME PICTURE [menu|icons]: saves a picture of all kinds of widgets, in all their states, as
// they look in a theme (0 to 3); or of an open menu, or of every icon. For looking at a style sheet while
// working on it.
#include "frame/themeicon.h"
#include "window/stylesheets.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QSlider>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

namespace {

QIcon Icon(const QString& sName) { return ThemeIcon(":/Icons/" + sName); }

template <class T> T* Disabled(T* pWidget)
{
    pWidget->setEnabled(false);
    return pWidget;
}

QMenu* DisplayMenu(QWidget* pParent)
{
    QMenu* const pMenu = new QMenu("Display", pParent);
    pMenu->addAction(Icon("display-shade.ico"), "Shaded");
    pMenu->addAction(Icon("display-wire.ico"), "Wireframe")->setShortcut(QKeySequence("Ctrl+W"));
    pMenu->addAction(Icon("contour.png"), "Contour")->setEnabled(false);
    QAction* const pMask = pMenu->addAction(Icon("mask.png"), "Toggle Masks");
    pMask->setCheckable(true);
    pMask->setChecked(true);
    pMenu->addSeparator();
    for (const bool bChecked : {true, false}) {
        QAction* const pAction = pMenu->addAction(bChecked ? "Checked" : "Not checked");
        pAction->setCheckable(true);
        pAction->setChecked(bChecked);
    }
    QActionGroup* const pGroup = new QActionGroup(pMenu);
    for (const char* const sText : {"One of two", "The other"}) {
        QAction* const pAction = pGroup->addAction(sText);
        pAction->setCheckable(true);
        pAction->setChecked(pGroup->actions().size() == 1);
        pMenu->addAction(pAction);
    }
    pMenu->addMenu("Mirror")->addAction("Mirror About X-Axis");
    return pMenu;
}

QToolButton* MenuButton(const QString& sIcon, QToolButton::ToolButtonPopupMode eMode, QWidget* pParent)
{
    QToolButton* const pButton = new QToolButton(pParent);
    pButton->setIcon(Icon(sIcon));
    pButton->setPopupMode(eMode);
    pButton->setMenu(DisplayMenu(pButton));
    return pButton;
}

void AddToolBars(QMainWindow& window)
{
    QToolBar* const pFiles = window.addToolBar("File Toolbar");
    for (const char* const sIcon : {"New.png", "Browse.png", "save.png", "Import.png", "Export.png"})
        pFiles->addAction(Icon(sIcon), sIcon);
    pFiles->addSeparator();
    pFiles->addAction(Icon("undo.png"), "Undo");
    pFiles->addAction(Icon("redo.png"), "Redo")->setEnabled(false);
    pFiles->addAction(Icon("Delete.png"), "Delete");
    QToolBar* const pDisplay = window.addToolBar("Display Toolbar");
    pDisplay->addWidget(MenuButton("display-shadewire.ico", QToolButton::MenuButtonPopup, pDisplay));
    pDisplay->addWidget(MenuButton("axes_always.svg", QToolButton::InstantPopup, pDisplay));
    pDisplay->addWidget(Disabled(MenuButton("holes_show.png", QToolButton::MenuButtonPopup, pDisplay)));
    QAction* const pMask = pDisplay->addAction(Icon("mask.png"), "Mask");
    pMask->setCheckable(true);
    pMask->setChecked(true);
    pDisplay->addWidget(new QLabel("Scalar: "));
    QComboBox* const pScalar = new QComboBox;
    pScalar->addItems({"M[Q]", "P[Q]"});
    pScalar->setEditable(true);
    pDisplay->addWidget(pScalar);
    QToolBar* const pMirror = new QToolBar("Mirror Toolbar");
    window.addToolBar(Qt::LeftToolBarArea, pMirror);
    pMirror->addAction(Icon("mirror.png"), "Mirror");
    pMirror->addSeparator();
    pMirror->addAction("Text only");
    pMirror->addWidget(MenuButton("visible.png", QToolButton::MenuButtonPopup, pMirror));
    QToolBar* const pCameras = window.addToolBar("Camera Toolbar");
    for (int n = 1; n <= 9; ++n)
        pCameras->addAction(Icon(QString("camera%1.ico").arg(n)), "Camera");
    for (const char* const sIcon :
         {"x+.ico", "x-.ico", "y+.ico", "y-.ico", "z+.ico", "z-.ico", "plus_90.png"})
        pCameras->addAction(Icon(sIcon), sIcon);
}

QTreeWidgetItem* TreeItem(const QString& sText, const QString& sIcon, const QString& sValue)
{
    QTreeWidgetItem* const pItem = new QTreeWidgetItem({sText, sValue});
    pItem->setIcon(0, Icon(sIcon));
    return pItem;
}

QTreeWidget* Tree()
{
    QTreeWidget* const pTree = new QTreeWidget;
    pTree->setObjectName("tree");
    pTree->setHeaderLabels({"Item", "Value"});
    pTree->setAlternatingRowColors(true);
    pTree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const char* const sGroup : {"A Surfaces", "B Zones", "C Streamlines"}) {
        QTreeWidgetItem* const pGroup = TreeItem(sGroup, "surface.png", "group");
        for (int n = 0; n < 3; ++n) {
            QTreeWidgetItem* const pItem = TreeItem(QString("wing %1").arg(n), "zone.png", "65 x 33 x 49");
            pItem->setCheckState(0, Qt::CheckState(n));
            pGroup->addChild(pItem);
        }
        pTree->addTopLevelItem(pGroup);
        pGroup->setDisabled(*sGroup == 'B');
    }
    pTree->setSortingEnabled(true);
    pTree->sortItems(0, Qt::AscendingOrder);
    pTree->expandItem(pTree->topLevelItem(0));
    pTree->setColumnWidth(0, 220);
    pTree->topLevelItem(0)->child(1)->setSelected(true);
    pTree->topLevelItem(2)->setSelected(true);
    pTree->topLevelItem(0)->child(2)->setForeground(
        1, pTree->palette().brush(QPalette::Disabled, QPalette::Text));
    return pTree;
}

QTableWidget* Table()
{
    QTableWidget* const pTable = new QTableWidget(5, 3);
    pTable->setHorizontalHeaderLabels({"X", "Y", "Pressure"});
    pTable->setAlternatingRowColors(true);
    for (int nRow = 0; nRow < 5; ++nRow)
        for (int nColumn = 0; nColumn < 3; ++nColumn)
            pTable->setItem(nRow, nColumn, new QTableWidgetItem(QString::number(nRow * 0.125 + nColumn)));
    pTable->item(2, 1)->setSelected(true);
    pTable->setCellWidget(3, 2, new QDoubleSpinBox);
    pTable->item(4, 0)->setFlags(Qt::NoItemFlags);
    return pTable;
}

QListWidget* List()
{
    QListWidget* const pList = new QListWidget;
    for (const char* const sIcon :
         {"nodes.png", "cellcenter.png", "const.png", "warning.png", "time.png", "flux.png"})
        pList->addItem(new QListWidgetItem(Icon(sIcon), sIcon));
    for (int n = 0; n < 20; ++n)
        pList->addItem(QString("a variable with a long name, number %1, for the scroll bars").arg(n));
    pList->setCurrentRow(1);
    pList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    pList->setTextElideMode(Qt::ElideNone);
    return pList;
}

QWidget* Fields()
{
    QWidget* const pPage = new QWidget;
    QFormLayout* const pForm = new QFormLayout(pPage);
    QLineEdit* const pEmpty = new QLineEdit;
    pEmpty->setPlaceholderText("Filter");
    QLineEdit* const pFixed = new QLineEdit("read only");
    pFixed->setReadOnly(true);
    QLineEdit* const pFocus = new QLineEdit("with the focus");
    pFocus->setObjectName("focus");
    QComboBox* const pChoice = new QComboBox;
    pChoice->addItems({"-Multiple-", "Roe"});
    QComboBox* const pNoChoice = new QComboBox;
    pNoChoice->addItem("not now");
    pForm->addRow("Name", new QLineEdit("wing"));
    pForm->addRow("Focus", pFocus);
    pForm->addRow("Empty", pEmpty);
    pForm->addRow("Fixed", pFixed);
    pForm->addRow("Disabled", Disabled(new QLineEdit("disabled")));
    pForm->addRow("Number", new QDoubleSpinBox);
    pForm->addRow("Disabled", Disabled(new QSpinBox));
    pForm->addRow("Choice", pChoice);
    pForm->addRow("Disabled", Disabled(pNoChoice));
    pForm->addRow("Text", new QPlainTextEdit("<P0[Q]> / <Pinf>"));
    pForm->addRow("", new QLabel("<a href=\"x\">a link</a> and plain text"));
    return pPage;
}

void AddChecks(QGridLayout* pGrid)
{
    for (int nState = 0; nState < 3; ++nState) {
        for (const bool bEnabled : {true, false}) {
            QCheckBox* const pBox = new QCheckBox(bEnabled ? "Check" : "Disabled");
            pBox->setTristate(true);
            pBox->setCheckState(Qt::CheckState(nState));
            pBox->setEnabled(bEnabled);
            pGrid->addWidget(pBox, nState, bEnabled ? 0 : 1);
        }
    }
    for (const bool bEnabled : {true, false}) {
        for (const bool bChecked : {true, false}) {
            QRadioButton* const pButton = new QRadioButton(bEnabled ? "Radio" : "Disabled");
            pButton->setAutoExclusive(false);
            pButton->setChecked(bChecked);
            pButton->setEnabled(bEnabled);
            pGrid->addWidget(pButton, bChecked ? 3 : 4, bEnabled ? 0 : 1);
        }
    }
}

QWidget* Controls()
{
    QWidget* const pPage = new QWidget;
    QVBoxLayout* const pLayout = new QVBoxLayout(pPage);
    QGroupBox* const pChecks = new QGroupBox("Group");
    AddChecks(new QGridLayout(pChecks));
    pLayout->addWidget(pChecks);
    QGroupBox* const pSliders = new QGroupBox("Group with a box");
    pSliders->setCheckable(true);
    QVBoxLayout* const pInner = new QVBoxLayout(pSliders);
    for (const bool bEnabled : {true, false}) {
        QSlider* const pSlider = new QSlider(Qt::Horizontal);
        pSlider->setValue(60);
        pSlider->setEnabled(bEnabled);
        pInner->addWidget(pSlider);
    }
    QSlider* const pUpright = new QSlider(Qt::Vertical);
    pUpright->setValue(30);
    pInner->addWidget(pUpright);
    QProgressBar* const pBar = new QProgressBar;
    pBar->setValue(45);
    pInner->addWidget(pBar);
    pLayout->addWidget(pSliders);
    QPushButton* const pFlat = new QPushButton(Icon("pick.png"), "Flat");
    pFlat->setFlat(true);
    QPushButton* const pIcon = new QPushButton(Icon("upload.png"), "Upload");
    QHBoxLayout* const pRow = new QHBoxLayout;
    pRow->addWidget(pIcon);
    pRow->addWidget(pFlat);
    pRow->addWidget(Disabled(new QPushButton(Icon("camera.png"), "Disabled")));
    pLayout->addLayout(pRow);
    QDialogButtonBox* const pButtons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel);
    pButtons->button(QDialogButtonBox::Ok)->setDefault(true);
    pLayout->addWidget(pButtons);
    pLayout->addStretch();
    return pPage;
}

QTabWidget* Tabs(QTabWidget::TabPosition ePosition)
{
    QTabWidget* const pTabs = new QTabWidget;
    pTabs->setTabPosition(ePosition);
    pTabs->setTabsClosable(ePosition == QTabWidget::North);
    pTabs->addTab(Tree(), Icon("analyze.png"), "wing.zento");
    pTabs->addTab(List(), "Second");
    pTabs->addTab(new QWidget, "Third");
    pTabs->setTabEnabled(2, false);
    return pTabs;
}

QDockWidget* AddDock(QMainWindow& window, const QString& sTitle, Qt::DockWidgetArea eArea, QWidget* pContents)
{
    QDockWidget* const pDock = new QDockWidget(sTitle, &window);
    pDock->setWidget(pContents);
    window.addDockWidget(eArea, pDock);
    return pDock;
}

void FillWindow(QMainWindow& window)
{
    window.setWindowTitle("Zento");
    window.menuBar()->addMenu("File")->addAction("Exit");
    window.menuBar()->addMenu(DisplayMenu(&window));
    window.menuBar()->addAction("Disabled")->setEnabled(false);
    AddToolBars(window);
    QSplitter* const pSplitter = new QSplitter(Qt::Vertical);
    pSplitter->addWidget(Tabs(QTabWidget::North));
    pSplitter->addWidget(Tabs(QTabWidget::South));
    pSplitter->addWidget(Table());
    window.setCentralWidget(pSplitter);
    AddDock(window, "Simulations' Items", Qt::LeftDockWidgetArea, Fields());
    AddDock(window, "Display", Qt::RightDockWidgetArea, Controls());
    QDockWidget* const pVariables = AddDock(window, "Variables", Qt::RightDockWidgetArea, List());
    window.tabifyDockWidget(AddDock(window, "Mask", Qt::RightDockWidgetArea, new QLabel("Mask")), pVariables);
    window.statusBar()->showMessage("65 x 33 x 49 points");
    window.resize(1180, 860);
}

QStringList IconNames()
{
    QStringList names;
    QFile file(ZENTO_SOURCE "/resources/icons/icons.txt");
    file.open(QIODevice::ReadOnly);
    while (!file.atEnd()) {
        const QString sLine = QString::fromUtf8(file.readLine()).simplified();
        if (!sLine.isEmpty() && !sLine.startsWith('#'))
            names.append(sLine.section(' ', 0, 0));
    }
    return names;
}

/** Each icon on the window's background: at 24, 16, 24 disabled, and selected on the highlight. */
QPixmap IconSheet()
{
    constexpr int COLUMNS = 14, CELL_X = 104, CELL_Y = 34;
    const QStringList names = IconNames();
    const qreal dRatio = qApp->devicePixelRatio();
    QPixmap sheet(QSize(COLUMNS * CELL_X, (names.size() / COLUMNS + 1) * CELL_Y) * dRatio);
    sheet.setDevicePixelRatio(dRatio);
    sheet.fill(QApplication::palette().color(QPalette::Window));
    QPainter painter(&sheet);
    for (int n = 0; n < names.size(); ++n) {
        const QPoint corner(n % COLUMNS * CELL_X + 4, n / COLUMNS * CELL_Y + 4);
        const QIcon icon = Icon(names[n]);
        icon.paint(&painter, QRect(corner, QSize(24, 24)));
        icon.paint(&painter, QRect(corner + QPoint(28, 4), QSize(16, 16)));
        icon.paint(&painter, QRect(corner + QPoint(48, 0), QSize(24, 24)), Qt::AlignCenter, QIcon::Disabled);
        const QRect selected(corner + QPoint(76, 2), QSize(20, 20));
        painter.fillRect(selected, QApplication::palette().highlight());
        icon.paint(&painter, selected.adjusted(2, 2, -2, -2), Qt::AlignCenter, QIcon::Selected);
    }
    return sheet;
}

QPixmap MenuPicture(QMainWindow& window)
{
    QMenu* const pMenu = DisplayMenu(&window);
    pMenu->popup(window.mapToGlobal(QPoint(40, 60)));
    pMenu->setActiveAction(pMenu->actions()[1]);
    QApplication::processEvents();
    return pMenu->grab();
}

QPixmap DialogPicture(QMainWindow& window)
{
    QMessageBox box(QMessageBox::Question, "Periodic Mirror", "This may slow down rendering. Proceed anyway?",
                    QMessageBox::Yes | QMessageBox::No, &window);
    box.setDefaultButton(QMessageBox::No);
    box.show();
    QApplication::processEvents();
    return box.grab();
}

QPixmap Picture(QMainWindow& window, const QString& sKind)
{
    if (sKind == "icons")
        return IconSheet();
    if (sKind == "menu")
        return MenuPicture(window);
    return sKind == "dialog" ? DialogPicture(window) : window.grab();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    if (argc < 3)
        return 1;
    const int nTheme = QByteArray(argv[1]).toInt();
    const QString sKind = QString::fromLocal8Bit(argc > 3 ? argv[3] : "");
    ApplyThemeColors(nTheme);
    QMainWindow window;
    FillWindow(window);
    window.setStyleSheet(LoadStyleSheets("").value(nTheme));
    window.show();
    window.findChild<QWidget*>(sKind == "tree" ? "tree" : "focus")->setFocus();
    QPixmap picture;
    QTimer::singleShot(500, [&] {
        picture = Picture(window, sKind);
        application.quit();
    });
    application.exec();
    return picture.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
