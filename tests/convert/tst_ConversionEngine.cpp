// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Converting through factors and through the temperature formulas, with the update routine's
// prompts and error handling. The catalogue is built here so that each case shows its factors.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/ConversionEngine.h"
#include "convert/NumberText.h"
#include "shell/Session.h"
#include "shell/Settings.h"

#include <QTest>

class tst_ConversionEngine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void convert_data();
    void convert();
    void temperatureBelowAbsoluteZero_data();
    void temperatureBelowAbsoluteZero();
    void arithmeticFailures_data();
    void arithmeticFailures();
    void updateResultPrompts_data();
    void updateResultPrompts();
    void skipNextUpdateSkipsOnce();

private:
    void addQuantity(const QString &name, const QList<UnitEntry> &units);
    static UnitEntry unit(const QString &name, const QString &factorText, bool exact = false);

    Catalogue m_catalogue;
    Settings m_settings;
    Session m_session;
};

UnitEntry tst_ConversionEngine::unit(const QString &name, const QString &factorText, bool exact)
{
    UnitEntry u;
    u.Name = name;
    u.FactorText = factorText;
    u.Factor = NumberText::leadingNumber(factorText);
    u.Exact = exact ? 1 : 0;
    return u;
}

void tst_ConversionEngine::addQuantity(const QString &name, const QList<UnitEntry> &units)
{
    m_catalogue.resize(m_catalogue.QuantityCount + 1);
    const int q = m_catalogue.QuantityCount;
    m_catalogue.Quantities[q].Name = name;
    m_catalogue.Quantities[q].UnitCount = int(units.size());
    for (int j = 0; j < units.size(); ++j)
        m_catalogue.Units[q][j + 1] = units[j];
}

void tst_ConversionEngine::init()
{
    m_catalogue = Catalogue();
    m_settings = Settings();
    m_session = Session();
    addQuantity(QStringLiteral("Length"),
        { unit(QStringLiteral("metre (m)"), QStringLiteral("1"), true),
            unit(QStringLiteral("inch (in)"), QStringLiteral("0.0254"), true),
            unit(QStringLiteral("rounded inch"), QStringLiteral("0.0254")),
            unit(QStringLiteral("survey foot (ftUS)"), QStringLiteral("0.3048006096012192")),
            unit(QStringLiteral("nothing"), QStringLiteral("0")),
            unit(QStringLiteral("huge"), QStringLiteral("1E300")) });
    addQuantity(QStringLiteral("Angle"),
        { unit(QStringLiteral("radian (rad)"), QStringLiteral("1"), true),
            unit(QStringLiteral("degree (°)"), QStringLiteral("1.74532925199433E-02")) });
    addQuantity(StringTable::text(3000),
        { unit(QStringLiteral("Celsius (°C)"), QString(), true),
            unit(QStringLiteral("kelvin (K)"), QString()),
            unit(QStringLiteral("Fahrenheit (°F)"), QString()),
            unit(QStringLiteral("Rankine (°R)"), QString()) });
    addQuantity(QStringLiteral("Temperature Interval"),
        { unit(
              QStringLiteral("degree Fahrenheit (°F)"), QStringLiteral("5.5555555555555555555e-1")),
            unit(QStringLiteral("degree Rankine (°R)"), QStringLiteral("5.5555555555555555555e-1")),
            unit(QStringLiteral("kelvin (K)"), QStringLiteral("1"), true) });
    for (auto &u : m_catalogue.Units[3])
        u.Factor = 0;
}

void tst_ConversionEngine::convert_data()
{
    QTest::addColumn<int>("quantity");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("status");

    QTest::newRow("metre to itself is exact") << 1 << 1.0 << "metre (m)"
                                              << "metre (m)"
                                              << "1.000 000"
                                              << "Exact Factors  (Current: 7)";
    QTest::newRow("inch to metre through exact factors") << 1 << 12.0 << "inch (in)"
                                                         << "metre (m)"
                                                         << "0.304 800 0"
                                                         << "Exact Factors  (Current: 7)";
    QTest::newRow("an inexact factor of three digits limits the figures")
        << 1 << 12.0 << "rounded inch"
        << "metre (m)"
        << "0.305"
        << "Max: 3  (Current: 7)";
    QTest::newRow("identical factor texts cancel") << 1 << 12.0 << "rounded inch"
                                                   << "inch (in)"
                                                   << "12.000 00"
                                                   << "Exact Factors  (Current: 7)";
    QTest::newRow("divided by the target's factor") << 1 << 1.0 << "metre (m)"
                                                    << "survey foot (ftUS)"
                                                    << "3.280 833"
                                                    << "Max: 13  (Current: 7)";
    QTest::newRow("degrees to radians") << 2 << 1.0 << "degree (°)"
                                        << "radian (rad)"
                                        << "1.745 329 E-2"
                                        << "Max: 13  (Current: 7)";
    QTest::newRow("unknown units give zero") << 1 << 5.0 << "furlong"
                                             << "league"
                                             << "0.000 000 E+0"
                                             << "Exact Factors  (Current: 7)";
    QTest::newRow("Fahrenheit at absolute zero passes the guard")
        << 3 << -459.67 << "Fahrenheit (°F)"
        << "Celsius (°C)"
        << "-273.150 0"
        << "Exact Factors  (Current: 7)";
    QTest::newRow("kelvin to Fahrenheit") << 3 << 0.0 << "kelvin (K)"
                                          << "Fahrenheit (°F)"
                                          << "-459.670 0"
                                          << "Exact Factors  (Current: 7)";
    QTest::newRow("Celsius to Rankine") << 3 << 100.0 << "Celsius (°C)"
                                        << "Rankine (°R)"
                                        << "671.670 0"
                                        << "Exact Factors  (Current: 7)";
    QTest::newRow("Rankine to kelvin") << 3 << 491.67 << "Rankine (°R)"
                                       << "kelvin (K)"
                                       << "273.150 0"
                                       << "Exact Factors  (Current: 7)";
    QTest::newRow("temperature to itself skips the guard") << 3 << -300.0 << "Celsius (°C)"
                                                           << "Celsius (°C)"
                                                           << "-300.000 0"
                                                           << "Exact Factors  (Current: 7)";
    QTest::newRow("a unit unknown to the formulas gives zero") << 3 << 25.0 << "Celsius (°C)"
                                                               << "Réaumur"
                                                               << "0.000 000 E+0"
                                                               << "Exact Factors  (Current: 7)";
    QTest::newRow("degree Fahrenheit to degree Rankine is unchanged and exact")
        << 4 << 9.0 << "degree Fahrenheit (°F)"
        << "degree Rankine (°R)"
        << "9.000 000"
        << "Exact Factors  (Current: 7)";
    QTest::newRow("degree Fahrenheit to kelvin") << 4 << 9.0 << "degree Fahrenheit (°F)"
                                                 << "kelvin (K)"
                                                 << "5.000 000"
                                                 << "Max: 13  (Current: 7)";
}

void tst_ConversionEngine::convert()
{
    QFETCH(int, quantity);
    QFETCH(double, value);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, text);
    QFETCH(QString, status);
    m_catalogue.CurrentQuantity = quantity;
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    const ConversionResult result = engine.Convert(from, to, value);
    QCOMPARE(result.text, text);
    QCOMPARE(result.statusText.value_or(QString()), status);
    QVERIFY(result.notices.isEmpty());
    QVERIFY(!result.replacedEntry);
}

void tst_ConversionEngine::temperatureBelowAbsoluteZero_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("text");
    QTest::newRow("Fahrenheit just below") << -459.68 << "Fahrenheit (°F)"
                                           << "kelvin (K)"
                                           << "-459.67"
                                           << "0.000 000 E+0";
    QTest::newRow("Celsius below") << -274.0 << "Celsius (°C)"
                                   << "kelvin (K)"
                                   << "-273.15"
                                   << "0.000 000 E+0";
    QTest::newRow("negative kelvin") << -1.0 << "kelvin (K)"
                                     << "Celsius (°C)"
                                     << "0"
                                     << "-273.150 0";
    QTest::newRow("negative Rankine") << -0.5 << "Rankine (°R)"
                                      << "Fahrenheit (°F)"
                                      << "0"
                                      << "-459.670 0";
}

void tst_ConversionEngine::temperatureBelowAbsoluteZero()
{
    QFETCH(double, value);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, entry);
    QFETCH(QString, text);
    m_catalogue.CurrentQuantity = 3;
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    const ConversionResult result = engine.Convert(from, to, value);
    QCOMPARE(result.notices.size(), 1);
    QCOMPARE(result.notices[0].text, StringTable::text(371));
    QCOMPARE(result.replacedEntry.value_or(QString()), entry);
    QCOMPARE(result.text, text); // converted from absolute zero
}

void tst_ConversionEngine::arithmeticFailures_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("icon");
    QTest::addColumn<QString>("message");
    const QString tooBig = StringTable::text(28) + QStringLiteral("\n\n") + StringTable::text(321);
    QTest::newRow("a product beyond the double range")
        << "1E+308"
        << "huge"
        << "metre (m)" << int(Notice::Exclamation) << tooBig;
    QTest::newRow("a typed value beyond the double range")
        << "1e999"
        << "metre (m)"
        << "inch (in)" << int(Notice::Exclamation) << tooBig;
    QTest::newRow("a target factor of zero")
        << "1"
        << "metre (m)"
        << "nothing" << int(Notice::NoIcon) << "Division by zero";
}

void tst_ConversionEngine::arithmeticFailures()
{
    QFETCH(QString, value);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(int, icon);
    QFETCH(QString, message);
    m_catalogue.CurrentQuantity = 1;
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    const ConversionResult result = engine.UpdateResult(from, to, value);
    QCOMPARE(result.text, QString());
    QCOMPARE(result.notices.size(), 1);
    QCOMPARE(int(result.notices[0].icon), icon);
    QCOMPARE(result.notices[0].text, message);
    QVERIFY(result.markEnabled);
}

void tst_ConversionEngine::updateResultPrompts_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("markEnabled");
    QTest::newRow("no value") << "metre (m)"
                              << "inch (in)"
                              << "" << StringTable::text(367) << false;
    QTest::newRow("no units and no value") << ""
                                           << ""
                                           << "" << StringTable::text(367) << false;
    QTest::newRow("no left unit") << ""
                                  << "inch (in)"
                                  << "12" << StringTable::text(368) << false;
    QTest::newRow("no right unit") << "metre (m)"
                                   << ""
                                   << "12" << StringTable::text(368) << false;
    QTest::newRow("everything there") << "inch (in)"
                                      << "metre (m)"
                                      << "12"
                                      << "0.304 800 0" << true;
    QTest::newRow("value read leniently") << "inch (in)"
                                          << "metre (m)"
                                          << "1 2abc"
                                          << "0.304 800 0" << true;
    QTest::newRow("text that is no number converts zero") << "inch (in)"
                                                          << "metre (m)"
                                                          << "abc"
                                                          << "0.000 000 E+0" << true;
}

void tst_ConversionEngine::updateResultPrompts()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(QString, value);
    QFETCH(QString, text);
    QFETCH(bool, markEnabled);
    m_catalogue.CurrentQuantity = 1;
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    const ConversionResult result = engine.UpdateResult(left, right, value);
    QCOMPARE(result.text, text);
    QCOMPARE(result.markEnabled, markEnabled);
}

void tst_ConversionEngine::skipNextUpdateSkipsOnce()
{
    m_catalogue.CurrentQuantity = 1;
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    m_session.SkipNextUpdate = true;
    const ConversionResult skipped = engine.UpdateResult(
        QStringLiteral("inch (in)"), QStringLiteral("metre (m)"), QStringLiteral("12"));
    QCOMPARE(skipped.text, QString());
    QVERIFY(skipped.markEnabled); // marking still follows the inputs
    QVERIFY(!m_session.SkipNextUpdate);
    const ConversionResult next = engine.UpdateResult(
        QStringLiteral("inch (in)"), QStringLiteral("metre (m)"), QStringLiteral("12"));
    QCOMPARE(next.text, QStringLiteral("0.304 800 0"));
}

QTEST_GUILESS_MAIN(tst_ConversionEngine)
#include "tst_ConversionEngine.moc"
