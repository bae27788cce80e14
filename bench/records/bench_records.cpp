// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// A conversions file of 100 000 records: read into the marked conversions window (shown on the
// offscreen platform, so the list lays out and draws) and written back through the window's
// save command, each against the core's reading and writing alone.
#include "main/MainWindowControl.h"
#include "records/ConversionsFile.h"
#include "records/ConversionsReader.h"
#include "records/frmConvRecords.h"
#include "shell/Dialogs.h"
#include "shell/HiveFile.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <benchmark/benchmark.h>
#include <QAction>
#include <QApplication>
#include <QTemporaryDir>

namespace
{

constexpr int RecordCount = 100000;

class NoMainWindow : public MainWindowControl
{
public:
    bool selectQuantity(const QString &) override { return false; }
    bool selectLeftUnit(const QString &) override { return false; }
    bool selectRightUnit(const QString &) override { return false; }
    void setValueText(const QString &) override { }
    void refreshResult() override { }
    void focusValue() override { }
    void markedCountChanged(int) override { }
};

// Answers every file dialog with one path.
class FixedDialogs : public Dialogs
{
public:
    QString path;
    void message(QWidget *, const Notice &) override { }
    Answer question(QWidget *, const Notice &, Buttons, Answer) override { return Yes; }
    std::optional<QString> input(
        QWidget *, const QString &, const QString &, const QString &) override
    {
        return std::nullopt;
    }
    QString openFileName(QWidget *, const QString &) override { return path; }
    QString saveFileName(QWidget *, const QString &, const QString &, const QString &) override
    {
        return path;
    }
};

struct Fixture {
    QTemporaryDir dir;
    QString source = dir.filePath(QStringLiteral("marked.txt"));
    QString target = dir.filePath(QStringLiteral("saved.txt"));
    QList<MarkedConversion> records;

    Fixture()
    {
        const QString quantities[] = { QStringLiteral("Length"), QStringLiteral("Temperature"),
            QStringLiteral("Pressure or Stress") };
        const QString units[] = { QStringLiteral("metre (m)"), QStringLiteral("Celsius (\u00B0C)"),
            QStringLiteral("pound-force per square inch (psi)"),
            QStringLiteral("erg  (dyne-centimetre)") };
        records.reserve(RecordCount);
        for (int i = 0; i < RecordCount; ++i) {
            records.append({ QString::number(i % 997 + 1), units[i % 4],
                QString::number((i % 997 + 1) * 3.28084, 'g', 7), units[(i + 1) % 4],
                quantities[i % 3] });
        }
        ConversionsFile::saveRecords(source, records);
    }
};

Fixture &fixture()
{
    static Fixture f;
    return f;
}

void ReadRecordsCore(benchmark::State &state)
{
    for (auto _ : state) {
        const auto result = ConversionsReader::readFile(fixture().source);
        benchmark::DoNotOptimize(result.records.size());
    }
}
BENCHMARK(ReadRecordsCore)->Unit(benchmark::kMillisecond);

void WriteRecordsCore(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            ConversionsFile::saveRecords(fixture().target, fixture().records).ok());
}
BENCHMARK(WriteRecordsCore)->Unit(benchmark::kMillisecond);

struct Window {
    QTemporaryDir dir;
    SettingsStore store { std::make_unique<HiveFile>(dir.filePath(QStringLiteral("hive.reg"))) };
    Settings settings;
    Session session;
    FixedDialogs dialogs;
    NoMainWindow mainWindow;
    frmConvRecords window { settings, session, store, dialogs, mainWindow };

    Window()
    {
        window.show();
        QCoreApplication::processEvents();
    }
};

void LoadIntoWindow(benchmark::State &state)
{
    Window w;
    for (auto _ : state) {
        state.PauseTiming();
        w.window.clearAll();
        QCoreApplication::processEvents();
        state.ResumeTiming();
        w.window.loadFile(fixture().source);
        QCoreApplication::processEvents(); // the list lays itself out and draws
        benchmark::DoNotOptimize(w.window.count());
    }
    state.counters["records"] = w.window.count();
}
BENCHMARK(LoadIntoWindow)->Unit(benchmark::kMillisecond);

void SaveFromWindow(benchmark::State &state)
{
    Window w;
    w.window.addConversions(fixture().records);
    w.dialogs.path = fixture().target;
    QAction *save = w.window.findChild<QAction *>(QStringLiteral("mnuFileSaveAllRecords"));
    for (auto _ : state) {
        save->trigger();
        QCoreApplication::processEvents();
    }
    state.counters["records"] = w.window.count();
}
BENCHMARK(SaveFromWindow)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
