// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "support/MainWindowFixture.h"

#include "catalogue/Catalogue.h"

const QString MainWindowFixture::Lengths = QStringLiteral("Zeta Length");
const QString MainWindowFixture::Masses = QStringLiteral("Zeta Mass");

void MainWindowFixture::setUp()
{
    m_hive = std::make_unique<TestHive>();
    m_hive->writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    m_hive->writeSetting(QStringLiteral("triads"), QStringLiteral("0"));
    m_hive->writeSetting(QStringLiteral("currphysquan"), Lengths);
    m_hive->addQuantity(Lengths,
        { { QStringLiteral("metre"), QStringLiteral("x1") },
            { QStringLiteral("foot"), QStringLiteral("x0.3048") },
            { QStringLiteral("inch"), QStringLiteral("x0.0254") },
            { QStringLiteral("rod"), QStringLiteral("5.0292") } });
    m_hive->addQuantity(Masses,
        { { QStringLiteral("kilogram"), QStringLiteral("x1") },
            { QStringLiteral("pound"), QStringLiteral("x0.45359237") },
            { QStringLiteral("gram"), QStringLiteral("x1E-3") } });
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
}

void MainWindowFixture::tearDown()
{
    const bool done = m_dialogs->scriptDone();
    m_program.reset();
    m_dialogs.reset();
    m_hive.reset();
    QVERIFY2(done, "a dialog the test scripted was not shown");
}

bool MainWindowFixture::start()
{
    if (!m_program->start() || !QTest::qWaitForWindowExposed(m_program->window()))
        return false;
    m_program->window()->activateWindow();
    return QTest::qWaitForWindowActive(m_program->window());
}

bool MainWindowFixture::restart()
{
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
    return start();
}

StatusPanel *MainWindowFixture::panel(int n) const
{
    const QByteArray name = "StatusBarPanel" + QByteArray::number(n);
    return m_program->find<StatusPanel *>(name.constData());
}

QString MainWindowFixture::selected(const QListWidget *list)
{
    const auto items = list->selectedItems();
    return items.isEmpty() ? QString() : items.first()->text();
}

QString MainWindowFixture::currentQuantity() const
{
    const Catalogue &catalogue = m_program->startup().catalogue();
    return catalogue.CurrentQuantity > 0 ? catalogue.Quantities.at(catalogue.CurrentQuantity).Name
                                         : QString();
}

void MainWindowFixture::typeValue(const QString &typed)
{
    QLineEdit *edit = value()->lineEdit();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, typed);
}

void MainWindowFixture::clickUnit(QListWidget *list, const QString &unit)
{
    const QList<QListWidgetItem *> items = list->findItems(unit, Qt::MatchExactly);
    QVERIFY2(!items.isEmpty(), qPrintable(unit));
    QTest::mouseClick(
        list->viewport(), Qt::LeftButton, {}, list->visualItemRect(items.first()).center());
}

void MainWindowFixture::clickTab(const QString &quantity)
{
    QuantityTabBar *bar = tabs();
    for (int i = 0; i < bar->count(); ++i) {
        if (bar->tabText(i) == quantity) {
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->quantityRect(i).center());
            QCOMPARE(bar->currentIndex(), i);
            return;
        }
    }
    QFAIL(qPrintable(QStringLiteral("no tab ") + quantity));
}

void MainWindowFixture::showFeetInInches(const QString &typed)
{
    clickTab(Lengths);
    typeValue(typed);
    clickUnit(left(), QStringLiteral("foot"));
    clickUnit(right(), QStringLiteral("inch"));
}
