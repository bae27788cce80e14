// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The start-up sequence on hives of every kind: the quantity tabs in alphabetical order with the
// last quantity chosen, the settings read, the problems reported (settings that are no numbers, a
// damaged or unwritable hive: each once, and the program runs on), the help that only the very
// first run opens, and the program's icons.
#include "catalogue/StringTable.h"
#include "support/DataRows.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/TestFiles.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <QTabBar>

class tst_Startup : public QObject
{
    Q_OBJECT

private slots:
    void startUp_data();
    void startUp();
    void unwritableHiveIsReportedOnce();
};

struct StartRow {
    const char *row;
    std::function<void(TestHive &)> fill; // none: the first run, no hive file yet
    QStringList tabs; // in this order among the tabs, the current one first
    QStringList messages; // each message in order: texts it holds, "|" between
    QString setting;
    QString value; // the setting once read
};
Q_DECLARE_METATYPE(StartRow)

void tst_Startup::startUp_data()
{
    const QString temperature = StringTable::text(3000);
    addRows<StartRow>({
        { "first run", {}, { "Length", "Mass", temperature }, {}, "numericformatting", "7" },
        { "quantities of the user's own, one switched off",
            [](TestHive &hive) {
                hive.writeSetting("StartOnce", "1");
                hive.writeSetting("currphysquan", "beta");
                for (const char *name : { "gamma", "Alpha", "beta", "Delta" })
                    hive.addQuantity(name, { { "unit", "x1" } });
                hive.write("User\\NewQuans\\Delta", "OnOff", "0");
            },
            { "beta", "Alpha", "gamma", temperature }, {}, "currphysquan", "beta" },
        { "settings that are no numbers",
            [=](TestHive &hive) {
                hive.writeSetting("StartOnce", "1");
                hive.writeSetting("confirm", "maybe");
                hive.writeSetting("numericformatting", "seven");
                hive.write("User\\OnOff\\" + temperature, "OnOff", "yes");
            },
            { "Length", temperature },
            { "Error # 13\n|\"yes\"", "Error # 13\n|\"maybe\" is stored for \"confirm\"",
                "Error # 13\n|\"seven\" is stored for \"numericformatting\"" },
            "confirm", "1" },
        { "damaged hive",
            [](TestHive &hive) {
                QVERIFY(putFile(hive.path(),
                    "Windows Registry Editor Version 5.00\n\n"
                    "[HKEY_CURRENT_USER\\Software\\Mensura\\settings]\n\"StartOnce\"=\"1\"\n"
                    "this line makes no sense\n\"tabs\"=\"1\"\n"));
            },
            { "Length" }, { "is damaged and could not be read|registry.reg.bad" }, "tabs", "1" },
    });
}

void tst_Startup::startUp()
{
    QFETCH(StartRow, row);
    const QStringList &messages = row.messages;
    TestHive testHive;
    ScriptedDialogs dialogs;
    if (row.fill)
        row.fill(testHive);
    for (int i = 0; i < messages.size(); ++i)
        dialogs.expectMessage();
    auto program = std::make_unique<TestProgram>(testHive, dialogs);
    QVERIFY(program->start());
    QVERIFY(QApplication::overrideCursor() == nullptr); // the busy pointer is gone

    for (int i = 0; i < messages.size(); ++i)
        for (const QString &part : messages[i].split(u'|'))
            QVERIFY2(
                dialogs.notices()[i].text.contains(part), qPrintable(dialogs.notices()[i].text));

    auto *tabBar = program->find<QTabBar *>("tabMain");
    QStringList names;
    for (int i = 0; i < tabBar->count(); ++i)
        names.append(tabBar->tabText(i));
    QCOMPARE(tabBar->tabText(tabBar->currentIndex()), row.tabs.first());
    QStringList ordered = row.tabs;
    std::sort(ordered.begin(), ordered.end(),
        [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    for (int i = 1; i < ordered.size(); ++i)
        QVERIFY2(names.indexOf(ordered[i - 1]) < names.indexOf(ordered[i]), qPrintable(ordered[i]));
    const Catalogue &catalogue = program->startup().catalogue();
    int enabled = 0;
    for (int q = 1; q <= catalogue.QuantityCount; ++q)
        enabled += catalogue.Quantities.at(q).enabled();
    QCOMPARE(names.size(), enabled);
    QVERIFY(!names.contains("Delta"));
    QCOMPARE(program->startup().settings().storedText(row.setting), row.value);

    // Only the very first run opens the help, and only once.
    QWidget *help = program->startup().firstRunHelp();
    QCOMPARE(bool(help), !row.fill);
    if (help) {
        QVERIFY(QTest::qWaitForWindowExposed(help));
        QVERIFY(testHive.readSetting("StartOnce").value_or("0") != "0");
        // The program's icon is drawn, not blank, at the sizes the desktop asks for (the
        // panels' icons: tst_frmMainLayout).
        for (const int extent : { 16, 32, 48 }) {
            const QImage image = QApplication::windowIcon().pixmap(extent).toImage();
            QCOMPARE(image.width(), extent);
            QImage blank(image.size(), image.format());
            blank.fill(Qt::transparent);
            QVERIFY(image != blank);
        }
        program = std::make_unique<TestProgram>(testHive, dialogs);
        QVERIFY(program->start());
        QVERIFY(!program->startup().firstRunHelp());
    }
    QCOMPARE(dialogs.asked().size(), messages.size());
}

void tst_Startup::unwritableHiveIsReportedOnce()
{
    // The hive's folder is a plain file: nothing can be read from it or saved to it.
    QTemporaryDir folder;
    QFile blocker(folder.filePath("settings"));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    const QString hive = blocker.fileName() + "/registry.reg";
    ScriptedDialogs dialogs;
    Startup startup({ "mensura", "--hive", hive }, dialogs);
    startup.setServerName(TestProgram::uniqueServerName());
    dialogs.expectMessage();
    QVERIFY(startup.run());
    QVERIFY(startup.window()->isVisible());
    // The first run's help is opened even though its being opened cannot be kept.
    QVERIFY(startup.firstRunHelp());
    QCOMPARE(dialogs.notices().constFirst().icon, Notice::Exclamation);
    QVERIFY(dialogs.notices().constFirst().text.startsWith(StringTable::text(5610).arg(hive)));
    // Closing saves again and fails again: no second message.
    QVERIFY(startup.window()->close());
    QCOMPARE(dialogs.asked().size(), 1);
}

MENSURA_GUI_TEST_MAIN(tst_Startup)
#include "tst_Startup.moc"
