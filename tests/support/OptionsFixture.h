// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// What the tests of the options dialog share: a hive holding one quantity of the user's
// ("Widgets": widget, its exact default unit, gadget 2.5 and sprocket 0.35), the catalogue and
// settings loaded from it as start-up loads them, scripted answers to the dialog's questions
// (messages need no script step), and the dialog with its controls and tree nodes found by name:
// opened here, shown but not modal, or opened by the main window of the program run on the hive.
#pragma once

#include "catalogue/Catalogue.h"
#include "options/frmSetOpt.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"
#include "support/CountingHive.h"
#include "support/ScriptedDialogs.h"
#include "support/TestFiles.h"
#include "support/TestHive.h"
#include "support/TestProgram.h"

#include <functional>
#include <memory>
#include <QTest>
#include <QTreeWidgetItem>

class OptionsFixture
{
public:
    static const QString Widgets;

    ~OptionsFixture() { close(); }

    // A fresh hive and the state loaded from it; an open dialog is closed first.
    void reset();
    // Opens the dialog on the state loaded. Saves of the hive are counted from here.
    frmSetOpt *open();
    void close();

    // Starts the program on the hive, with its main window active.
    bool startProgram();
    // Opens the dialog with the main window's menu command or status panel of that name and runs
    // act on it inside its event loop; act closes the dialog. False when no dialog opened.
    bool runOptions(const char *command, const std::function<void()> &act);
    frmSetOpt *dialog() const { return m_dialog; }

    // The dialog's control of that name; a test failure when there is none.
    template<typename T> T *control(const char *name) const
    {
        T *found = m_dialog ? m_dialog->findChild<T *>(QString::fromLatin1(name)) : nullptr;
        if (!found)
            QTest::qFail(qPrintable(QStringLiteral("No control named %1").arg(QLatin1String(name))),
                __FILE__, __LINE__);
        return found;
    }
    void click(const char *name);
    // Types into a text box in place of its text, then moves the focus on as leaving it does.
    void type(const char *box, const QString &text);

    // A tree node by key ("root", "pWidgets", "u44 2"); nullptr when there is none.
    QTreeWidgetItem *node(const QString &key) const;
    void select(QTreeWidgetItem *node);
    QString currentKey() const;
    QString icon(QTreeWidgetItem *node) const
    {
        return node ? node->data(0, frmSetOpt::IconKeyRole).toString() : QString();
    }
    // The number of the user's quantity, and the key of its unit node j.
    int widgets() const { return catalogue.findQuantity(Widgets); }
    QString widgetsUnit(int j) const { return QStringLiteral("u%1 %2").arg(widgets()).arg(j); }

    // The next input boxes are answered with these texts.
    void answer(const QStringList &inputs);
    // What was asked of that kind (the notices of messages and questions: dialogs.notices()).
    QList<ScriptedDialogs::Asked> asked(ScriptedDialogs::Kind kind) const;

    QByteArray hiveBytes() const { return fileBytes(hive->path()); }
    // How often the hive was saved since the dialog opened.
    int saves() const { return m_counter->flushes; }
    // A value of the hive, as a later run reads it; "" when absent.
    QString stored(const QString &subKey, const QString &name) const;
    QString storedSetting(const QString &name) const { return stored("settings", name); }

    std::unique_ptr<TestHive> hive;
    ScriptedDialogs dialogs;
    std::unique_ptr<SettingsStore> store;
    Catalogue catalogue;
    Settings settings;
    Session session;
    std::unique_ptr<TestProgram> program;

private:
    CountingHive *m_counter = nullptr;
    std::unique_ptr<frmSetOpt> m_owned;
    frmSetOpt *m_dialog = nullptr;
};
