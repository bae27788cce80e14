// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The help: every context number the program asks for opens its topic, every link of every
// topic leads somewhere, the window's history and find bar work, the topics read well under a
// light and a dark palette, and the help stays usable while a dialog of the program is open.
#include "catalogue/StringTable.h"
#include "help/HelpTopics.h"
#include "help/HelpWindow.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <cmath>
#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSet>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QTimer>
#include <QToolButton>

namespace
{
QString topicText(const QString &file)
{
    QFile topic(QStringLiteral(":/help/") + file);
    if (!topic.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(topic.readAll());
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
} // namespace

// Catches what the window asks the desktop to open.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened.append(url); }
};

class tst_HelpWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void contextOpensItsTopic_data();
    void contextOpensItsTopic();
    void everyContextIsUsedAndEveryTopicIsInTheContents();
    void contextWithoutTopicSaysSo();
    void everyLinkLeadsToATopicOrOutside_data();
    void everyLinkLeadsToATopicOrOutside();
    void clickedLinksStayInsideOrGoToTheDesktop();
    void backAndForwardFollowTheTopicsShown();
    void findBarFindsInThePage();
    void standsBesideItsAnchor();
    void usableBesideADialog_data();
    void usableBesideADialog();
    void readableInTheDesktopsPalette_data();
    void readableInTheDesktopsPalette();
    void writtenOutNumbersKeepTheirDigitGroups();

private:
    std::unique_ptr<QWidget> m_anchor;
    HelpWindow *m_help = nullptr;
    QTextBrowser *m_topic = nullptr;
};

void tst_HelpWindow::init()
{
    m_anchor = std::make_unique<QWidget>();
    m_anchor->setGeometry(100, 100, 500, 400);
    m_help = new HelpWindow(m_anchor.get());
    m_topic = m_help->findChild<QTextBrowser *>(QStringLiteral("txtTopic"));
    QVERIFY(m_topic);
}

void tst_HelpWindow::cleanup()
{
    m_anchor.reset();
}

void tst_HelpWindow::contextOpensItsTopic_data()
{
    QTest::addColumn<int>("context");
    QTest::addColumn<QString>("heading");

    // The numbers the windows use, and a phrase from the topic each must show.
    QTest::newRow("physical constants (View menu)") << 100 << "Physical constants";
    QTest::newRow("metric prefixes (View menu)") << 105 << "Metric (SI) prefixes";
    QTest::newRow("SI units (View menu)") << 27 << "Base and derived SI units";
    QTest::newRow("options dialog (F1)") << 40 << "The options dialog";
    QTest::newRow("custom units tutorial (options)")
        << 24 << "How to add and remove custom quantities";
    QTest::newRow("main window") << int(HelpTopics::MainWindow) << "The main window";
    QTest::newRow("number display") << int(HelpTopics::NumberDisplay) << "Significant figures";
    QTest::newRow("marked conversions window")
        << int(HelpTopics::MarkedConversions) << "Marked conversions";
    QTest::newRow("find dialog") << int(HelpTopics::FindUnit) << "Finding a unit";
}

void tst_HelpWindow::contextOpensItsTopic()
{
    QFETCH(int, context);
    QFETCH(QString, heading);
    m_help->showContext(context);
    QVERIFY(m_help->isVisible());
    QCOMPARE(m_topic->source(), HelpTopics::topicUrl(context));
    QVERIFY(!m_topic->documentTitle().isEmpty());
    QVERIFY2(m_topic->toPlainText().contains(heading), qPrintable(heading));
}

void tst_HelpWindow::everyContextIsUsedAndEveryTopicIsInTheContents()
{
    const QSet<int> used { 100, 105, 27, 40, 24, HelpTopics::MainWindow, HelpTopics::NumberDisplay,
        HelpTopics::MarkedConversions, HelpTopics::FindUnit };
    const QList<int> contexts = HelpTopics::contexts();
    QCOMPARE(QSet<int>(contexts.begin(), contexts.end()), used);

    const QStringList contents = hrefs(topicText(QStringLiteral("index.html")));
    for (int context : contexts)
        QVERIFY2(contents.contains(HelpTopics::topicFile(context)),
            qPrintable(HelpTopics::topicFile(context)));
    // No topic is left out of the table either.
    QStringList files = topicFiles();
    files.removeOne(QStringLiteral("index.html"));
    QCOMPARE(files.size(), contexts.size());
}

void tst_HelpWindow::contextWithoutTopicSaysSo()
{
    m_help->showContext(4711);
    QVERIFY(m_help->isVisible());
    QCOMPARE(m_topic->toPlainText().trimmed(), StringTable::text(5621).arg(4711));
}

void tst_HelpWindow::everyLinkLeadsToATopicOrOutside_data()
{
    QTest::addColumn<QString>("file");
    const QStringList files = topicFiles();
    QVERIFY(files.size() > 1);
    for (const QString &file : files)
        QTest::newRow(qPrintable(file)) << file;
}

void tst_HelpWindow::everyLinkLeadsToATopicOrOutside()
{
    QFETCH(QString, file);
    const QString html = topicText(file);
    QVERIFY(!html.isEmpty());
    const QUrl page = HelpTopics::baseUrl().resolved(QUrl(file));
    for (const QString &href : hrefs(html)) {
        const QUrl target = page.resolved(QUrl(href));
        if (!HelpTopics::isHelpAddress(target)) {
            QVERIFY2(target.scheme() == QLatin1String("https")
                    || target.scheme() == QLatin1String("http")
                    || target.scheme() == QLatin1String("mailto"),
                qPrintable(href));
            QVERIFY2(!target.host().isEmpty() || target.scheme() == QLatin1String("mailto"),
                qPrintable(href));
            continue;
        }
        const QString targetText
            = topicText(target.path().mid(HelpTopics::baseUrl().path().size()));
        QVERIFY2(!targetText.isEmpty() || QFile::exists(QLatin1Char(':') + target.path()),
            qPrintable(href));
        if (target.hasFragment()) {
            const QString anchor = QStringLiteral("name=\"%1\"").arg(target.fragment());
            QVERIFY2(targetText.contains(anchor), qPrintable(href));
        }
    }
}

// Clicks the first link of the shown topic whose address starts with prefix.
static bool clickLink(QTextBrowser *browser, const QString &prefix)
{
    for (QTextBlock block = browser->document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (!fragment.charFormat().isAnchor()
                || !fragment.charFormat().anchorHref().startsWith(prefix))
                continue;
            QTextCursor cursor(browser->document());
            cursor.setPosition(fragment.position() + 1);
            browser->ensureCursorVisible();
            browser->setTextCursor(cursor);
            browser->ensureCursorVisible();
            const QPoint point = browser->cursorRect(cursor).center();
            QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, point);
            return true;
        }
    }
    return false;
}

void tst_HelpWindow::clickedLinksStayInsideOrGoToTheDesktop()
{
    UrlCatcher catcher;
    for (const char *scheme : { "http", "https", "mailto" })
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &catcher, "open");
    m_help->showContents();
    QVERIFY(QTest::qWaitForWindowExposed(m_help));

    QVERIFY(clickLink(m_topic, QStringLiteral("https://physics.nist.gov")));
    QCOMPARE(catcher.opened,
        QList<QUrl> { QUrl(QStringLiteral("https://physics.nist.gov/cuu/Units/")) });
    QCOMPARE(m_topic->source(), HelpTopics::contentsUrl());

    QVERIFY(clickLink(m_topic, QStringLiteral("prefixes.html")));
    QCOMPARE(m_topic->source(), HelpTopics::topicUrl(HelpTopics::MetricPrefixes));
    QCOMPARE(catcher.opened.size(), 1);
    for (const char *scheme : { "http", "https", "mailto" })
        QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
}

void tst_HelpWindow::backAndForwardFollowTheTopicsShown()
{
    auto *back = m_help->findChild<QToolButton *>(QStringLiteral("cmdBack"));
    auto *forward = m_help->findChild<QToolButton *>(QStringLiteral("cmdForward"));
    auto *contents = m_help->findChild<QToolButton *>(QStringLiteral("cmdContents"));
    QVERIFY(back && forward && contents);

    m_help->showContext(HelpTopics::PhysicalConstants);
    QVERIFY(!back->isEnabled());
    m_help->showContext(HelpTopics::MetricPrefixes);
    QVERIFY(back->isEnabled());
    QVERIFY(!forward->isEnabled());

    QTest::mouseClick(back, Qt::LeftButton);
    QCOMPARE(m_topic->source(), HelpTopics::topicUrl(HelpTopics::PhysicalConstants));
    QVERIFY(forward->isEnabled());
    QTest::mouseClick(forward, Qt::LeftButton);
    QCOMPARE(m_topic->source(), HelpTopics::topicUrl(HelpTopics::MetricPrefixes));
    QTest::mouseClick(contents, Qt::LeftButton);
    QCOMPARE(m_topic->source(), HelpTopics::contentsUrl());
}

void tst_HelpWindow::findBarFindsInThePage()
{
    m_help->showContext(HelpTopics::PhysicalConstants);
    QVERIFY(QTest::qWaitForWindowExposed(m_help));
    auto *findText = m_help->findChild<QLineEdit *>(QStringLiteral("txtFindInPage"));
    auto *notFound = m_help->findChild<QLabel *>(QStringLiteral("lblNotFound"));
    QVERIFY(findText && notFound);
    QVERIFY(!findText->isVisible());

    m_help->activateWindow();
    QTest::keyClick(m_topic, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(findText->isVisible());

    QTest::keyClicks(findText, QStringLiteral("boltzmann"));
    QCOMPARE(m_topic->textCursor().selectedText(), QStringLiteral("Boltzmann"));
    QVERIFY(!notFound->isVisible());
    const int first = m_topic->textCursor().selectionStart();
    QTest::keyClick(findText, Qt::Key_Return);
    QVERIFY(m_topic->textCursor().selectionStart() > first);
    // Searching on from the last match goes round to the first.
    for (int i = 0; i < 20 && m_topic->textCursor().selectionStart() != first; ++i)
        QTest::keyClick(findText, Qt::Key_Return);
    QCOMPARE(m_topic->textCursor().selectionStart(), first);

    QTest::keyClicks(findText, QStringLiteral("xyzzy"));
    QVERIFY(notFound->isVisible());
    QTest::keyClick(findText, Qt::Key_Escape);
    QVERIFY(!findText->isVisible());
}

void tst_HelpWindow::standsBesideItsAnchor()
{
    m_anchor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_anchor.get()));
    m_help->showContents();
    const QRect anchor = m_anchor->frameGeometry();
    const QRect help = m_help->frameGeometry();
    QVERIFY2(!help.intersects(anchor) || help.right() >= anchor.right(),
        qPrintable(QStringLiteral("%1,%2 %3x%4")
                       .arg(help.x())
                       .arg(help.y())
                       .arg(help.width())
                       .arg(help.height())));
}

void tst_HelpWindow::usableBesideADialog_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("helpButton");

    QTest::newRow("options dialog, its tutorial button") << "mnufilesetopt"
                                                         << "cmdTutorial";
    QTest::newRow("find dialog, its help button") << "mnuRecordsFind"
                                                  << "cmdHelp";
    QTest::newRow("About window, help opened before it") << "mnuhelpabout" << QString();
}

// The help is clicked through the window system, where a window blocked by a modal dialog
// gets no input, as a user clicks it.
void tst_HelpWindow::usableBesideADialog()
{
    QFETCH(QString, command);
    QFETCH(QString, helpButton);
    TestHive hive;
    hive.writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    ScriptedDialogs dialogs;
    TestProgram program(hive, dialogs);
    QVERIFY(program.start());
    QVERIFY(QTest::qWaitForWindowExposed(program.window()));
    if (helpButton.isEmpty())
        program.find<QAction *>("mnuviewmetric")->trigger();

    QWidget *dialog = nullptr;
    QUrl shown;
    bool figuresChanged = true;
    QTimer::singleShot(0, this, [&] {
        dialog = QApplication::activeModalWidget();
        if (!dialog)
            return;
        if (!helpButton.isEmpty())
            QTest::mouseClick(dialog->findChild<QWidget *>(helpButton), Qt::LeftButton);
        QWidget *help = nullptr;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String("HelpWindow") && window->isVisible())
                help = window;
        }
        if (help && QTest::qWaitForWindowExposed(help)) {
            auto *contents = help->findChild<QWidget *>(QStringLiteral("cmdContents"));
            QTest::mouseClick(help->windowHandle(), Qt::LeftButton, {},
                contents->mapTo(help, contents->rect().center()));
            shown = help->findChild<QTextBrowser *>(QStringLiteral("txtTopic"))->source();
        }
        // The main window stays out of reach while the dialog is open.
        auto *increase = program.find<QWidget *>("cmdIncreaseSigFigs");
        const int figures = program.startup().settings().SigFigs;
        QTest::mouseClick(program.window()->windowHandle(), Qt::LeftButton, {},
            increase->mapTo(program.window(), increase->rect().center()));
        figuresChanged = program.startup().settings().SigFigs != figures;
        dialog->close();
    });
    program.find<QAction *>(qPrintable(command))->trigger();
    QVERIFY(dialog);
    QCOMPARE(shown, HelpTopics::contentsUrl());
    QVERIFY(!figuresChanged);
}

void tst_HelpWindow::readableInTheDesktopsPalette_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light palette") << false;
    QTest::newRow("dark palette") << true;
}

void tst_HelpWindow::readableInTheDesktopsPalette()
{
    QFETCH(bool, dark);
    const QPalette kept = QApplication::palette();
    const auto restore = qScopeGuard([kept] { QApplication::setPalette(kept); });
    // A topic is open when the desktop changes its palette.
    m_help->showContext(HelpTopics::MetricPrefixes);
    if (dark) {
        QPalette palette = kept;
        for (auto [role, colour] : { std::pair { QPalette::Window, QColor(53, 53, 53) },
                 { QPalette::WindowText, Qt::white }, { QPalette::Base, QColor(35, 35, 35) },
                 { QPalette::AlternateBase, QColor(53, 53, 53) }, { QPalette::Text, Qt::white },
                 { QPalette::Button, QColor(53, 53, 53) }, { QPalette::ButtonText, Qt::white },
                 { QPalette::Link, QColor(42, 130, 218) },
                 { QPalette::Highlight, QColor(42, 130, 218) } })
            palette.setColor(role, colour);
        QApplication::setPalette(palette);
        QCoreApplication::processEvents(); // the windows learn of it through the event loop
    }
    // Three to one, the least contrast for large text in the Web Content Accessibility
    // Guidelines: headings are large, and body text has far more than this.
    QCOMPARE(hardToRead(m_topic, 3.0), QString());
    for (const QString &file : topicFiles()) {
        m_topic->setSource(HelpTopics::baseUrl().resolved(QUrl(file)));
        QVERIFY2(hardToRead(m_topic, 3.0).isEmpty(),
            qPrintable(file + QStringLiteral(": ") + hardToRead(m_topic, 3.0)));
    }
}

void tst_HelpWindow::writtenOutNumbersKeepTheirDigitGroups()
{
    m_help->showContext(HelpTopics::MetricPrefixes); // at the window's first size
    QVERIFY(QTest::qWaitForWindowExposed(m_help));
    m_topic->document()->documentLayout()->documentSize(); // laid out to the end
    static const QRegularExpression number(QStringLiteral("^[0-9.]+(\\x{a0}[0-9]{3})+$"));
    int numbers = 0;
    for (QTextBlock block = m_topic->document()->begin(); block.isValid(); block = block.next()) {
        if (!number.match(block.text()).hasMatch())
            continue;
        ++numbers;
        QVERIFY2(block.layout()->lineCount() == 1, qPrintable(block.text()));
    }
    QVERIFY(numbers > 20);
}

QTEST_MAIN(tst_HelpWindow)
#include "tst_HelpWindow.moc"
