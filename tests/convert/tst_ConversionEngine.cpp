// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Converting through factors and through the temperature formulas (the cases are in
// conversions.tsv), with the update routine's prompts and error handling. The catalogue is
// built here so that each case shows its factors.
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/ConversionEngine.h"
#include "convert/NumberText.h"
#include "shell/Session.h"
#include "shell/Settings.h"

#include "support/DataRows.h"
#include "TestTable.h"

class tst_ConversionEngine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void convert_data();
    void convert();
    void updateResult_data();
    void updateResult();
    void skipNextUpdateSkipsOnce();

private:
    void addQuantity(const QString &name, const QStringList &units);

    Catalogue m_catalogue;
    Settings m_settings;
    Session m_session;
};

// Units written "name|factor text", the factor text marked "x" when exact.
void tst_ConversionEngine::addQuantity(const QString &name, const QStringList &units)
{
    m_catalogue.resize(m_catalogue.QuantityCount + 1);
    const int q = m_catalogue.QuantityCount;
    m_catalogue.Quantities[q].Name = name;
    m_catalogue.Quantities[q].UnitCount = int(units.size());
    for (int j = 1; j <= units.size(); ++j) {
        UnitEntry &u = m_catalogue.Units[q][j];
        u.Name = units[j - 1].section(u'|', 0, 0);
        u.FactorText = units[j - 1].section(u'|', 1);
        u.Exact = u.FactorText.startsWith(u'x') ? 1 : 0;
        u.FactorText.remove(0, u.Exact);
        u.Factor = NumberText::leadingNumber(u.FactorText);
    }
}

void tst_ConversionEngine::initTestCase()
{
    addQuantity(QStringLiteral("Length"),
        { "metre (m)|x1", "inch (in)|x0.0254", "rounded inch|0.0254",
            "survey foot (ftUS)|0.3048006096012192", "nothing|0", "huge|1E300",
            "mile (mi)|x1609.344" });
    addQuantity(QStringLiteral("Angle"), { "radian (rad)|x1", "degree (°)|1.74532925199433E-02" });
    addQuantity(StringTable::text(3000),
        { "Celsius (°C)|x", "kelvin (K)|", "Fahrenheit (°F)|", "Rankine (°R)|", "Réaumur|1.25" });
    addQuantity(QStringLiteral("Temperature Interval"),
        { "degree Fahrenheit (°F)|5.5555555555555555555e-1",
            "degree Rankine (°R)|5.5555555555555555555e-1", "kelvin (K)|x1" });
}

void tst_ConversionEngine::convert_data()
{
    addTestTableRows("conversions.tsv", 8);
}

void tst_ConversionEngine::convert()
{
    QFETCH(QStringList, fields); // quantity, value, from, to, text, status, value box's text
    const QString &entry = fields[6];
    m_catalogue.CurrentQuantity = fields[0].toInt();
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    const ConversionResult result = engine.Convert(fields[2], fields[3], fields[1].toDouble());
    QCOMPARE(result.text, fields[4]);
    QCOMPARE(result.statusText.value_or(QString()), fields[5]);
    QCOMPARE(result.replacedEntry.value_or(QString()), entry);
    QCOMPARE(result.notices.size(), entry.isEmpty() ? 0 : 1);
    if (!entry.isEmpty())
        QCOMPARE(result.notices[0].text, StringTable::text(371));
}

// The update routine: the prompts while something is missing, the value read leniently, and
// what the arithmetic's failures become.
struct UpdateRow {
    const char *row, *left, *right, *value;
    QString text;
    bool markEnabled;
    int icon; // of the one notice, or -1 for none
    QString message;
};
Q_DECLARE_METATYPE(UpdateRow)

void tst_ConversionEngine::updateResult_data()
{
    const QString tooBig = StringTable::text(28) + QStringLiteral("\n\n") + StringTable::text(321);
    const UpdateRow rows[] = {
        { "no value", "metre (m)", "inch (in)", "", StringTable::text(367), false, -1, {} },
        { "no units and no value", "", "", "", StringTable::text(367), false, -1, {} },
        { "no left unit", "", "inch (in)", "12", StringTable::text(368), false, -1, {} },
        { "no right unit", "metre (m)", "", "12", StringTable::text(368), false, -1, {} },
        { "everything there", "inch (in)", "metre (m)", "12", "0.304 800 0", true, -1, {} },
        { "value read leniently", "inch (in)", "metre (m)", "1 2abc", "0.304 800 0", true, -1, {} },
        { "text that is no number converts zero", "inch (in)", "metre (m)", "abc", "0.000 000 E+0",
            true, -1, {} },
        { "a product beyond the double range", "huge", "metre (m)", "1E+308", "", true,
            Notice::Exclamation, tooBig },
        { "a typed value beyond the double range", "metre (m)", "inch (in)", "1e999", "", true,
            Notice::Exclamation, tooBig },
        { "a target factor of zero", "metre (m)", "nothing", "1", "", true, Notice::NoIcon,
            "Division by zero" },
    };
    addRows(rows);
}

void tst_ConversionEngine::updateResult()
{
    QFETCH(UpdateRow, row);
    m_catalogue.CurrentQuantity = 1;
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    const ConversionResult result = engine.UpdateResult(
        QString::fromUtf8(row.left), QString::fromUtf8(row.right), QString::fromUtf8(row.value));
    QCOMPARE(result.text, row.text);
    QCOMPARE(result.markEnabled, row.markEnabled);
    QCOMPARE(result.notices.size(), row.icon < 0 ? 0 : 1);
    if (row.icon >= 0) {
        QCOMPARE(int(result.notices[0].icon), row.icon);
        QCOMPARE(result.notices[0].text, row.message);
    }
}

void tst_ConversionEngine::skipNextUpdateSkipsOnce()
{
    m_catalogue.CurrentQuantity = 1;
    const ConversionEngine engine(m_catalogue, m_settings, m_session);
    m_session.SkipNextUpdate = true;
    const auto update = [&engine] {
        return engine.UpdateResult(
            QStringLiteral("inch (in)"), QStringLiteral("metre (m)"), QStringLiteral("12"));
    };
    const ConversionResult skipped = update();
    QCOMPARE(skipped.text, QString());
    QVERIFY(skipped.markEnabled); // marking still follows the inputs
    QVERIFY(!m_session.SkipNextUpdate);
    QCOMPARE(update().text, QStringLiteral("0.304 800 0"));
}

QTEST_GUILESS_MAIN(tst_ConversionEngine)
#include "tst_ConversionEngine.moc"
