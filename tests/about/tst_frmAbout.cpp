// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The About window's three faces (the normal content, the credits, the dedication), the clicks
// that switch between them, its links and the easter-egg message.
#include "about/frmAbout.h"
#include "catalogue/StringTable.h"
#include "support/DataRows.h"
#include "support/GuiTestMain.h"
#include "support/ScriptedDialogs.h"
#include "support/UrlCatcher.h"

#include <QFontInfo>
#include <QLabel>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

namespace
{
// The faces, as the controls shown.
const QString Normal = QStringLiteral("Frame1");
const QString Credits = QStringLiteral("txtCredits");
const QString Dedication = QStringLiteral("Picture1 Label4");

struct ClicksRow {
    const char *row;
    // Controls pressed in turn; "+" and the letters S, C, A: Shift, Ctrl, Alt held; "!": the
    // right button.
    QStringList clicks;
    QString face;
};
} // namespace
Q_DECLARE_METATYPE(ClicksRow)

class tst_frmAbout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_about.reset(); }
    void clicksSwitchTheFaces_data();
    void clicksSwitchTheFaces();
    void versionLinksAndCredits();

private:
    QString face() const;
    void press(const QString &click);
    template<typename T> T *control(const char *name) const
    {
        return m_about->findChild<T *>(name);
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

QString tst_frmAbout::face() const
{
    QStringList shown;
    for (const char *name : { "Frame1", "txtCredits", "Picture1", "Label4" })
        if (control<QWidget>(name)->isVisible())
            shown.append(QString::fromLatin1(name));
    return shown.join(u' ');
}

void tst_frmAbout::press(const QString &click)
{
    auto *widget = control<QWidget>(qPrintable(click.section(u'+', 0, 0).remove(u'!')));
    Qt::KeyboardModifiers modifiers;
    const QString keys = click.section(u'+', 1);
    for (const auto &[letter, modifier] : { std::pair { u'S', Qt::ShiftModifier },
             { u'C', Qt::ControlModifier }, { u'A', Qt::AltModifier } })
        if (keys.contains(letter))
            modifiers |= modifier;
    const Qt::MouseButton button = click.endsWith(u'!') ? Qt::RightButton : Qt::LeftButton;
    QTest::mousePress(widget, button, modifiers, widget->rect().center());
    QTest::mouseRelease(widget, button, modifiers, widget->rect().center());
}

void tst_frmAbout::clicksSwitchTheFaces_data()
{
    addRows<ClicksRow>({
        { "at first, the normal content", {}, Normal },
        { "the current icon shows the credits", { "Image1" }, Credits },
        { "the earlier icon twice", { "Image2", "Image2" }, Normal },
        { "the right button does nothing", { "Image1!" }, Normal },
        { "the earlier icon with Shift, Ctrl and Alt", { "Image2+SCA" }, Dedication },
        { "the current icon with Shift, Ctrl and Alt", { "Image1+SCA" }, Credits },
        { "the earlier icon with Shift and Ctrl", { "Image2+SC" }, Credits },
        { "the dedication in place of the credits", { "Image1", "Image2+SCA" }, Dedication },
        { "a click on the picture leaves it", { "Image2+SCA", "Picture1" }, Normal },
        { "the right button on the picture does nothing", { "Image2+SCA", "Picture1!" },
            Dedication },
        { "an icon swaps the dedication for the credits", { "Image2+SCA", "Image1" }, Credits },
    });
}

void tst_frmAbout::clicksSwitchTheFaces()
{
    QFETCH(ClicksRow, row);
    for (const QString &click : row.clicks)
        press(click);
    QCOMPARE(face(), row.face);
    for (const char *name : { "Image1", "Image2", "Picture1" }) // shown with their pictures
        QVERIFY2(
            !control<QLabel>(name)->isVisible() || !control<QLabel>(name)->pixmap().isNull(), name);
}

// The version line shows the version, and a double-click on it the easter-egg message; the
// links open the home page and the issue tracker, where questions and problems reach the project.
// Shown again, the credits are not filled again; they are read only, and the flag that ends them
// is drawn in characters, which stay square only in a fixed-pitch font.
void tst_frmAbout::versionLinksAndCredits()
{
    auto *version = control<QLabel>("lblVersion");
    QVERIFY(version->text().contains(QStringLiteral(MENSURA_VERSION)));
    m_dialogs.expectMessage();
    QTest::mouseDClick(version, Qt::LeftButton, {}, version->rect().center());
    const Notice expected { Notice::Information, StringTable::text(265), {} };
    QCOMPARE(m_dialogs.notices(), QList<Notice> { expected });

    UrlCatcher catcher;
    for (const char *name : { "lblemail", "lblHomePage" }) {
        auto *link = control<QLabel>(name);
        QTest::mouseClick(link, Qt::LeftButton, {}, QPoint(3, link->height() / 2));
    }
    const QString homePage = QStringLiteral("http://") + StringTable::text(19);
    QCOMPARE(catcher.opened, QList<QUrl>({ QUrl(homePage + "/issues"), QUrl(homePage) }));
    QVERIFY(!control<QLabel>("lblHomePage")
                 ->geometry()
                 .intersects(control<QLabel>("lblemail")->geometry()));
    for (int i = 0; i < 3; ++i)
        press(QStringLiteral("Image1"));
    auto *credits = control<QTextEdit>("txtCredits");
    const QString text = credits->toPlainText();
    QTest::keyClicks(credits, QStringLiteral("x"));
    QCOMPARE(credits->toPlainText(), text);
    QCOMPARE(text.count(StringTable::text(5412)), 1);
    QVERIFY(text.endsWith(StringTable::text(5421)));
    const QFont font = credits->document()->lastBlock().begin().fragment().charFormat().font();
    QVERIFY2(QFontInfo(font).fixedPitch(), qPrintable(QFontInfo(font).family()));
    QVERIFY(credits->document()->firstBlock().begin().fragment().charFormat().font() != font);
}

MENSURA_GUI_TEST_MAIN(tst_frmAbout)
#include "tst_frmAbout.moc"
