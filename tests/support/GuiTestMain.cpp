// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "support/GuiTestMain.h"

#include <QApplication>
#include <QDir>
#include <QTimer>
#include <QWidget>

namespace GuiTest
{

void prepareEnvironment()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QString folder = QDir::tempPath() + QStringLiteral("/mensura-test-runtime");
        QDir().mkpath(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder));
    }
}

int run(QObject *test, int argc, char **argv)
{
    QTimer watchdog;
    watchdog.setInterval(200);
    QObject::connect(&watchdog, &QTimer::timeout, [] {
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal)
            return;
        const QString failure
            = QStringLiteral("A modal window turned up outside Dialogs: %1 \"%2\"")
                  .arg(QString::fromLatin1(modal->metaObject()->className()), modal->windowTitle());
        QTest::qFail(qPrintable(failure), __FILE__, __LINE__);
        modal->close();
    });
    watchdog.start();
    return QTest::qExec(test, argc, argv);
}

} // namespace GuiTest
