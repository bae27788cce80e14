// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The start-up sequence on hives of every kind: the quantity tabs, the problems it reports
// (settings that are no numbers, a damaged or unwritable hive: each reported once, and the
// program runs on) and the help that the very first run opens.
#include "catalogue/StringTable.h"
#include "main/AppIcons.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <QListWidget>
#include <QTabBar>

class tst_Startup : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void quantitiesInAlphabeticalOrder();
    void settingsThatAreNoNumbers();
    void firstRunOpensTheHelpOnce();
    void unwritableHiveIsReportedOnce();
    void damagedHiveIsReported();
    void iconsAreBuiltIn_data();
    void iconsAreBuiltIn();

private:
    QStringList tabNames() const;

    std::unique_ptr<TestHive> m_hive;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    std::unique_ptr<TestProgram> m_program;
};

void tst_Startup::init()
{
    m_hive = std::make_unique<TestHive>();
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
}

void tst_Startup::cleanup()
{
    m_program.reset();
    m_dialogs.reset();
    m_hive.reset();
}

QStringList tst_Startup::tabNames() const
{
    QStringList names;
    auto *tabs = m_program->find<QTabBar *>("tabMain");
    for (int i = 0; tabs && i < tabs->count(); ++i)
        names.append(tabs->tabText(i));
    return names;
}

void tst_Startup::quantitiesInAlphabeticalOrder()
{
    m_hive->writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    m_hive->writeSetting(QStringLiteral("currphysquan"), QStringLiteral("beta"));
    for (const char *name : { "gamma", "Alpha", "beta", "Delta" })
        m_hive->addQuantity(
            QString::fromLatin1(name), { { QStringLiteral("unit"), QStringLiteral("x1") } });
    m_hive->write(
        QStringLiteral("User\\NewQuans\\Delta"), QStringLiteral("OnOff"), QStringLiteral("0"));
    QVERIFY(m_program->start());

    const QStringList names = tabNames();
    const Catalogue &catalogue = m_program->startup().catalogue();
    int enabled = 0;
    for (int q = 1; q <= catalogue.QuantityCount; ++q)
        enabled
            += catalogue.Quantities.at(q).enabled() && !catalogue.Quantities.at(q).Name.isEmpty();
    QCOMPARE(names.size(), enabled);
    QVERIFY(!names.contains(QStringLiteral("Delta")));
    // As people sort: small and capital letters alike.
    const QString temperature = StringTable::text(3000);
    QVERIFY(names.indexOf(QStringLiteral("Alpha")) < names.indexOf(QStringLiteral("beta")));
    QVERIFY(names.indexOf(QStringLiteral("beta")) < names.indexOf(QStringLiteral("gamma")));
    QVERIFY(names.indexOf(QStringLiteral("gamma")) < names.indexOf(temperature));

    auto *alphabet = m_program->find<QListWidget *>("lstAlphabet");
    QVERIFY(!alphabet->isVisible());
    QCOMPARE(alphabet->count(), names.size());
    QCOMPARE(
        names.at(m_program->find<QTabBar *>("tabMain")->currentIndex()), QStringLiteral("beta"));
    QVERIFY(QApplication::overrideCursor() == nullptr); // the busy pointer is gone
}

void tst_Startup::settingsThatAreNoNumbers()
{
    m_hive->writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    m_hive->writeSetting(QStringLiteral("confirm"), QStringLiteral("maybe"));
    m_hive->writeSetting(QStringLiteral("numericformatting"), QStringLiteral("seven"));
    m_hive->write(QStringLiteral("User\\OnOff\\") + StringTable::text(3000),
        QStringLiteral("OnOff"), QStringLiteral("yes"));
    for (int i = 0; i < 3; ++i)
        m_dialogs->expectMessage();
    QVERIFY(m_program->start());
    QVERIFY(m_dialogs->scriptDone());
    QStringList reported;
    for (const Notice &notice : m_dialogs->notices()) {
        QVERIFY2(notice.text.startsWith(StringTable::text(271) + QStringLiteral("13\n")),
            qPrintable(notice.text));
        reported.append(notice.text);
    }
    const QString all = reported.join(u'\n');
    QVERIFY(all.contains(QStringLiteral("maybe")));
    QVERIFY(all.contains(QStringLiteral("seven")));
    QVERIFY(all.contains(QStringLiteral("yes")));
    // The defaults stand in, and the quantity stays enabled.
    QVERIFY(m_program->startup().settings().ConfirmExit);
    QCOMPARE(m_program->startup().settings().SigFigs, 7);
    QVERIFY(tabNames().contains(StringTable::text(3000)));
}

void tst_Startup::firstRunOpensTheHelpOnce()
{
    QVERIFY(m_program->start());
    QWidget *help = m_program->startup().firstRunHelp();
    QVERIFY(help);
    QVERIFY(QTest::qWaitForWindowExposed(help));
    QCOMPARE(help->windowTitle(), StringTable::text(5620));
    QVERIFY(m_hive->readSetting(QStringLiteral("StartOnce")) != QStringLiteral("0"));
    QVERIFY(m_dialogs->asked().isEmpty());

    m_program = std::make_unique<TestProgram>(*m_hive, *m_dialogs);
    QVERIFY(m_program->start());
    QVERIFY(!m_program->startup().firstRunHelp());
}

void tst_Startup::unwritableHiveIsReportedOnce()
{
    // The hive's folder is a plain file: nothing can be read from it or saved to it.
    QTemporaryDir folder;
    const QString blocker = folder.filePath(QStringLiteral("settings"));
    QFile file(blocker);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const QString hive = blocker + QStringLiteral("/registry.reg");
    Startup startup({ QStringLiteral("mensura"), QStringLiteral("--hive"), hive }, *m_dialogs);
    startup.setServerName(TestProgram::uniqueServerName());
    m_dialogs->expectMessage();
    QVERIFY(startup.run());
    QVERIFY(startup.window()->isVisible());
    // The first run's help is opened even though its being opened cannot be kept.
    QVERIFY(startup.firstRunHelp());
    const Notice notice = m_dialogs->notices().constFirst();
    QCOMPARE(notice.icon, Notice::Exclamation);
    QVERIFY2(notice.text.startsWith(StringTable::text(5610).arg(hive)), qPrintable(notice.text));

    // Closing saves again and fails again: no second message.
    QVERIFY(startup.window()->close());
    QVERIFY(m_dialogs->scriptDone());
    QCOMPARE(m_dialogs->asked().size(), 1);
}

void tst_Startup::damagedHiveIsReported()
{
    QFile file(m_hive->path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\Mensura\\settings]\n"
        "\"StartOnce\"=\"1\"\nthis line makes no sense\n\"tabs\"=\"1\"\n");
    file.close();
    m_dialogs->expectMessage();
    QVERIFY(m_program->start());
    QVERIFY(m_dialogs->scriptDone());
    QCOMPARE(m_dialogs->notices().constFirst().text,
        StringTable::text(5612).arg(m_hive->path(), m_hive->path() + QStringLiteral(".bad")));
    // What could be read is used.
    QVERIFY(m_program->startup().settings().ShowTabs);
}

void tst_Startup::iconsAreBuiltIn_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("program") << QString();
    QTest::newRow("marked conversions panel") << "cardfileicon";
    QTest::newRow("mark panel") << "markicon";
    QTest::newRow("figures panel") << "calcicon";
}

void tst_Startup::iconsAreBuiltIn()
{
    QFETCH(QString, name);
    const QIcon icon = name.isEmpty() ? AppIcons::program() : AppIcons::panel(qPrintable(name));
    for (int extent : { 16, 32, 48 }) {
        const QImage image = icon.pixmap(QSize(extent, extent)).toImage();
        QVERIFY(!image.isNull());
        QCOMPARE(image.width(), extent);
        // Drawn, not blank: some pixel is not transparent.
        bool drawn = false;
        for (int y = 0; y < image.height() && !drawn; ++y)
            for (int x = 0; x < image.width() && !drawn; ++x)
                drawn = qAlpha(image.pixel(x, y)) > 0;
        QVERIFY(drawn);
    }
}

MENSURA_GUI_TEST_MAIN(tst_Startup)
#include "tst_Startup.moc"
