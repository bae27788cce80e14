// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The help: every context number the program asks for opens its topic, every link of every
// topic leads somewhere, the find bar works, the topics read well under a light and a dark
// palette (that it stays usable beside a dialog is tst_OptionsFromMainWindow's).
#include "catalogue/StringTable.h"
#include "help/HelpTopics.h"
#include "help/HelpWindow.h"
#include "support/UrlCatcher.h"

#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QToolButton>

namespace
{
QString topicText(const QString &file)
{
    QFile topic(QStringLiteral(":/help/") + file);
    return topic.open(QIODevice::ReadOnly) ? QString::fromUtf8(topic.readAll()) : QString();
}

// The targets of every href in a topic (links and the style sheet alike).
QStringList hrefs(const QString &html)
{
    QStringList targets;
    static const QRegularExpression href(QStringLiteral("href=\"([^\"]*)\""));
    for (auto match = href.globalMatch(html); match.hasNext();)
        targets.append(match.next().captured(1));
    return targets;
}

QStringList topicFiles()
{
    return QDir(QStringLiteral(":/help")).entryList({ QStringLiteral("*.html") }, QDir::Files);
}

// The contrast ratio of two colours as the Web Content Accessibility Guidelines define it.
double contrast(const QColor &one, const QColor &other)
{
    const auto luminance = [](const QColor &colour) {
        const auto linear = [](double c) {
            return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
            + 0.0722 * linear(colour.blueF());
    };
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}

// The first piece of text of the shown topic whose colour is hard to read on its background.
QString hardToRead(QTextBrowser *topic, double least)
{
    const QPalette palette = topic->palette();
    for (QTextBlock block = topic->document()->begin(); block.isValid(); block = block.next()) {
        QBrush background = block.blockFormat().background();
        if (background.style() == Qt::NoBrush) {
            const QTextCursor cursor(block);
            if (const QTextTable *table = cursor.currentTable())
                background = table->cellAt(cursor).format().background();
        }
        const QColor behind = background.style() == Qt::NoBrush ? palette.color(QPalette::Base)
                                                                : background.color();
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QBrush foreground = it.fragment().charFormat().foreground();
            const QColor text = foreground.style() == Qt::NoBrush ? palette.color(QPalette::Text)
                                                                  : foreground.color();
            if (!it.fragment().text().trimmed().isEmpty() && contrast(text, behind) < least)
                return it.fragment().text();
        }
    }
    return QString();
}

// Clicks the link of the shown topic that reads text.
bool clickLink(QTextBrowser *browser, const QString &text)
{
    QTextCursor cursor = browser->document()->find(text);
    if (cursor.isNull() || !cursor.charFormat().isAnchor())
        return false;
    cursor.setPosition(cursor.selectionStart() + 1);
    browser->setTextCursor(cursor);
    browser->ensureCursorVisible();
    QTest::mouseClick(
        browser->viewport(), Qt::LeftButton, {}, browser->cursorRect(cursor).center());
    return true;
}
} // namespace

class tst_HelpWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_anchor.reset(); }
    void contextOpensItsTopic_data();
    void contextOpensItsTopic();
    void everyTopicIsListedAndItsLinksLeadSomewhere_data();
    void everyTopicIsListedAndItsLinksLeadSomewhere();
    void clickedLinksStayInsideOrGoToTheDesktop();
    void findBarFindsInThePage();
    void standsBesideItsAnchor_data();
    void standsBesideItsAnchor();
    void readableInTheDesktopsPalette();

private:
    template<typename T> T *control(const char *name) const { return m_help->findChild<T *>(name); }

    std::unique_ptr<QWidget> m_anchor;
    HelpWindow *m_help = nullptr;
    QTextBrowser *m_topic = nullptr;
};

void tst_HelpWindow::init()
{
    m_anchor = std::make_unique<QWidget>();
    m_help = new HelpWindow(m_anchor.get()); // goes with its anchor
    m_topic = control<QTextBrowser>("txtTopic");
}

void tst_HelpWindow::contextOpensItsTopic_data()
{
    QTest::addColumn<int>("context");
    QTest::addColumn<QString>("phrase"); // from the topic each must show
    QTest::newRow("physical constants (View menu)") << 100 << "Physical constants";
    QTest::newRow("metric prefixes (View menu)") << 105 << "Metric (SI) prefixes";
    QTest::newRow("SI units (View menu)") << 27 << "Base and derived SI units";
    QTest::newRow("options dialog (F1)") << 40 << "The options dialog";
    QTest::newRow("custom units tutorial (options)")
        << 24 << "How to add and remove custom quantities";
    QTest::newRow("main window") << 10 << "The main window";
    QTest::newRow("number display") << 11 << "Significant figures";
    QTest::newRow("marked conversions window") << 12 << "Marked conversions";
    QTest::newRow("find dialog") << 13 << "Finding a unit";
    QTest::newRow("a number without a topic") << 4711 << StringTable::text(5621).arg(4711);
}

void tst_HelpWindow::contextOpensItsTopic()
{
    QFETCH(int, context);
    QFETCH(QString, phrase);
    m_help->showContext(context);
    const QString shown = m_topic->toPlainText().trimmed();
    const bool topic = !HelpTopics::topicFile(context).isEmpty(); // else the page says only that
    QVERIFY2(topic ? shown.contains(phrase) : shown == phrase, qPrintable(shown.left(80)));
}

void tst_HelpWindow::everyTopicIsListedAndItsLinksLeadSomewhere_data()
{
    QTest::addColumn<QString>("file");
    for (const QString &file : topicFiles())
        QTest::newRow(qPrintable(file)) << file;
}

// Every topic but the contents has a context number and is listed in the contents; every link
// leads to a topic (and its anchor there) or to a web or mail address. A number written out in
// full (1&nbsp;000&nbsp;000) never breaks between its digit groups.
void tst_HelpWindow::everyTopicIsListedAndItsLinksLeadSomewhere()
{
    QFETCH(QString, file);
    const QString html = topicText(file);
    QVERIFY(!html.isEmpty());
    static const QRegularExpression breakable(QStringLiteral("\\d\\s\\d{3}\\b"));
    QVERIFY2(!html.contains(breakable), qPrintable(breakable.match(html).captured()));
    const QList<int> contexts = HelpTopics::contexts();
    const auto hasContext = [&](int c) { return HelpTopics::topicFile(c) == file; };
    if (file != QLatin1String("index.html")) {
        QVERIFY(hrefs(topicText(QStringLiteral("index.html"))).contains(file));
        QVERIFY(std::any_of(contexts.begin(), contexts.end(), hasContext));
    }
    const QUrl page = HelpTopics::baseUrl().resolved(QUrl(file));
    for (const QString &href : hrefs(html)) {
        const QUrl target = page.resolved(QUrl(href));
        if (target.scheme() != QLatin1String("qrc")) {
            const QString scheme = target.scheme();
            QVERIFY2(scheme == "mailto" || (scheme.startsWith("http") && !target.host().isEmpty()),
                qPrintable(href));
            continue;
        }
        const QString targetText
            = topicText(target.path().mid(HelpTopics::baseUrl().path().size()));
        QVERIFY2(!targetText.isEmpty() || QFile::exists(u':' + target.path()), qPrintable(href));
        if (target.hasFragment())
            QVERIFY2(targetText.contains(QStringLiteral("name=\"%1\"").arg(target.fragment())),
                qPrintable(href));
    }
}

void tst_HelpWindow::clickedLinksStayInsideOrGoToTheDesktop()
{
    UrlCatcher catcher;
    m_help->showContents();
    QVERIFY(QTest::qWaitForWindowExposed(m_help));
    QVERIFY(clickLink(m_topic, QStringLiteral("physics.nist.gov/cuu/Units/")));
    QCOMPARE(catcher.opened, QList<QUrl> { QUrl("https://physics.nist.gov/cuu/Units/") });
    QCOMPARE(m_topic->source(), HelpTopics::contentsUrl());
    QVERIFY(clickLink(m_topic, QStringLiteral("Metric (SI) prefixes")));
    QCOMPARE(m_topic->source(), HelpTopics::topicUrl(HelpTopics::MetricPrefixes));
    QCOMPARE(catcher.opened.size(), 1);
}

void tst_HelpWindow::findBarFindsInThePage()
{
    m_help->showContext(HelpTopics::PhysicalConstants);
    QVERIFY(QTest::qWaitForWindowExposed(m_help));
    auto *findText = control<QLineEdit>("txtFindInPage");
    auto *notFound = control<QLabel>("lblNotFound");
    const QString word = QStringLiteral("CONSTANT"); // in any capitals
    QList<int> matches;
    for (auto c = m_topic->document()->find(word); !c.isNull();
         c = m_topic->document()->find(word, c))
        matches.append(c.selectionStart());
    QVERIFY(matches.size() >= 3);
    const auto match = [&] { return matches.indexOf(m_topic->textCursor().selectionStart()); };
    QVERIFY(!findText->isVisible());
    m_help->activateWindow();
    QTest::keyClick(m_topic, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(findText->isVisible() && !notFound->isVisible());
    QTest::keyClicks(findText, word);
    QCOMPARE(match(), 0);
    // On and back: Return and Shift+Return, the buttons, the keys of the platform; round at the
    // ends.
    QTest::keyClick(findText, Qt::Key_Return);
    QCOMPARE(match(), 1);
    QTest::keyClick(findText, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(match(), 0);
    control<QToolButton>("cmdFindNext")->click();
    QCOMPARE(match(), 1);
    control<QToolButton>("cmdFindPrevious")->click();
    QCOMPARE(match(), 0);
    QTest::keySequence(findText, QKeySequence::FindNext);
    QCOMPARE(match(), 1);
    QTest::keySequence(findText, QKeySequence::FindPrevious);
    QCOMPARE(match(), 0);
    QTest::keyClick(findText, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(match(), matches.size() - 1);
    QTest::keyClick(findText, Qt::Key_Return);
    QCOMPARE(match(), 0);

    // "Not found" goes with no text, another topic and the closed bar.
    QTest::keyClicks(findText, QStringLiteral("xyzzy"));
    QVERIFY(notFound->isVisible());
    findText->clear();
    QVERIFY(!notFound->isVisible());
    QTest::keyClicks(findText, QStringLiteral("xyzzy"));
    m_help->showContext(HelpTopics::MetricPrefixes);
    QVERIFY(!notFound->isVisible());
    QTest::keyClicks(findText, QStringLiteral("q"));
    QVERIFY(notFound->isVisible());
    QTest::keyClick(findText, Qt::Key_Escape);
    QVERIFY(!findText->isVisible());
    QTest::keyClick(m_topic, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(findText->isVisible() && !notFound->isVisible());
}

void tst_HelpWindow::standsBesideItsAnchor_data()
{
    QTest::addColumn<int>("left"); // the anchor's, 100 pixels wide, on a screen of 800
    QTest::addColumn<int>("side"); // 1: to its right, -1: to its left, 0: at the screen's edge
    QTest::newRow("room to its right") << 0 << 1;
    QTest::newRow("just room to its left") << 680 << -1;
    QTest::newRow("no room: at the screen's right edge") << 150 << 0;
}

// Placed where it is first shown; the reader may have moved either window since.
void tst_HelpWindow::standsBesideItsAnchor()
{
    QFETCH(int, left);
    QFETCH(int, side);
    const QRect screen = m_anchor->screen()->availableGeometry();
    m_anchor->resize(100, 300);
    m_anchor->move(screen.left() + left, screen.top() + 20); // where its frame begins
    m_anchor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_anchor.get()));
    m_help->showContents();
    const QRect anchor = m_anchor->frameGeometry();
    const int x = side > 0 ? anchor.right() + 1
        : side < 0         ? anchor.left() - m_help->width()
                           : screen.right() - m_help->width();
    const QPoint place(x, anchor.top());
    QCOMPARE(m_help->frameGeometry().topLeft(), place);
    m_anchor->move(m_anchor->pos() + QPoint(30, 30));
    m_help->showContents();
    QCOMPARE(m_help->frameGeometry().topLeft(), place);
}

// Under the desktop's palette and a dark one, each changed while a topic is open.
void tst_HelpWindow::readableInTheDesktopsPalette()
{
    const QPalette kept = QApplication::palette();
    const auto restore = qScopeGuard([kept] { QApplication::setPalette(kept); });
    QPalette dark = kept;
    for (auto [role, colour] :
        { std::pair { QPalette::Window, QColor(53, 53, 53) }, { QPalette::WindowText, Qt::white },
            { QPalette::Base, QColor(35, 35, 35) }, { QPalette::AlternateBase, QColor(53, 53, 53) },
            { QPalette::Text, Qt::white }, { QPalette::Button, QColor(53, 53, 53) },
            { QPalette::ButtonText, Qt::white }, { QPalette::Link, QColor(42, 130, 218) },
            { QPalette::Highlight, QColor(42, 130, 218) } })
        dark.setColor(role, colour);
    for (const QPalette &palette : { kept, dark }) {
        m_help->showContext(HelpTopics::MetricPrefixes);
        QApplication::setPalette(palette);
        QCoreApplication::processEvents(); // the windows learn of it through the event loop
        // Three to one, the least contrast for large text in the Web Content Accessibility
        // Guidelines: headings are large, and body text has far more than this.
        QCOMPARE(hardToRead(m_topic, 3.0), QString());
        for (const QString &file : topicFiles()) {
            m_topic->setSource(HelpTopics::baseUrl().resolved(QUrl(file)));
            QVERIFY2(hardToRead(m_topic, 3.0).isEmpty(),
                qPrintable(file + QStringLiteral(": ") + hardToRead(m_topic, 3.0)));
        }
    }
}

QTEST_MAIN(tst_HelpWindow)
#include "tst_HelpWindow.moc"
