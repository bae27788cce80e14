// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The unit matcher against what people type: the table in unit_spellings.tsv, drawn from the
// spellings of engineering handbooks and other converters, ties that must stay ambiguous and
// texts that are no unit at all. Then the alias table against the catalogue it names.
#include "catalogue/Catalogue.h"
#include "catalogue/UnitAliases.h"
#include "catalogue/UnitMatcher.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include "convert/TestTable.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

class tst_UnitMatcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void typedNames_data();
    void typedNames();
    void everyUnitIsFoundByItsNameAndSymbols();
    void everyAliasNamesABuiltInUnit();
    void aliasTableFormat();

private:
    QString describe(int q, int unit) const;

    QTemporaryDir m_dir;
    Catalogue m_catalogue;
    std::unique_ptr<UnitMatcher> m_matcher;
};

void tst_UnitMatcher::initTestCase()
{
    QVERIFY(m_dir.isValid());
    SettingsStore store(std::make_unique<HiveFile>(m_dir.filePath(QStringLiteral("units.reg"))));
    const char *const stored[][3] = { { "User\\OnOff\\Luminance", "OnOff", "0" },
        { "User\\OnOff\\Area", "hectare (ha)", "0" },
        { "User\\OnOff\\Flow", "cubic foot per second (ft³/s)", "0" },
        { "User\\Units\\Capacitance", "microfarad (µF)", "c1E-6" },
        { "User\\NewQuans\\Resistance", "DefaultUnit", "ohm (Ω)" },
        { "User\\Units\\Resistance", "ohm (Ω)", "c1" },
        { "User\\Units\\Resistance", "kiloohm (kΩ)", "c1E3" },
        { "User\\Units\\Resistance", "megaohm (MΩ)", "c1E6" } };
    for (const auto &[key, name, value] : stored)
        store.RegWriteString(
            QString::fromUtf8(key), QString::fromUtf8(name), QString::fromUtf8(value));
    m_catalogue.LoadCatalogue(store);
    m_matcher = std::make_unique<UnitMatcher>(m_catalogue);
}

QString tst_UnitMatcher::describe(int q, int unit) const
{
    return m_catalogue.Units[q][unit].Name + QStringLiteral(" [") + m_catalogue.Quantities[q].Name
        + u']';
}

void tst_UnitMatcher::typedNames_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("context");
    QTest::addColumn<QString>("expected");

    const QRegularExpression repeat(QStringLiteral("^\\{(\\d+)\\*(.*)\\}$"));
    for (QStringList f : readTestTable(QStringLiteral(TEST_DATA_DIR "/unit_spellings.tsv"), 4)) {
        if (const auto found = repeat.match(f[1]); found.hasMatch())
            f[1] = found.captured(2).repeated(found.captured(1).toInt());
        QTest::newRow(qPrintable(f[0])) << f[1] << f[2] << f[3];
    }
}

// "none", the one name found, or "ambiguous: " and the names tied.
static QString verdict(UnitMatcher::Outcome outcome, const QStringList &names)
{
    if (outcome == UnitMatcher::Outcome::None)
        return QStringLiteral("none");
    if (outcome == UnitMatcher::Outcome::Found)
        return names.first();
    return QStringLiteral("ambiguous: ") + names.join(QStringLiteral("; "));
}

void tst_UnitMatcher::typedNames()
{
    QFETCH(QString, typed);
    QFETCH(QString, context);
    QFETCH(QString, expected);

    QStringList names;
    if (context.startsWith(QStringLiteral("with "))) {
        const UnitMatcher::QuantityChoice choice = m_matcher->quantityOf(typed, context.mid(5));
        for (int q : choice.quantities)
            names.append(m_catalogue.Quantities[q].Name);
        QCOMPARE(verdict(choice.outcome, names), expected);
        return;
    }
    const int q = context.isEmpty() ? 0 : m_catalogue.findQuantity(context.mid(3));
    QVERIFY(context.isEmpty() || q != 0);
    const UnitMatcher::Choice choice = m_matcher->best(typed, q);
    for (const UnitMatcher::Match &match : choice.candidates)
        names.append(describe(match.quantity, match.unit));
    QString got = verdict(choice.outcome, names);
    const QVector<UnitMatcher::UnitRef> closest = m_matcher->closest(typed, q, 1);
    if (expected.contains(QStringLiteral(" → ")) && closest.size() == 1)
        got += QStringLiteral(" → ") + describe(closest.first().quantity, closest.first().unit);
    QCOMPARE(got, expected);
}

// Within its quantity every enabled unit is found by its full name (several quantities share
// names), and each of its symbols finds it among others.
void tst_UnitMatcher::everyUnitIsFoundByItsNameAndSymbols()
{
    // The parts in brackets, one level of brackets within them allowed: "lb/(ft·s)".
    const QRegularExpression brackets(QStringLiteral("\\(((?:[^()]|\\([^()]*\\))+)\\)"));
    int units = 0;
    for (int q = 1; q <= m_catalogue.QuantityCount; ++q) {
        if (!m_catalogue.Quantities[q].enabled())
            continue;
        for (int j = 1; j <= m_catalogue.Quantities[q].UnitCount; ++j) {
            const QString &name = m_catalogue.Units[q][j].Name;
            if (!m_catalogue.Units[q][j].enabled())
                continue;
            ++units;
            const UnitMatcher::Choice choice = m_matcher->best(name, q);
            QVERIFY2(choice.outcome == UnitMatcher::Outcome::Found
                    && choice.candidates.first().unit == j
                    && choice.candidates.first().rank == UnitMatcher::FullName,
                qPrintable(name));
            for (const auto &symbol : brackets.globalMatch(name)) {
                const QVector<UnitMatcher::Match> &matches = m_matcher->matches(symbol.captured(1));
                QVERIFY2(std::any_of(matches.cbegin(), matches.cend(),
                             [&](const UnitMatcher::Match &match) {
                                 return match.quantity == q && match.unit == j;
                             }),
                    qPrintable(name));
            }
        }
    }
    QCOMPARE(units, 514 - 8 - 2 + 1 + 3); // Luminance and two units off, four of the user's
}

void tst_UnitMatcher::everyAliasNamesABuiltInUnit()
{
    const QVector<UnitAliases::Alias> &aliases = UnitAliases::builtin();
    QVERIFY(aliases.size() > 100);
    for (const UnitAliases::Alias &alias : aliases) { // switched off or not
        const int q = m_catalogue.findQuantity(alias.quantity);
        QVERIFY2(q != 0 && m_catalogue.findUnit(q, alias.unit) != 0, qPrintable(alias.alias));
    }
}

// Lines of three non-empty fields, with LF or CR LF line ends; anything else is left out.
void tst_UnitMatcher::aliasTableFormat()
{
    const QVector<UnitAliases::Alias> aliases = UnitAliases::parse(
        "# alias\tunit\tquantity\r\ncfm\tcubic foot per minute (ft³/min)\tFlow\r\n\n"
        "two\tfields\nfour\ttab\tseparated\tfields\n\tno alias\tFlow\nno unit\t\tFlow\n"
        "no quantity\tx\t\nsq ft\tsquare foot (ft²)\tArea");
    QStringList read;
    for (const UnitAliases::Alias &alias : aliases)
        read << alias.alias + u'|' + alias.unit + u'|' + alias.quantity;
    QCOMPARE(read,
        QStringList(
            { "cfm|cubic foot per minute (ft³/min)|Flow", "sq ft|square foot (ft²)|Area" }));
}

QTEST_GUILESS_MAIN(tst_UnitMatcher)
#include "tst_UnitMatcher.moc"
