// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Every factor of the built-in catalogue checked against an outside authority, GNU units:
// gnu_units_map.tsv names each unit in GNU units' terms; GNU units converts one of it into the
// quantity's default unit, and our factor must agree within the digits its text is written
// with (to all the digits GNU units prints, for a factor marked exact).
#include "catalogue/Catalogue.h"
#include "catalogue/StringTable.h"
#include "convert/NumberText.h"
#include "shell/HiveFile.h"
#include "shell/SettingsStore.h"

#include "convert/TestTable.h"

#include <cmath>
#include <QHash>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

// A unit in GNU units' terms, the default unit's, and our factor's text and value as loaded.
struct FactorRow {
    QString unitExpression, defaultExpression, factorText;
    double ours;
    bool exact;
};
Q_DECLARE_METATYPE(FactorRow)

class tst_CatalogueAgainstGnuUnits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void factor_data();
    void factor();

private:
    QString m_units;
    Catalogue m_catalogue;
    QHash<int, QString> m_map; // unit name id -> GNU units expression
};

void tst_CatalogueAgainstGnuUnits::initTestCase()
{
    m_units = QStandardPaths::findExecutable(QStringLiteral("units"));
    if (m_units.isEmpty()) {
        if (qEnvironmentVariableIsSet("CI") && !qEnvironmentVariableIsEmpty("CI"))
            QFAIL("GNU units is not installed (Debian package units)");
        QSKIP("GNU units is not installed (Debian package units)");
    }
    QTemporaryDir dir;
    SettingsStore store(std::make_unique<HiveFile>(dir.filePath(QStringLiteral("r.reg")), true));
    m_catalogue.LoadCatalogue(store);

    for (const QStringList &f :
        readTestTable(QStringLiteral(TEST_DATA_DIR "/gnu_units_map.tsv"), 2))
        m_map.insert(f[0].toInt(), f[1]);
}

void tst_CatalogueAgainstGnuUnits::factor_data()
{
    QTest::addColumn<FactorRow>("row");
    for (int q = 1; q <= Catalogue::BuiltinQuantityCount; ++q) {
        if (m_catalogue.isTemperature(q))
            continue;
        const PhysicalQuantity &quantity = m_catalogue.Quantities[q];
        const int base = Catalogue::QuantityBase + 100 * q;
        const int defaultIndex = m_catalogue.findUnit(q, quantity.DefaultUnit);
        const QString defaultExpression = m_map.value(base + defaultIndex);
        QVERIFY2(!defaultExpression.isEmpty(),
            qPrintable(quantity.Name + QStringLiteral(": default unit unmapped")));
        for (int j = 1; j <= quantity.UnitCount; ++j) {
            const UnitEntry &u = m_catalogue.Units[q][j];
            const QString row = quantity.Name + QStringLiteral(": ") + u.Name;
            QVERIFY2(m_map.contains(base + j), qPrintable(row + QStringLiteral(" unmapped")));
            QTest::newRow(qPrintable(row))
                << FactorRow { m_map.value(base + j), defaultExpression, u.FactorText, u.Factor,
                       StringTable::text(base + 50 + j).startsWith(u'x') || j == defaultIndex };
        }
    }
}

void tst_CatalogueAgainstGnuUnits::factor()
{
    QFETCH(FactorRow, row);
    const auto &[unitExpression, defaultExpression, factorText, ours, exact] = row;
    QProcess units;
    units.start(m_units,
        { QStringLiteral("-t"), QStringLiteral("-d"), QStringLiteral("15"), unitExpression,
            defaultExpression });
    QVERIFY(units.waitForFinished(10000));
    const QString out = QString::fromUtf8(units.readAllStandardOutput()).trimmed();
    QVERIFY2(units.exitCode() == 0 && !out.isEmpty(),
        qPrintable(unitExpression + QStringLiteral(" -> ") + defaultExpression
            + QStringLiteral(": ") + out + QString::fromUtf8(units.readAllStandardError())));
    const double gnu = NumberText::toDouble(out);
    // Half a unit in the last digit written, or GNU units' own 15 digits, whichever is coarser.
    QString mantissa = factorText.section(u'E', 0, 0, QString::SectionCaseInsensitiveSeps);
    mantissa.remove(u'-');
    int digits = 0;
    for (QChar c : std::as_const(mantissa))
        if (c.isDigit() && (digits > 0 || c != u'0'))
            ++digits;
    const double magnitude = std::floor(std::log10(std::fabs(ours)));
    double tolerance = 0.5 * std::pow(10.0, magnitude - digits + 1);
    tolerance = std::max(tolerance, std::fabs(gnu) * 1e-14);
    if (exact)
        tolerance = std::fabs(gnu) * 1e-14; // every digit GNU units prints must agree
    QVERIFY2(std::fabs(ours - gnu) <= tolerance * 1.000001,
        qPrintable(QStringLiteral("ours %1, GNU units %2 (%3 in %4)")
                       .arg(factorText, QString::number(gnu, 'g', 17), unitExpression,
                           defaultExpression)));
}

QTEST_GUILESS_MAIN(tst_CatalogueAgainstGnuUnits)
#include "tst_CatalogueAgainstGnuUnits.moc"
