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
    void updateResult_data();
    void updateResult();
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
            unit(QStringLiteral("huge"), QStringLiteral("1E300")),
            unit(QStringLiteral("mile (mi)"), QStringLiteral("1609.344"), true) });
    addQuantity(QStringLiteral("Angle"),
        { unit(QStringLiteral("radian (rad)"), QStringLiteral("1"), true),
            unit(QStringLiteral("degree (°)"), QStringLiteral("1.74532925199433E-02")) });
    addQuantity(StringTable::text(3000),
        { unit(QStringLiteral("Celsius (°C)"), QString(), true),
            unit(QStringLiteral("kelvin (K)"), QString()),
            unit(QStringLiteral("Fahrenheit (°F)"), QString()),
            unit(QStringLiteral("Rankine (°R)"), QString()),
            unit(QStringLiteral("Réaumur"), QStringLiteral("1.25")) });
    addQuantity(QStringLiteral("Temperature Interval"),
        { unit(
              QStringLiteral("degree Fahrenheit (°F)"), QStringLiteral("5.5555555555555555555e-1")),
            unit(QStringLiteral("degree Rankine (°R)"), QStringLiteral("5.5555555555555555555e-1")),
            unit(QStringLiteral("kelvin (K)"), QStringLiteral("1"), true) });
}

void tst_ConversionEngine::convert_data()
{
    QTest::addColumn<int>("quantity");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("status");
    // Below absolute zero: the notice and what the value box's text becomes
    QTest::addColumn<QString>("entry");

    auto row = [](const char *name, int quantity, double value, const char *from, const char *to,
                   const char *text, const char *status = "Exact Factors  (Current: 7)",
                   const char *entry = "") {
        QTest::newRow(name) << quantity << value << QString::fromUtf8(from) << QString::fromUtf8(to)
                            << QString::fromUtf8(text) << QString::fromUtf8(status)
                            << QString::fromUtf8(entry);
    };
    const char *max13 = "Max: 13  (Current: 7)";
    row("metre to itself is exact", 1, 1, "metre (m)", "metre (m)", "1.000 000");
    row("inch to metre through exact factors", 1, 12, "inch (in)", "metre (m)", "0.304 800 0");
    row("metre to mile, a name of the same length and ends", 1, 1609.344, "metre (m)", "mile (mi)",
        "1.000 000");
    row("an inexact factor of three digits limits the figures", 1, 12, "rounded inch", "metre (m)",
        "0.305", "Max: 3  (Current: 7)");
    row("identical factor texts cancel", 1, 12, "rounded inch", "inch (in)", "12.000 00");
    row("divided by the target's factor", 1, 1, "metre (m)", "survey foot (ftUS)", "3.280 833",
        max13);
    row("degrees to radians", 2, 1, "degree (°)", "radian (rad)", "1.745 329 E-2", max13);
    row("unknown units give zero", 1, 5, "furlong", "league", "0.000 000 E+0");
    row("no current quantity gives zero", 0, 5, "metre (m)", "inch (in)", "0.000 000 E+0");
    row("Fahrenheit at absolute zero passes the guard", 3, -459.67, "Fahrenheit (°F)",
        "Celsius (°C)", "-273.150 0");
    row("kelvin to Fahrenheit", 3, 0, "kelvin (K)", "Fahrenheit (°F)", "-459.670 0");
    row("Celsius to Rankine", 3, 100, "Celsius (°C)", "Rankine (°R)", "671.670 0");
    row("Rankine to kelvin", 3, 491.67, "Rankine (°R)", "kelvin (K)", "273.150 0");
    row("Fahrenheit to Rankine", 3, 32, "Fahrenheit (°F)", "Rankine (°R)", "491.670 0");
    row("temperature to itself skips the guard", 3, -300, "Celsius (°C)", "Celsius (°C)",
        "-300.000 0");
    row("a unit of the user's in Temperature gives zero", 3, 25, "Celsius (°C)", "Réaumur",
        "0.000 000 E+0");
    row("degree Fahrenheit to degree Rankine is unchanged and exact", 4, 9,
        "degree Fahrenheit (°F)", "degree Rankine (°R)", "9.000 000");
    row("degree Fahrenheit to kelvin", 4, 9, "degree Fahrenheit (°F)", "kelvin (K)", "5.000 000",
        max13);
    row("Fahrenheit just below absolute zero", 3, -459.68, "Fahrenheit (°F)", "kelvin (K)",
        "0.000 000 E+0", "Exact Factors  (Current: 7)", "-459.67");
    row("Celsius below absolute zero", 3, -274, "Celsius (°C)", "kelvin (K)", "0.000 000 E+0",
        "Exact Factors  (Current: 7)", "-273.15");
    row("negative kelvin", 3, -1, "kelvin (K)", "Celsius (°C)", "-273.150 0",
        "Exact Factors  (Current: 7)", "0");
    row("negative Rankine", 3, -0.5, "Rankine (°R)", "Fahrenheit (°F)", "-459.670 0",
        "Exact Factors  (Current: 7)", "0");
}

void tst_ConversionEngine::convert()
{
    QFETCH(int, quantity);
    QFETCH(double, value);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, text);
    QFETCH(QString, status);
    QFETCH(QString, entry);
    m_catalogue.CurrentQuantity = quantity;
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    const ConversionResult result = engine.Convert(from, to, value);
    QCOMPARE(result.text, text);
    QCOMPARE(result.statusText.value_or(QString()), status);
    QCOMPARE(result.replacedEntry.value_or(QString()), entry);
    QCOMPARE(result.notices.size(), entry.isEmpty() ? 0 : 1);
    if (!entry.isEmpty())
        QCOMPARE(result.notices[0].text, StringTable::text(371));
}

// The update routine: the prompts while something is missing, the value read leniently, and
// what the arithmetic's failures become.
void tst_ConversionEngine::updateResult_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("markEnabled");
    QTest::addColumn<int>("icon"); // of the one notice, or -1 for none
    QTest::addColumn<QString>("message");

    auto row = [](const char *name, const char *left, const char *right, const char *value,
                   const QString &text, bool markEnabled, int icon = -1,
                   const QString &message = QString()) {
        QTest::newRow(name) << QString::fromUtf8(left) << QString::fromUtf8(right)
                            << QString::fromUtf8(value) << text << markEnabled << icon << message;
    };
    row("no value", "metre (m)", "inch (in)", "", StringTable::text(367), false);
    row("no units and no value", "", "", "", StringTable::text(367), false);
    row("no left unit", "", "inch (in)", "12", StringTable::text(368), false);
    row("no right unit", "metre (m)", "", "12", StringTable::text(368), false);
    row("everything there", "inch (in)", "metre (m)", "12", "0.304 800 0", true);
    row("value read leniently", "inch (in)", "metre (m)", "1 2abc", "0.304 800 0", true);
    row("text that is no number converts zero", "inch (in)", "metre (m)", "abc", "0.000 000 E+0",
        true);
    const QString tooBig = StringTable::text(28) + QStringLiteral("\n\n") + StringTable::text(321);
    row("a product beyond the double range", "huge", "metre (m)", "1E+308", "", true,
        Notice::Exclamation, tooBig);
    row("a typed value beyond the double range", "metre (m)", "inch (in)", "1e999", "", true,
        Notice::Exclamation, tooBig);
    row("a target factor of zero", "metre (m)", "nothing", "1", "", true, Notice::NoIcon,
        QStringLiteral("Division by zero"));
}

void tst_ConversionEngine::updateResult()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(QString, value);
    QFETCH(QString, text);
    QFETCH(bool, markEnabled);
    QFETCH(int, icon);
    QFETCH(QString, message);
    m_catalogue.CurrentQuantity = 1;
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    const ConversionResult result = engine.UpdateResult(left, right, value);
    QCOMPARE(result.text, text);
    QCOMPARE(result.markEnabled, markEnabled);
    QCOMPARE(result.notices.size(), icon < 0 ? 0 : 1);
    if (icon >= 0) {
        QCOMPARE(int(result.notices[0].icon), icon);
        QCOMPARE(result.notices[0].text, message);
    }
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
