// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The open-link rule: web addresses, mail addresses and addresses that already have a scheme.
#include "catalogue/StringTable.h"
#include "help/LinkTarget.h"

#include <QTest>

class tst_LinkTarget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void url_data();
    void url();
    void stringTableTargetsAreUsableAddresses_data();
    void stringTableTargetsAreUsableAddresses();
};

void tst_LinkTarget::url_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("expected");

    QTest::newRow("address without scheme gets http") << "physics.nist.gov/cuu/Units/"
                                                      << "http://physics.nist.gov/cuu/Units/";
    QTest::newRow("http address unchanged") << "http://example.org/a"
                                            << "http://example.org/a";
    QTest::newRow("https address unchanged") << "https://example.org/a"
                                             << "https://example.org/a";
    QTest::newRow("mail address gets mailto") << "mensura@example.org"
                                              << "mailto:mensura@example.org";
    QTest::newRow("http first wins over an @") << "http://example.org/~a@b"
                                               << "http://example.org/~a@b";
    QTest::newRow("a host starting with http is taken as a scheme") << "httpbin.org"
                                                                    << "httpbin.org";
}

void tst_LinkTarget::url()
{
    QFETCH(QString, target);
    QFETCH(QString, expected);
    QCOMPARE(LinkTarget::url(target).toString(), expected);
}

void tst_LinkTarget::stringTableTargetsAreUsableAddresses_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("scheme");

    QTest::newRow("home page") << 19 << "http";
    QTest::newRow("NIST SI information page") << 6 << "http";
    QTest::newRow("metric system overview") << 44 << "http";
    QTest::newRow("issue tracker (About window)") << 5404 << "http";
}

void tst_LinkTarget::stringTableTargetsAreUsableAddresses()
{
    QFETCH(int, id);
    QFETCH(QString, scheme);
    const QUrl url = LinkTarget::url(StringTable::text(id));
    QVERIFY2(url.isValid(), qPrintable(url.errorString()));
    QCOMPARE(url.scheme(), scheme);
    if (scheme == QLatin1String("http"))
        QVERIFY(!url.host().isEmpty());
    else
        QVERIFY(url.path().contains(QLatin1Char('@')));
}

QTEST_GUILESS_MAIN(tst_LinkTarget)
#include "tst_LinkTarget.moc"
