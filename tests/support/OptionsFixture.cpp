// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "support/OptionsFixture.h"

#include "main/StatusPanel.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

const QString OptionsFixture::Widgets = QStringLiteral("Widgets");

void OptionsFixture::reset()
{
    close();
    hive = std::make_unique<TestHive>();
    hive->writeSetting(QStringLiteral("StartOnce"), QStringLiteral("1"));
    hive->addQuantity(Widgets, { { "widget", "x1" }, { "gadget", "2.5" }, { "sprocket", "0.35" } });
    auto counting = std::make_unique<CountingHive>(hive->path());
    m_counter = counting.get();
    store = std::make_unique<SettingsStore>(std::move(counting));
    catalogue = Catalogue();
    catalogue.LoadCatalogue(*store);
    settings = Settings();
    settings.LoadSettings(*store);
    settings.LoadSigFigs(*store);
    store->close();
    session = Session();
    dialogs.clear();
    dialogs.allowMessages(true);
}

frmSetOpt *OptionsFixture::open()
{
    m_owned = std::make_unique<frmSetOpt>(catalogue, settings, session, *store, dialogs);
    m_dialog = m_owned.get();
    m_dialog->setModal(false); // a modal window would block the test (and alarm the watchdog)
    m_dialog->show();
    QApplication::setActiveWindow(m_dialog);
    if (!QTest::qWaitForWindowActive(m_dialog))
        qWarning("the options dialog did not become active");
    m_counter->flushes = 0;
    return m_dialog;
}

void OptionsFixture::close()
{
    m_owned.reset();
    m_dialog = nullptr;
    program.reset();
}

bool OptionsFixture::startProgram()
{
    program = std::make_unique<TestProgram>(*hive, dialogs);
    if (!program->start() || !QTest::qWaitForWindowExposed(program->window()))
        return false;
    program->window()->activateWindow();
    return QTest::qWaitForWindowActive(program->window());
}

bool OptionsFixture::runOptions(const char *command, const std::function<void()> &act)
{
    bool opened = false;
    QTimer::singleShot(0, [&] {
        m_dialog = qobject_cast<frmSetOpt *>(QApplication::activeModalWidget());
        opened = m_dialog != nullptr;
        if (m_dialog) {
            act();
            if (m_dialog->isVisible()) // a step that failed must not leave the test waiting
                m_dialog->reject();
        }
        m_dialog = nullptr;
    });
    if (QByteArray(command).startsWith("StatusBarPanel"))
        QTest::mouseDClick(program->find<StatusPanel *>(command), Qt::LeftButton);
    else
        program->find<QAction *>(command)->trigger();
    return opened;
}

void OptionsFixture::click(const char *name)
{
    if (auto *button = control<QAbstractButton>(name))
        button->click();
}

void OptionsFixture::type(const char *name, const QString &text)
{
    auto *box = control<QLineEdit>(name);
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
    control<QPushButton>("cmdHelp")->setFocus();
}

QTreeWidgetItem *OptionsFixture::node(const QString &key) const
{
    auto *tree = control<QTreeWidget>("treeMain");
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        if ((*it)->data(0, frmSetOpt::KeyRole).toString() == key)
            return *it;
    return nullptr;
}

void OptionsFixture::select(QTreeWidgetItem *node)
{
    QVERIFY(node);
    control<QTreeWidget>("treeMain")->setCurrentItem(node);
}

QString OptionsFixture::currentKey() const
{
    QTreeWidgetItem *item = control<QTreeWidget>("treeMain")->currentItem();
    return item ? item->data(0, frmSetOpt::KeyRole).toString() : QString();
}

void OptionsFixture::answer(const QStringList &inputs)
{
    for (const QString &input : inputs)
        dialogs.answerInput(input);
}

QList<ScriptedDialogs::Asked> OptionsFixture::asked(ScriptedDialogs::Kind kind) const
{
    QList<ScriptedDialogs::Asked> list = dialogs.asked();
    list.removeIf([kind](const ScriptedDialogs::Asked &one) { return one.kind != kind; });
    return list;
}

QString OptionsFixture::stored(const QString &subKey, const QString &name) const
{
    return hive->read(subKey, name).value_or(QString());
}
