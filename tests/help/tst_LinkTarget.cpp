// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The open-link rule: web addresses, mail addresses and addresses that already have a scheme,
// and the targets the program opens with it.
#include "catalogue/StringTable.h"
#include "help/LinkTarget.h"
#include "support/DataRows.h"

#include <QTest>

class tst_LinkTarget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void url_data();
    void url();
    void theProgramsTargetsAreWebAddresses();
};

void tst_LinkTarget::url_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("expected");
    const char *rows[][3] = {
        { "an address without scheme gets http", "physics.nist.gov/cuu/Units/",
            "http://physics.nist.gov/cuu/Units/" },
        { "an http address stays", "http://example.org/a", "http://example.org/a" },
        { "an https address stays", "https://example.org/a", "https://example.org/a" },
        { "a mail address gets mailto", "mensura@example.org", "mailto:mensura@example.org" },
        { "http first wins over an @", "http://example.org/~a@b", "http://example.org/~a@b" },
        { "a host starting with http is taken as a scheme", "httpbin.org", "httpbin.org" },
        { "the comparison is case-sensitive", "HTTP://example.org", "http://HTTP://example.org" },
    };
    addTextRows(rows);
}

void tst_LinkTarget::url()
{
    QFETCH(QString, target);
    QFETCH(QString, expected);
    QCOMPARE(LinkTarget::url(target), QUrl(expected));
}

// The targets of the Help menu's web items and the About window's links.
void tst_LinkTarget::theProgramsTargetsAreWebAddresses()
{
    for (const int id : { 19, 6, 44, 5404 }) {
        const QUrl url = LinkTarget::url(StringTable::text(id));
        QVERIFY2(url.isValid() && url.scheme() == QLatin1String("http") && !url.host().isEmpty(),
            qPrintable(QString::number(id) + u' ' + url.toString()));
    }
}

QTEST_GUILESS_MAIN(tst_LinkTarget)
#include "tst_LinkTarget.moc"
