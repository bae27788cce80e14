// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The main window's layout in both interface styles: at the smallest size the window allows,
// every control still gets the room it asks for and none lies on another; when the window
// grows, the two sides share the width and the lists take the height. Run also at 200 % scale.
#include "support/GuiTestMain.h"
#include "support/MainWindowFixture.h"

#include <QLabel>
#include <QLayout>
#include <QToolButton>

class tst_frmMainLayout : public QObject, MainWindowFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { tearDown(); }
    void nothingOverlapsAtMinimumSize_data();
    void nothingOverlapsAtMinimumSize();

private:
    void addWholeCatalogue();
    bool start(bool tabs);
    void resize(const QSize &size);
    void sidesShareTheWidth();
    void buttonRowsPage();
};

// The widest texts the window shows: long unit names, a long value and result.
void tst_frmMainLayout::init()
{
    setUp();
    const QString viscosity = QStringLiteral("Zeta Viscosity");
    m_hive->writeSetting(QStringLiteral("currphysquan"), viscosity);
    m_hive->writeSetting(
        QStringLiteral("currunit1"), QStringLiteral("square millimetre per second (mm²/s)"));
    m_hive->writeSetting(QStringLiteral("currunit2"), QStringLiteral("stokes (St)"));
    m_hive->writeSetting(QStringLiteral("currvalue"), QStringLiteral("123456789"));
    m_hive->writeSetting(QStringLiteral("numericformatting"), QStringLiteral("13"));
    m_hive->addQuantity(viscosity,
        { { QStringLiteral("square millimetre per second (mm²/s)"), QStringLiteral("x1") },
            { QStringLiteral("stokes (St)"), QStringLiteral("x100") },
            { QStringLiteral("square foot per second (ft²/s)"), QStringLiteral("x92903.04") } });
}

bool tst_frmMainLayout::start(bool tabs)
{
    m_hive->writeSetting(QStringLiteral("tabs"), tabs ? QStringLiteral("1") : QStringLiteral("0"));
    return m_program->start() && QTest::qWaitForWindowExposed(m_program->window());
}

void tst_frmMainLayout::resize(const QSize &size)
{
    m_program->window()->resize(size);
    m_program->window()->layout()->activate();
    QCoreApplication::processEvents();
}

void tst_frmMainLayout::nothingOverlapsAtMinimumSize_data()
{
    QTest::addColumn<bool>("tabs");
    QTest::addColumn<bool>("many");
    QTest::newRow("tabs") << true << false;
    QTest::newRow("buttons") << false << false;
    QTest::newRow("tabs for a whole catalogue") << true << true;
    QTest::newRow("buttons for a whole catalogue") << false << true;
}

void tst_frmMainLayout::addWholeCatalogue()
{
    // As many quantities as the built-in catalogue has, with names as long as its names.
    const char *names[] = { "Acceleration", "Angular Velocity", "Electric Field Strength", "Flow",
        "Magnetic Flux Density", "Coefficient of Heat Transfer" };
    for (int i = 0; i < 42; ++i)
        m_hive->addQuantity(QStringLiteral("Test %1 %2").arg(i).arg(QLatin1String(names[i % 6])),
            { { QStringLiteral("unit"), QStringLiteral("x1") } });
}

void tst_frmMainLayout::nothingOverlapsAtMinimumSize()
{
    QFETCH(bool, tabs);
    QFETCH(bool, many);
    if (many)
        addWholeCatalogue();
    QVERIFY(start(tabs));
    frmMain *window = m_program->window();
    // The explicit minimum size wins over the layout's: the layout must fit into it.
    const QSize needed = window->layout()->minimumSize();
    QCOMPARE(needed.boundedTo(window->minimumSize()), needed);
    resize(window->minimumSize());

    const char *names[] = { "tabMain", "lblUnitLeft", "lblUnitRight", "lblEqualSign", "txtLeft",
        "txtRight", "Shape1", "cmdIncreaseSigFigs", "cmdDecreaseSigFigs", "lstLeft", "lstRight",
        "StatusBarPanel1", "StatusBarPanel2", "StatusBarPanel3", "StatusBarPanel4" };
    QList<QPair<QString, QRect>> places;
    const QRect inside = window->rect();
    for (const char *name : names) {
        const QWidget *control = m_program->find<QWidget *>(name);
        const QRect place(control->mapTo(window, QPoint(0, 0)), control->size());
        QVERIFY2(inside.contains(place), name);
        // Labels must show all of their text; the rest at least what they cannot do without.
        const QSize wanted = qobject_cast<const QLabel *>(control) ? control->sizeHint()
            : control->minimumSize().isEmpty()                     ? control->minimumSizeHint()
                                                                   : control->minimumSize();
        QVERIFY2(place.size().expandedTo(wanted) == place.size(), name);
        for (const auto &[other, otherPlace] : places)
            QVERIFY2(!place.intersects(otherPlace), qPrintable(name + (" lies on " + other)));
        places.append({ QString::fromLatin1(name), place });
    }
    if (!many)
        sidesShareTheWidth();
    else if (!tabs)
        buttonRowsPage();
}

// When the window grows, the two sides share the width and the lists take the height, and the
// status panels have room for their icons.
void tst_frmMainLayout::sidesShareTheWidth()
{
    frmMain *window = m_program->window();
    auto *left = m_program->find<QListWidget *>("lstLeft");
    auto *right = m_program->find<QListWidget *>("lstRight");
    resize(window->minimumSize() + QSize(400, 300));
    QVERIFY(qAbs(left->width() - right->width()) <= 1);
    const int listHeight = left->height();
    const int valueHeight = m_program->find<QWidget *>("txtLeft")->height();
    // Higher, not wider: with the width the rows of quantity buttons stay as they are.
    resize(window->size() + QSize(0, 100));
    QVERIFY(qAbs(left->width() - right->width()) <= 1);
    QCOMPARE(left->height(), listHeight + 100);
    QCOMPARE(m_program->find<QWidget *>("txtLeft")->height(), valueHeight);
    // The icons are coloured; the panel's frame and text are not.
    for (const char *name : { "StatusBarPanel1", "StatusBarPanel2", "StatusBarPanel3" }) {
        auto *panel = m_program->find<StatusPanel *>(name);
        QVERIFY2(panel->showsIcon(), name);
        const QImage image = panel->grab().toImage();
        bool coloured = false;
        for (int y = 0; y < image.height() && !coloured; ++y)
            for (int x = 0; x < image.width() / 3 && !coloured; ++x) {
                const QColor c = image.pixelColor(x, y);
                coloured = qAbs(c.red() - c.blue()) > 60 || qAbs(c.red() - c.green()) > 60;
            }
        QVERIFY2(coloured, name);
    }
}

void tst_frmMainLayout::buttonRowsPage()
{
    frmMain *window = m_program->window();
    auto *bar = m_program->find<QuantityTabBar *>("tabMain");
    QVERIFY(bar->height() <= window->height() * 2 / 5);
    auto *down = m_program->find<QToolButton *>("tabMainRowDown");
    auto *up = m_program->find<QToolButton *>("tabMainRowUp");
    QVERIFY(down->isVisible());

    // Every quantity can be reached with the mouse: page down until its button shows.
    for (int i = bar->count() - 1; i >= 0; i -= 7) {
        while (bar->firstVisibleRow() > 0)
            QTest::mouseClick(up, Qt::LeftButton);
        while (bar->quantityRect(i).isEmpty() && down->isEnabled())
            QTest::mouseClick(down, Qt::LeftButton);
        const QRect place = bar->quantityRect(i);
        QVERIFY2(!place.isEmpty() && bar->rect().contains(place), qPrintable(bar->tabText(i)));
        QTest::mouseClick(bar, Qt::LeftButton, {}, place.center());
        QCOMPARE(bar->currentIndex(), i);
    }
    // The current quantity's row shows whatever moves it there.
    QTest::keyClick(m_program->find<QWidget *>("lstLeft"), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(!bar->quantityRect(bar->currentIndex()).isEmpty());

    // A window large enough shows every row without paging.
    resize(QSize(1600, 1200));
    QVERIFY(!down->isVisible());
    for (int i = 0; i < bar->count(); ++i)
        QVERIFY(!bar->quantityRect(i).isEmpty());
}

MENSURA_GUI_TEST_MAIN(tst_frmMainLayout)
#include "tst_frmMainLayout.moc"
