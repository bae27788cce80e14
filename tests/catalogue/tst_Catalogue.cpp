// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The built-in catalogue as loaded from the string table: its shape against the table of
// quantities in builtin_quantities.tsv, the invariants of every unit, and the on/off state.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

class tst_Catalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void quantities_data();
    void quantities();
    void everyUnitKeepsTheInvariants();
    void angleFactorsAreAsPublished();
    void temperatureHasNoFactors();
    void temperatureIntervalMarksItsExactUnits();
    void factorTexts_data();
    void factorTexts();
    void disabledEntriesComeFromTheStore();
    void onOffThatIsNoNumberIsReported();

private:
    QTemporaryDir m_dir;
    std::unique_ptr<SettingsStore> m_store;
    Catalogue m_catalogue;
};

void tst_Catalogue::init()
{
    const QString file = m_dir.filePath(QStringLiteral("registry.reg"));
    QFile::remove(file);
    m_store = std::make_unique<SettingsStore>(std::make_unique<HiveFile>(file));
    m_catalogue = Catalogue();
    m_catalogue.LoadCatalogue(*m_store);
}

void tst_Catalogue::quantities_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("units");
    QTest::addColumn<QString>("defaultUnit");
    QTest::addColumn<int>("exactMarks");
    QFile file(QStringLiteral(TEST_DATA_DIR "/builtin_quantities.tsv"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    int total = 0;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(u'#') || line.isEmpty())
            continue;
        const QStringList f = line.split(u'\t');
        QTest::newRow(qPrintable(f[1]))
            << f[0].toInt() << f[1] << f[2].toInt() << f[3] << f[4].toInt();
        total += f[2].toInt();
    }
    QCOMPARE(total, 514);
}

void tst_Catalogue::quantities()
{
    QFETCH(int, index);
    QFETCH(QString, name);
    QFETCH(int, units);
    QFETCH(QString, defaultUnit);
    QFETCH(int, exactMarks);
    QCOMPARE(m_catalogue.QuantityCount, 43);
    const PhysicalQuantity &q = m_catalogue.Quantities[index];
    QCOMPARE(q.Name, name);
    QCOMPARE(q.UnitCount, units);
    QCOMPARE(q.DefaultUnit, defaultUnit);
    QCOMPARE(q.OnOff, 1);
    QCOMPARE(q.Custom, 0);
    const int base = Catalogue::QuantityBase + 100 * index;
    int marks = 0, stars = 0;
    for (int j = 1; j <= units; ++j) {
        marks += StringTable::text(base + 50 + j).startsWith(u'x') ? 1 : 0;
        stars += StringTable::text(base + j).startsWith(u'*') ? 1 : 0;
    }
    QCOMPARE(marks, exactMarks);
    QCOMPARE(stars, 1);
    QVERIFY(!StringTable::contains(base + units + 1)); // no unit beyond the count
}

void tst_Catalogue::everyUnitKeepsTheInvariants()
{
    for (int q = 1; q <= m_catalogue.QuantityCount; ++q) {
        const PhysicalQuantity &quantity = m_catalogue.Quantities[q];
        const bool temperature = m_catalogue.isTemperature(q);
        QSet<QString> names;
        for (int j = 1; j <= quantity.UnitCount; ++j) {
            const UnitEntry &u = m_catalogue.Units[q][j];
            const QString where = quantity.Name + QStringLiteral(": ") + u.Name;
            QVERIFY2(!names.contains(u.Name), qPrintable(where + QStringLiteral(" twice")));
            names.insert(u.Name);
            QVERIFY2(!u.Name.isEmpty() && u.Name == u.Name.trimmed(), qPrintable(where));
            // The find dialog splits at "[", the conversions file at commas.
            QVERIFY2(!u.Name.contains(u'[') && !u.Name.contains(u','), qPrintable(where));
            QCOMPARE(u.OnOff, 1);
            QCOMPARE(u.Custom, 0);
            const bool isDefault = u.Name == quantity.DefaultUnit;
            const bool marked
                = StringTable::text(Catalogue::QuantityBase + 100 * q + 50 + j).startsWith(u'x');
            QVERIFY2(u.Exact == ((marked || isDefault) ? 1 : 0), qPrintable(where));
            if (temperature)
                continue;
            QVERIFY2(u.Factor > 0, qPrintable(where + QStringLiteral(" has no factor")));
            if (isDefault) {
                QCOMPARE(u.FactorText, QStringLiteral("1"));
                QCOMPARE(u.Factor, 1.0);
            }
            // An inexact factor is written with enough digits to be worth its figures.
            if (u.Exact == 0)
                QVERIFY2(u.FactorText.size() >= 6,
                    qPrintable(where + QStringLiteral(" ") + u.FactorText));
        }
    }
}

void tst_Catalogue::angleFactorsAreAsPublished()
{
    const int angle = m_catalogue.findQuantity(QStringLiteral("Angle"));
    QCOMPARE(angle, 2);
    const QStringList names = { "revolution (r)", "right angle (L)", "radian (rad)", "degree (°)",
        "minute (')", "second ('')", "grade (gra)", "mil" };
    const QStringList factors = { "6.28318530717959", "1.5707963267949", "1",
        "1.74532925199433E-02", "2.90888208665722E-04", "4.84813681109536E-06",
        "1.5707963267949E-2", "9.81747704246809E-04" };
    for (int j = 1; j <= 8; ++j) {
        QCOMPARE(m_catalogue.Units[angle][j].Name, names[j - 1]);
        QCOMPARE(m_catalogue.Units[angle][j].FactorText, factors[j - 1]);
        QCOMPARE(m_catalogue.Units[angle][j].Exact, j == 3 ? 1 : 0);
    }
}

void tst_Catalogue::temperatureHasNoFactors()
{
    const int q = m_catalogue.findQuantity(QStringLiteral("Temperature"));
    QCOMPARE(q, 26);
    QVERIFY(m_catalogue.isTemperature(q));
    const QStringList names = { "Celsius (°C)", "kelvin (K)", "Fahrenheit (°F)", "Rankine (°R)" };
    for (int j = 1; j <= 4; ++j) {
        const UnitEntry &u = m_catalogue.Units[q][j];
        QCOMPARE(u.Name, names[j - 1]);
        QCOMPARE(u.Factor, 0.0);
        QCOMPARE(u.FactorText, QString());
        QCOMPARE(u.Exact, j == 1 ? 1 : 0);
    }
}

void tst_Catalogue::temperatureIntervalMarksItsExactUnits()
{
    const int q = m_catalogue.findQuantity(QStringLiteral("Temperature Interval"));
    QCOMPARE(q, 43);
    const UnitEntry &celsius = m_catalogue.Units[q][1];
    QCOMPARE(celsius.Name, QStringLiteral("degree Celsius (°C)"));
    QCOMPARE(celsius.Factor, 1.0);
    QCOMPARE(celsius.Exact, 1);
    QCOMPARE(m_catalogue.Units[q][2].FactorText, QStringLiteral("5.5555555555555555555e-1"));
    QCOMPARE(m_catalogue.Units[q][2].Exact, 0);
    QCOMPARE(m_catalogue.Units[q][3].FactorText, QStringLiteral("5.5555555555555555555e-1"));
    const UnitEntry &kelvin = m_catalogue.Units[q][4];
    QCOMPARE(kelvin.Name, QStringLiteral("kelvin (K)"));
    QCOMPARE(kelvin.FactorText, QStringLiteral("1"));
    QCOMPARE(kelvin.Exact, 1);
}

void tst_Catalogue::factorTexts_data()
{
    QTest::addColumn<QString>("text"); // a factor text as the string table holds it
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("exact");
    QTest::newRow("exact with exponent") << "x1E4" << 1e4 << 1;
    QTest::newRow("per square inch") << "1.550003100006200E3" << 1550.0031000062 << 0;
    QTest::newRow("thermochemical Btu per second and square foot")
        << "11348.93179479260" << 11348.9317947926 << 0;
}

void tst_Catalogue::factorTexts()
{
    QFETCH(QString, text);
    QFETCH(double, factor);
    QFETCH(int, exact);
    // Find the unit whose factor text this is, and check how it was loaded.
    bool found = false;
    for (int q = 1; q <= m_catalogue.QuantityCount && !found; ++q) {
        for (int j = 1; j <= m_catalogue.Quantities[q].UnitCount; ++j) {
            if (StringTable::text(Catalogue::QuantityBase + 100 * q + 50 + j) != text)
                continue;
            const UnitEntry &u = m_catalogue.Units[q][j];
            QCOMPARE(u.Factor, factor);
            QCOMPARE(u.Exact, exact);
            QCOMPARE(u.FactorText, exact ? text.mid(1) : text);
            found = true;
            break;
        }
    }
    QVERIFY2(found, qPrintable(text + QStringLiteral(" is in no quantity")));
}

void tst_Catalogue::disabledEntriesComeFromTheStore()
{
    m_store->RegWriteString(
        QStringLiteral("User\\OnOff\\Length"), QStringLiteral("OnOff"), QStringLiteral("0"));
    const int length = m_catalogue.findQuantity(QStringLiteral("Length"));
    const QString second = m_catalogue.Units[length][2].Name;
    m_store->RegWriteString(QStringLiteral("User\\OnOff\\Length"), second, QStringLiteral("0"));
    const QString third = m_catalogue.Units[length][3].Name;
    m_store->RegWriteString(
        QStringLiteral("User\\OnOff\\Length"), third, QStringLiteral("2")); // not 1: disabled
    Catalogue reloaded;
    reloaded.LoadCatalogue(*m_store);
    QVERIFY(!reloaded.Quantities[length].enabled());
    QCOMPARE(reloaded.Units[length][2].OnOff, 0);
    QCOMPARE(reloaded.Units[length][3].OnOff, 2);
    const QStringList listed = reloaded.enabledUnitNames(length);
    QCOMPARE(listed.size(), 45);
    QVERIFY(!listed.contains(second));
    QVERIFY(!listed.contains(third));
    QCOMPARE(listed.first(), reloaded.Units[length][1].Name);
}

void tst_Catalogue::onOffThatIsNoNumberIsReported()
{
    m_store->RegWriteString(
        QStringLiteral("User\\OnOff\\Mass"), QStringLiteral("OnOff"), QStringLiteral("off"));
    Catalogue reloaded;
    QList<RuntimeError> problems;
    reloaded.LoadCatalogue(*m_store, &problems);
    QCOMPARE(problems.size(), 1);
    QCOMPARE(problems[0].number, int(RuntimeError::TypeMismatch));
    QVERIFY(problems[0].messageText().contains(QStringLiteral("off")));
    QVERIFY(reloaded.Quantities[reloaded.findQuantity(QStringLiteral("Mass"))].enabled());
}

QTEST_GUILESS_MAIN(tst_Catalogue)
#include "tst_Catalogue.moc"
