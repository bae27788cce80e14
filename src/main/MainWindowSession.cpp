// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "main/MainWindowSession.h"

#include "catalogue/StringTable.h"
#include "convert/NumberText.h"
#include "main/MainWindowStrings.h"
#include "main/WindowPlacement.h"
#include "shell/Dialogs.h"
#include "shell/HiveFile.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QDir>

// The window's own values in the "settings" key; the options live in Settings.
namespace Value
{
const QString WindowState = QStringLiteral("windowstate");
const QString Left = QStringLiteral("left");
const QString Top = QStringLiteral("top");
const QString Width = QStringLiteral("width");
const QString Height = QStringLiteral("height");
const QString LastQuantity = QStringLiteral("currphysquan");
const QString LastValue = QStringLiteral("currvalue");
const QString LastUnit1 = QStringLiteral("currunit1");
const QString LastUnit2 = QStringLiteral("currunit2");
} // namespace Value

namespace
{

// "windowstate": these codes, not the toolkit's own numbers, are what is stored.
const QString Normal = QStringLiteral("0");
const QString Maximised = QStringLiteral("1");
const QString Minimised = QStringLiteral("2");

constexpr int DefaultLeftTwips = 200;
constexpr int DefaultTopTwips = 200;
constexpr int DefaultWidthTwips = 9250;
constexpr int HeightBelowScreenTwips = 800;

} // namespace

MainWindowSession::MainWindowSession(SettingsStore &store, Dialogs &dialogs)
    : m_store(store)
    , m_dialogs(dialogs)
{
}

MainWindowSession::Placement MainWindowSession::readPlacement(
    QWidget *parent, qreal dpiX, qreal dpiY, int screenHeight)
{
    // A stored text that is no number is reported as the run-time error it is, and the
    // default is used instead.
    const auto read = [this, parent](const QString &name, int defaultValue) {
        const QString stored
            = m_store.RegReadString(Settings::Section, name, QString::number(defaultValue));
        try {
            return NumberText::toInt32(stored);
        } catch (RuntimeError &error) {
            error.detail = StringTable::text(MainText::SettingNotANumber)
                               .arg(name, stored, QString::number(defaultValue));
            m_dialogs.message(parent, Notice { Notice::NoIcon, error.messageText(), QString() });
            return defaultValue;
        }
    };
    const int screenTwips = WindowPlacement::pixelsToTwips(screenHeight, dpiY);
    const int left = read(Value::Left, DefaultLeftTwips);
    const int top = read(Value::Top, DefaultTopTwips);
    const int width = read(Value::Width, DefaultWidthTwips);
    const int height = read(Value::Height, screenTwips - HeightBelowScreenTwips);
    const int state = read(Value::WindowState, 0);

    Placement placement;
    placement.frame = QRect(WindowPlacement::twipsToPixels(left, dpiX),
        WindowPlacement::twipsToPixels(top, dpiY), WindowPlacement::twipsToPixels(width, dpiX),
        WindowPlacement::twipsToPixels(height, dpiY));
    if (state == Maximised.toInt())
        placement.state = Qt::WindowMaximized;
    else if (state == Minimised.toInt())
        placement.state = Qt::WindowMinimized;
    return placement;
}

void MainWindowSession::save(
    const Closing &closing, const Settings &settings, qreal dpiX, qreal dpiY)
{
    {
        const SettingsStore::Batch batch(m_store);
        const QString code = closing.state.testFlag(Qt::WindowMinimized) ? Minimised
            : closing.state.testFlag(Qt::WindowMaximized)                ? Maximised
                                                                         : Normal;
        m_store.RegWriteString(Settings::Section, Value::WindowState, code);
        if (code == Normal) {
            const auto write = [this](const QString &name, int twips) {
                m_store.RegWriteString(Settings::Section, name, QString::number(twips));
            };
            write(Value::Left, WindowPlacement::pixelsToTwips(closing.frame.x(), dpiX));
            write(Value::Top, WindowPlacement::pixelsToTwips(closing.frame.y(), dpiY));
            write(Value::Width, WindowPlacement::pixelsToTwips(closing.frame.width(), dpiX));
            write(Value::Height, WindowPlacement::pixelsToTwips(closing.frame.height(), dpiY));
        }
        if (!closing.quantity.isEmpty() && settings.RememberLast) {
            m_store.RegWriteString(Settings::Section, Value::LastQuantity, closing.quantity);
            m_store.RegWriteString(Settings::Section, Value::LastValue, closing.value);
            m_store.RegWriteString(Settings::Section, Value::LastUnit1, closing.leftUnit);
            m_store.RegWriteString(Settings::Section, Value::LastUnit2, closing.rightUnit);
        }
        settings.save(m_store, QStringLiteral("scientific"));
        settings.save(m_store, QStringLiteral("numericformatting"));
    }
    m_store.close();
}

void MainWindowSession::reportStoreFailure(QWidget *parent)
{
    if (m_storeFailureReported || !m_store.saveFailed())
        return;
    m_storeFailureReported = true;
    const QString detail = m_store.errorText();
    const auto *hive = dynamic_cast<const HiveFile *>(&m_store.backend());
    const QString where = hive ? QDir::toNativeSeparators(hive->fileName())
                               : QStringLiteral("HKEY_CURRENT_USER\\") + SettingsStore::ProductKey;
    QString message = StringTable::text(MainText::StoreNotWritable).arg(where);
    if (!detail.isEmpty())
        message += QStringLiteral("\n\n") + detail;
    m_dialogs.message(parent, Notice { Notice::Exclamation, message, QString() });
}
