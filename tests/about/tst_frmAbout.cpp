// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The About window's three faces (the normal content, the credits, the dedication), the
// clicks that switch between them, its links and the easter-egg message.
#include "about/frmAbout.h"
#include "catalogue/StringTable.h"
#include "support/ScriptedDialogs.h"

#include <QDesktopServices>
#include <QFontInfo>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

// Catches what the window asks the desktop to open.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened.append(url); }
};

class tst_frmAbout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void atLoadOnlyTheNormalContentShows();
    void iconClickTogglesCredits_data();
    void iconClickTogglesCredits();
    void creditsAreFilledOnceInTheirOrder();
    void creditsFlagIsInAFixedPitchFont();
    void dedicationNeedsAllThreeKeysOnTheEarlierIcon_data();
    void dedicationNeedsAllThreeKeysOnTheEarlierIcon();
    void dedicationShowsPictureAndQuotationAndAClickReturns();
    void rightButtonDoesNothing();
    void doubleClickOnTheVersionShowsTheEasterMessage();
    void linksOpenHomePageAndIssueTracker();

private:
    enum Face { Normal, Credits, Dedication };
    Face face() const;
    void press(QWidget *widget, Qt::KeyboardModifiers modifiers = {},
        Qt::MouseButton button = Qt::LeftButton);
    template<typename T> T *control(const char *name) const
    {
        return m_about->findChild<T *>(QString::fromLatin1(name));
    }

    ScriptedDialogs m_dialogs;
    std::unique_ptr<frmAbout> m_about;
};

void tst_frmAbout::init()
{
    m_dialogs.clear();
    m_about = std::make_unique<frmAbout>(m_dialogs);
    m_about->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_about.get()));
}

void tst_frmAbout::cleanup()
{
    m_about.reset();
}

tst_frmAbout::Face tst_frmAbout::face() const
{
    const bool frame = control<QFrame>("Frame1")->isVisible();
    const bool credits = control<QTextEdit>("txtCredits")->isVisible();
    const bool picture = control<QLabel>("Picture1")->isVisible();
    const bool label = control<QLabel>("Label4")->isVisible();
    if (frame && !credits && !picture && !label)
        return Normal;
    if (credits && !frame && !picture && !label)
        return Credits;
    if (picture && label && !frame && !credits)
        return Dedication;
    qWarning(
        "mixed faces: frame %d credits %d picture %d label %d", frame, credits, picture, label);
    return Face(-1);
}

void tst_frmAbout::press(QWidget *widget, Qt::KeyboardModifiers modifiers, Qt::MouseButton button)
{
    QTest::mousePress(widget, button, modifiers, widget->rect().center());
    QTest::mouseRelease(widget, button, modifiers, widget->rect().center());
}

void tst_frmAbout::atLoadOnlyTheNormalContentShows()
{
    QCOMPARE(face(), Normal);
    QCOMPARE(control<QLabel>("lblProductName")->text(), StringTable::text(9));
    QVERIFY(control<QLabel>("lblVersion")->text().contains(QStringLiteral(MENSURA_VERSION)));
    QCOMPARE(control<QPushButton>("cmdOK")->text(), QStringLiteral("OK"));
    QVERIFY(!control<QLabel>("Image1")->pixmap().isNull());
    QVERIFY(!control<QLabel>("Image2")->pixmap().isNull());
}

void tst_frmAbout::iconClickTogglesCredits_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");

    QTest::newRow("current icon twice") << "Image1"
                                        << "Image1";
    QTest::newRow("earlier icon twice") << "Image2"
                                        << "Image2";
    QTest::newRow("one icon, then the other") << "Image1"
                                              << "Image2";
}

void tst_frmAbout::iconClickTogglesCredits()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    press(m_about->findChild<QLabel *>(first));
    QCOMPARE(face(), Credits);
    press(m_about->findChild<QLabel *>(second));
    QCOMPARE(face(), Normal);
}

void tst_frmAbout::creditsAreFilledOnceInTheirOrder()
{
    auto *image = control<QLabel>("Image1");
    press(image);
    press(image);
    press(image);
    const QString text = control<QTextEdit>("txtCredits")->toPlainText();
    QVERIFY(text.startsWith(QStringLiteral("Many thanks go to:\n==================\n\n")));
    QCOMPARE(text.count(StringTable::text(5412)), 1);
    int position = 0;
    for (int id : { 5412, 5413, 5414, 5415, 5416, 5417, 5418, 5419, 5420 }) {
        const int found = text.indexOf(StringTable::text(id), position);
        QVERIFY2(found >= position, qPrintable(QString::number(id)));
        position = found;
    }
    QVERIFY(text.contains(QStringLiteral("The author of Mensura 98\nJanuary, 1998\n\n")));
    QVERIFY(text.endsWith(StringTable::text(5421)));
}

void tst_frmAbout::creditsFlagIsInAFixedPitchFont()
{
    press(control<QLabel>("Image1"));
    const QTextDocument *document = control<QTextEdit>("txtCredits")->document();
    const QTextBlock flagRow = document->lastBlock();
    QVERIFY(flagRow.text().contains(QStringLiteral("|########|")));
    const QFont font = flagRow.begin().fragment().charFormat().font();
    QVERIFY2(QFontInfo(font).fixedPitch(), qPrintable(QFontInfo(font).family()));
    // The paragraphs above it are in the window's own font.
    const QTextBlock heading = document->firstBlock();
    QCOMPARE(heading.text(), StringTable::text(5410));
    QVERIFY(heading.begin().fragment().charFormat().font() != font);
}

void tst_frmAbout::dedicationNeedsAllThreeKeysOnTheEarlierIcon_data()
{
    QTest::addColumn<QString>("image");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("expected");

    const int all = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    QTest::newRow("earlier icon, Shift+Ctrl+Alt") << "Image2" << all << int(Dedication);
    QTest::newRow("current icon, Shift+Ctrl+Alt") << "Image1" << all << int(Credits);
    QTest::newRow("earlier icon, Shift+Ctrl")
        << "Image2" << int(Qt::ShiftModifier | Qt::ControlModifier) << int(Credits);
    QTest::newRow("earlier icon, Ctrl+Alt")
        << "Image2" << int(Qt::ControlModifier | Qt::AltModifier) << int(Credits);
}

void tst_frmAbout::dedicationNeedsAllThreeKeysOnTheEarlierIcon()
{
    QFETCH(QString, image);
    QFETCH(int, modifiers);
    QFETCH(int, expected);
    press(m_about->findChild<QLabel *>(image), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(int(face()), expected);
}

void tst_frmAbout::dedicationShowsPictureAndQuotationAndAClickReturns()
{
    // From the credits too: the dedication replaces whatever is shown.
    press(control<QLabel>("Image1"));
    QCOMPARE(face(), Credits);
    press(control<QLabel>("Image2"), Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(face(), Dedication);

    auto *label = control<QLabel>("Label4");
    QCOMPARE(
        label->text(), StringTable::text(374) + QStringLiteral("\n\n") + StringTable::text(375));
    QCOMPARE(label->font().family(), QStringLiteral("Arial"));
    auto *picture = control<QLabel>("Picture1");
    QVERIFY(!picture->pixmap().isNull());

    press(picture);
    QCOMPARE(face(), Normal);

    // An icon click swaps the dedication for the credits, as it swaps the normal content.
    press(control<QLabel>("Image2"), Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    press(control<QLabel>("Image1"));
    QCOMPARE(face(), Credits);
    press(control<QLabel>("Image1"));
    QCOMPARE(face(), Normal);
    QVERIFY(!control<QLabel>("lblHomePage")
                 ->geometry()
                 .intersects(control<QLabel>("lblemail")->geometry()));
}

void tst_frmAbout::rightButtonDoesNothing()
{
    press(control<QLabel>("Image1"), {}, Qt::RightButton);
    QCOMPARE(face(), Normal);
}

void tst_frmAbout::doubleClickOnTheVersionShowsTheEasterMessage()
{
    auto *version = control<QLabel>("lblVersion");
    m_dialogs.expectMessage();
    QTest::mouseDClick(version, Qt::LeftButton, {}, version->rect().center());
    QVERIFY(m_dialogs.scriptDone());
    QCOMPARE(m_dialogs.notices().first().text,
        QStringLiteral("Congratulations! You've found the Mensura easter egg!"));
    QCOMPARE(m_dialogs.notices().first().icon, Notice::Information);
}

void tst_frmAbout::linksOpenHomePageAndIssueTracker()
{
    UrlCatcher catcher;
    for (const char *scheme : { "http", "https", "mailto" })
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &catcher, "open");
    QMetaObject::invokeMethod(control<QLabel>("lblemail"), "linkActivated",
        Q_ARG(QString, control<QLabel>("lblemail")->text()));
    QMetaObject::invokeMethod(control<QLabel>("lblHomePage"), "linkActivated",
        Q_ARG(QString, control<QLabel>("lblHomePage")->text()));
    for (const char *scheme : { "http", "https", "mailto" })
        QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));

    // The second link reaches the project: its issue tracker, on the home page's host.
    const QString homePage = QStringLiteral("http://") + StringTable::text(19);
    const QList<QUrl> expected { QUrl(homePage + QStringLiteral("/issues")), QUrl(homePage) };
    QCOMPARE(catcher.opened, expected);
}

QTEST_MAIN(tst_frmAbout)
#include "tst_frmAbout.moc"
