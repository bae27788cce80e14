// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "records/frmConvRecords.h"

#include "catalogue/StringTable.h"
#include "convert/NumberText.h"
#include "help/HelpTopics.h"
#include "main/MainWindowControl.h"
#include "records/ConversionsFile.h"
#include "records/FileDialogTexts.h"
#include "records/MarkedConversionsModel.h"
#include "records/MarkedListDelegate.h"
#include "records/PrintReport.h"
#include "shell/Dialogs.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/SettingsStore.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLayout>
#include <QListView>
#include <QMenuBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QVBoxLayout>

namespace StringId
{
constexpr int MenuFile = 10;
constexpr int MenuEdit = 20;
constexpr int LoadConversions = 66;
constexpr int LoadConversionsHint = 67;
constexpr int Caption = 109;
constexpr int PrintSelected = 110;
constexpr int PrintAll = 111;
constexpr int Close = 112;
constexpr int SaveSelected = 113;
constexpr int SaveAll = 114;
constexpr int CopySelected = 115;
constexpr int CopyAll = 116;
constexpr int DeleteSelected = 120;
constexpr int DeleteAll = 121;
constexpr int CloseButton = 122;
constexpr int DeselectAll = 123;
constexpr int MakeCurrent = 124;
constexpr int PrintSelectedHint = 125;
constexpr int PrintAllHint = 126;
constexpr int CloseHint = 127;
constexpr int SaveSelectedHint = 128;
constexpr int SaveAllHint = 129;
constexpr int CopySelectedHint = 130;
constexpr int CopyAllHint = 131;
constexpr int DeleteSelectedHint = 132;
constexpr int DeleteAllHint = 133;
constexpr int DeselectAllHint = 134;
constexpr int StartMessage = 135;
constexpr int MarkedConversionsCount = 136;
constexpr int MakeCurrentHint = 137;
constexpr int OneSelected = 266;
constexpr int SomeSelected = 267;
constexpr int DeleteSelectedQuestion = 268;
constexpr int PrintSelectedQuestion = 269;
constexpr int PrintAllQuestion = 270;
constexpr int NotFound = 275;
constexpr int UnitsDisabled = 276;
constexpr int QuantityDisabled = 277;
constexpr int Done = 376;
constexpr int Help = 5301;
constexpr int Cancel = 5320;
constexpr int Loading = 5321;
constexpr int Saving = 5322;
constexpr int LoadCancelled = 5323;
constexpr int NotSaved = 5324;
constexpr int ListName = 5329;
constexpr int SaveCancelled = 5660;
} // namespace StringId

namespace
{

// The placement values of this window in the "settings" key, in twips, and their defaults.
struct PlacementValue {
    const char16_t *name;
    int defaultTwips;
};
constexpr PlacementValue Left { u"frmconvleft", 500 };
constexpr PlacementValue Top { u"frmconvtop", 500 };
constexpr PlacementValue Width { u"frmconvwidth", 6000 };
constexpr PlacementValue Height { u"frmconvheight", 5500 };

constexpr int TwipsPerInch = 1440;
// Added to the widest line for the list's horizontal scroll range, in pixels.
constexpr int HorizontalMargin = 50;
// Records read between two looks at the user interface while loading.
constexpr int RecordsPerStep = 5000;
// A load or save that takes longer than this shows a progress window with a Cancel button.
constexpr int ProgressDelayMs = 400;

// The busy pointer for as long as it lives.
class BusyPointer
{
public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::BusyCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer &) = delete;
    BusyPointer &operator=(const BusyPointer &) = delete;
};

QAction *addNamedAction(QMenu *menu, const char *name)
{
    QAction *action = menu->addAction(QString());
    action->setObjectName(QLatin1String(name));
    return action;
}

} // namespace

frmConvRecords::frmConvRecords(Settings &settings, Session &session, SettingsStore &store,
    Dialogs &dialogs, MainWindowControl &mainWindow, QWidget *parent)
    : QMainWindow(parent)
    , m_settings(settings)
    , m_session(session)
    , m_store(store)
    , m_dialogs(dialogs)
    , m_mainWindow(mainWindow)
    , m_reportPrinter(dialogs, this)
{
    setObjectName(QStringLiteral("frmConvRecords"));
    createMenus();
    createControls();
    createStatusBar();
    LoadTexts();
    connectSignals();
    loadPlacement();
    updateCountPanels();
}

frmConvRecords::~frmConvRecords()
{
    if (isVisible())
        savePlacement();
}

void frmConvRecords::createMenus()
{
    mnuFile = menuBar()->addMenu(QString());
    mnuFile->setObjectName(QStringLiteral("mnuFile"));
    mnuFileMakeCurrentConv = addNamedAction(mnuFile, "mnuFileMakeCurrentConv");
    mnuFile->addSeparator();
    mnuFileLoadConversions = addNamedAction(mnuFile, "mnuFileLoadConversions");
    mnuFile->addSeparator();
    mnuFilePrintCurrentRecord = addNamedAction(mnuFile, "mnuFilePrintCurrentRecord");
    mnuFilePrintAllRecords = addNamedAction(mnuFile, "mnuFilePrintAllRecords");
    mnuFile->addSeparator();
    mnuFileSaveCurrentRecord = addNamedAction(mnuFile, "mnuFileSaveCurrentRecord");
    mnuFileSaveAllRecords = addNamedAction(mnuFile, "mnuFileSaveAllRecords");
    mnuFile->addSeparator();
    mnuFileExit = addNamedAction(mnuFile, "mnuFileExit");

    mnuEdit = menuBar()->addMenu(QString());
    mnuEdit->setObjectName(QStringLiteral("mnuEdit"));
    mnuEditSelectAll = addNamedAction(mnuEdit, "mnuEditSelectAll");
    mnuEdit->addSeparator();
    mnuEditCopyItem = addNamedAction(mnuEdit, "mnuEditCopyItem");
    mnuEditCopyAllItems = addNamedAction(mnuEdit, "mnuEditCopyAllItems");
    mnuEdit->addSeparator();
    mnuEditDelSelectedItem = addNamedAction(mnuEdit, "mnuEditDelSelectedItem");
    mnuEditDelAllItems = addNamedAction(mnuEdit, "mnuEditDelAllItems");
}

void frmConvRecords::createControls()
{
    auto *central = new QWidget(this);
    auto *layout = new QVBoxLayout(central);

    m_model = new MarkedConversionsModel(this);
    lstConvRecords = new QListView(central);
    lstConvRecords->setObjectName(QStringLiteral("lstConvRecords"));
    lstConvRecords->setModel(m_model);
    m_delegate = new MarkedListDelegate(lstConvRecords);
    lstConvRecords->setItemDelegate(m_delegate);
    lstConvRecords->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstConvRecords->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // One row size for all rows: a list of a hundred thousand lines lays out at once.
    lstConvRecords->setUniformItemSizes(true);
    lstConvRecords->setWordWrap(false);
    lstConvRecords->setTextElideMode(Qt::ElideNone);
    lstConvRecords->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    layout->addWidget(lstConvRecords, 1);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    cmdHideForm = new QPushButton(central);
    cmdHideForm->setObjectName(QStringLiteral("cmdHideForm"));
    cmdHelp = new QPushButton(central);
    cmdHelp->setObjectName(QStringLiteral("cmdHelp"));
    buttons->addWidget(cmdHideForm);
    buttons->addWidget(cmdHelp);
    layout->addLayout(buttons);
    setCentralWidget(central);

    m_meter = std::make_unique<LineWidthMeter>(lstConvRecords->font());
    QStyleOptionViewItem option;
    option.initFrom(lstConvRecords);
    option.font = lstConvRecords->font();
    option.fontMetrics = QFontMetrics(option.font);
    option.features = QStyleOptionViewItem::HasDisplay;
    option.text = QStringLiteral("Xg");
    m_rowHeight = lstConvRecords->style()
                      ->sizeFromContents(QStyle::CT_ItemViewItem, &option, QSize(), lstConvRecords)
                      .height();
}

void frmConvRecords::createStatusBar()
{
    QStatusBar *bar = statusBar();
    bar->setObjectName(QStringLiteral("StatusBar"));
    mainmessage = new QLabel(bar);
    mainmessage->setObjectName(QStringLiteral("mainmessage"));
    numconvs = new QLabel(bar);
    numconvs->setObjectName(QStringLiteral("numconvs"));
    bar->addWidget(mainmessage, 1);
    bar->addPermanentWidget(numconvs);
}

void frmConvRecords::LoadTexts()
{
    const auto text = [](int id) { return StringTable::text(id); };
    setWindowTitle(text(StringId::Caption));
    mnuFile->setTitle(text(StringId::MenuFile));
    mnuEdit->setTitle(text(StringId::MenuEdit));
    const struct {
        QAction *action;
        int caption;
        int hint;
    } actions[] = {
        { mnuFileMakeCurrentConv, StringId::MakeCurrent, StringId::MakeCurrentHint },
        { mnuFileLoadConversions, StringId::LoadConversions, StringId::LoadConversionsHint },
        { mnuFilePrintCurrentRecord, StringId::PrintSelected, StringId::PrintSelectedHint },
        { mnuFilePrintAllRecords, StringId::PrintAll, StringId::PrintAllHint },
        { mnuFileSaveCurrentRecord, StringId::SaveSelected, StringId::SaveSelectedHint },
        { mnuFileSaveAllRecords, StringId::SaveAll, StringId::SaveAllHint },
        { mnuFileExit, StringId::Close, StringId::CloseHint },
        { mnuEditSelectAll, StringId::DeselectAll, StringId::DeselectAllHint },
        { mnuEditCopyItem, StringId::CopySelected, StringId::CopySelectedHint },
        { mnuEditCopyAllItems, StringId::CopyAll, StringId::CopyAllHint },
        { mnuEditDelSelectedItem, StringId::DeleteSelected, StringId::DeleteSelectedHint },
        { mnuEditDelAllItems, StringId::DeleteAll, StringId::DeleteAllHint },
    };
    for (const auto &entry : actions) {
        entry.action->setText(text(entry.caption));
        entry.action->setStatusTip(text(entry.hint));
    }
    cmdHideForm->setText(text(StringId::CloseButton));
    cmdHideForm->setStatusTip(text(StringId::CloseHint));
    cmdHelp->setText(text(StringId::Help));
    lstConvRecords->setAccessibleName(text(StringId::ListName));
    mainmessage->setText(text(StringId::StartMessage));
}

void frmConvRecords::connectSignals()
{
    connect(mnuFile, &QMenu::aboutToShow, this, &frmConvRecords::mnuFile_Open);
    connect(mnuEdit, &QMenu::aboutToShow, this, &frmConvRecords::mnuEdit_Open);
    connect(mnuFileMakeCurrentConv, &QAction::triggered, this,
        &frmConvRecords::mnuFileMakeCurrentConv_Click);
    connect(mnuFileLoadConversions, &QAction::triggered, this,
        &frmConvRecords::mnuFileLoadConversions_Click);
    connect(mnuFilePrintCurrentRecord, &QAction::triggered, this,
        &frmConvRecords::mnuFilePrintCurrentRecord_Click);
    connect(mnuFilePrintAllRecords, &QAction::triggered, this,
        &frmConvRecords::mnuFilePrintAllRecords_Click);
    connect(mnuFileSaveCurrentRecord, &QAction::triggered, this,
        &frmConvRecords::mnuFileSaveCurrentRecord_Click);
    connect(mnuFileSaveAllRecords, &QAction::triggered, this,
        &frmConvRecords::mnuFileSaveAllRecords_Click);
    connect(mnuFileExit, &QAction::triggered, this, &frmConvRecords::mnuFileExit_Click);
    connect(mnuEditSelectAll, &QAction::triggered, this, &frmConvRecords::mnuEditSelectAll_Click);
    connect(mnuEditCopyItem, &QAction::triggered, this, &frmConvRecords::mnuEditCopyItem_Click);
    connect(
        mnuEditCopyAllItems, &QAction::triggered, this, &frmConvRecords::mnuEditCopyAllItems_Click);
    connect(mnuEditDelSelectedItem, &QAction::triggered, this,
        &frmConvRecords::mnuEditDelSelectedItem_Click);
    connect(
        mnuEditDelAllItems, &QAction::triggered, this, &frmConvRecords::mnuEditDelAllItems_Click);
    connect(cmdHideForm, &QPushButton::clicked, this, &frmConvRecords::cmdHideForm_Click);
    connect(cmdHelp, &QPushButton::clicked, this, &frmConvRecords::cmdHelp_Click);
    connect(lstConvRecords->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &frmConvRecords::lstConvRecords_Click);
}

// Placement

static int twipsToPixels(int twips, qreal dpi)
{
    return qRound(twips * dpi / TwipsPerInch);
}

static int pixelsToTwips(int pixels, qreal dpi)
{
    return qBound(-32768, qRound(pixels * TwipsPerInch / dpi), 32767);
}

void frmConvRecords::loadPlacement()
{
    const auto read = [this](const PlacementValue &value) {
        const QString text = m_store.RegReadString(
            Settings::Section, QString::fromUtf16(value.name), QString::number(value.defaultTwips));
        try {
            return NumberText::toInt16(text);
        } catch (const RuntimeError &) {
            return value.defaultTwips;
        }
    };
    QScreen *screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    const qreal dpi = screen ? screen->logicalDotsPerInch() : 96;
    QRect placement(twipsToPixels(read(Left), dpi), twipsToPixels(read(Top), dpi),
        twipsToPixels(read(Width), dpi), twipsToPixels(read(Height), dpi));
    placement.setSize(placement.size().expandedTo(minimumSizeHint()));
    // A placement that no screen shows any more (a screen since removed) falls back to the
    // default one.
    bool visible = false;
    for (const QScreen *s : QGuiApplication::screens())
        visible = visible || s->availableGeometry().intersects(placement);
    if (!visible)
        placement
            = QRect(twipsToPixels(Left.defaultTwips, dpi), twipsToPixels(Top.defaultTwips, dpi),
                twipsToPixels(Width.defaultTwips, dpi), twipsToPixels(Height.defaultTwips, dpi));
    move(placement.topLeft());
    resize(placement.size());
}

void frmConvRecords::savePlacement()
{
    if (!m_everShown)
        return;
    const qreal dpi = screen() ? screen()->logicalDotsPerInch() : 96;
    const auto write = [&](const PlacementValue &value, int pixels) {
        m_store.RegWriteString(Settings::Section, QString::fromUtf16(value.name),
            QString::number(pixelsToTwips(pixels, dpi)));
    };
    SettingsStore::Batch batch(m_store);
    write(Left, pos().x());
    write(Top, pos().y());
    write(Width, width());
    write(Height, height());
}

void frmConvRecords::showEvent(QShowEvent *event)
{
    m_everShown = true;
    // Never so narrow that the status bar cuts the count or the message (the first one, or a
    // selection text) of a list of up to 999 lines. The size grip is there only from now on, and
    // the bar's inner layout may still hold the sizes its labels had before they got their
    // texts: activating it measures them again.
    const QFontMetrics metrics = mainmessage->fontMetrics();
    const QString count
        = QStringLiteral("999") + StringTable::text(StringId::MarkedConversionsCount);
    const QString selection
        = QStringLiteral("999") + StringTable::text(StringId::SomeSelected) + count;
    mainmessage->setMinimumWidth(qMax(metrics.horizontalAdvance(selection),
        metrics.horizontalAdvance(StringTable::text(StringId::StartMessage))));
    numconvs->setMinimumWidth(numconvs->fontMetrics().horizontalAdvance(count));
    statusBar()->layout()->activate();
    statusBar()->setMinimumWidth(statusBar()->minimumSizeHint().width());
    layout()->activate();
    QMainWindow::showEvent(event);
}

void frmConvRecords::closeEvent(QCloseEvent *event)
{
    // Closing hides the window; the list stays for the rest of the run.
    savePlacement();
    m_shownWithMainWindow = false;
    event->accept();
}

void frmConvRecords::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        m_shownWithMainWindow = true;
    QMainWindow::changeEvent(event);
}

// The list

void frmConvRecords::AddConv(const QString &fromValue, const QString &fromUnit,
    const QString &toValue, const QString &toUnit, const QString &quantity)
{
    addConversions({ MarkedConversion { fromValue, fromUnit, toValue, toUnit, quantity } });
}

void frmConvRecords::addConversions(const QList<MarkedConversion> &records)
{
    if (records.isEmpty())
        return;
    int quantityWidth = m_widestQuantity;
    int conversionWidth = m_widestConversion;
    for (const MarkedConversion &record : records) {
        const QString line = record.listLine();
        quantityWidth = qMax(quantityWidth, m_meter->width(record.quantity));
        // What follows the quantity and its two tabs.
        conversionWidth = qMax(
            conversionWidth, m_meter->width(QStringView(line).mid(record.quantity.size() + 2)));
    }
    m_model->append(records);
    updateListMeasures(quantityWidth, conversionWidth);
    m_session.MarkedConversionsSaved = false;
    updateCountPanels();
}

// The tab stops follow the widest quantity name; the rows are as wide as the widest line, plus
// a margin, which sets the list's horizontal scroll range.
void frmConvRecords::updateListMeasures(int quantityWidth, int conversionWidth)
{
    if (quantityWidth == m_widestQuantity && conversionWidth == m_widestConversion
        && m_model->itemSize().isValid())
        return;
    const bool tabsMove = quantityWidth != m_widestQuantity;
    m_widestQuantity = quantityWidth;
    m_widestConversion = conversionWidth;
    const int gap = lstConvRecords->fontMetrics().averageCharWidth();
    const int firstTab = m_widestQuantity + 2 * gap;
    const int secondTab = firstTab + gap;
    m_delegate->setTabStops(firstTab, secondTab);
    const int lineWidth
        = secondTab + m_widestConversion + 2 * MarkedListDelegate::textMargin(lstConvRecords);
    m_model->setItemSize(QSize(lineWidth + HorizontalMargin, m_rowHeight));
    if (tabsMove)
        lstConvRecords->viewport()->update();
}

int frmConvRecords::count() const
{
    return m_model->rowCount();
}

const QList<MarkedConversion> &frmConvRecords::conversions() const
{
    return m_model->records();
}

void frmConvRecords::clearAll()
{
    m_model->clear();
    updateCountPanels();
}

void frmConvRecords::updateCountPanels()
{
    const int n = count();
    numconvs->setText(QString::number(n) + StringTable::text(StringId::MarkedConversionsCount));
    // The selection signals of a deletion come before the lines go: count again.
    if (m_selectionTextShown)
        lstConvRecords_Click();
    m_mainWindow.markedCountChanged(n);
}

QList<int> frmConvRecords::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList selected = lstConvRecords->selectionModel()->selectedRows();
    rows.reserve(selected.size());
    for (const QModelIndex &index : selected)
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

QList<MarkedConversion> frmConvRecords::chosenRecords(Mode mode) const
{
    if (mode == All)
        return conversions();
    QList<MarkedConversion> chosen;
    const QList<MarkedConversion> &records = conversions();
    for (const int row : selectedRows())
        chosen.append(records[row]);
    return chosen;
}

void frmConvRecords::lstConvRecords_Click()
{
    const int selected = int(lstConvRecords->selectionModel()->selectedRows().size());
    const QString total
        = QString::number(count()) + StringTable::text(StringId::MarkedConversionsCount);
    if (selected == 1)
        mainmessage->setText(StringTable::text(StringId::OneSelected) + total);
    else
        mainmessage->setText(
            QString::number(selected) + StringTable::text(StringId::SomeSelected) + total);
    m_selectionTextShown = true;
}

// Menus are enabled when they open: commands on all lines need a line, commands on the
// selection need a selected line, making a line current needs exactly one.

void frmConvRecords::mnuFile_Open()
{
    const int selected = int(lstConvRecords->selectionModel()->selectedRows().size());
    const bool any = count() > 0;
    mnuFileMakeCurrentConv->setEnabled(selected == 1);
    mnuFilePrintCurrentRecord->setEnabled(selected > 0);
    mnuFileSaveCurrentRecord->setEnabled(selected > 0);
    mnuFilePrintAllRecords->setEnabled(any);
    mnuFileSaveAllRecords->setEnabled(any);
}

void frmConvRecords::mnuEdit_Open()
{
    const bool selection = lstConvRecords->selectionModel()->hasSelection();
    const bool any = count() > 0;
    mnuEditSelectAll->setEnabled(selection);
    mnuEditCopyItem->setEnabled(selection);
    mnuEditDelSelectedItem->setEnabled(selection);
    mnuEditCopyAllItems->setEnabled(any);
    mnuEditDelAllItems->setEnabled(any);
}

// Commands

void frmConvRecords::mnuFileMakeCurrentConv_Click()
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty())
        return;
    const MarkedConversion record = conversions().at(rows.last());
    m_session.SkipNextUpdate = true;
    bool found = m_mainWindow.selectQuantity(record.quantity);
    if (found) {
        m_mainWindow.setValueText(record.fromValue);
        found = m_mainWindow.selectLeftUnit(record.fromUnit)
            && m_mainWindow.selectRightUnit(record.toUnit);
    }
    if (found) {
        m_mainWindow.refreshResult();
        return;
    }
    // What was changed before the missing part was met stays changed.
    const QString text = StringTable::text(StringId::NotFound) + QStringLiteral("\n\n")
        + StringTable::text(StringId::UnitsDisabled) + u'\n'
        + StringTable::text(StringId::QuantityDisabled);
    m_dialogs.message(this, Notice { Notice::Exclamation, text, QString() });
}

void frmConvRecords::mnuFileLoadConversions_Click()
{
    const QString path = FileDialogTexts::openFileName(m_dialogs, this);
    if (!path.isEmpty())
        loadFile(path, this);
}

frmConvRecords::LoadOutcome frmConvRecords::loadFile(const QString &path, QWidget *dialogParent)
{
    LoadOutcome outcome;
    BusyPointer busy;
    ConversionsReader reader(path);
    outcome.status = reader.open();
    if (outcome.status == ConversionsReader::Foreign) {
        m_dialogs.message(dialogParent, reader.notice());
        return outcome;
    }
    // A file that cannot be read ends the command quietly, as a damaged record does.
    if (outcome.status != ConversionsReader::Reading)
        return outcome;

    startProgress(StringId::Loading, dialogParent);
    QList<MarkedConversion> step;
    int steps = 0;
    while (outcome.status == ConversionsReader::Reading) {
        step.clear();
        outcome.status = reader.readSome(step, RecordsPerStep);
        addConversions(step);
        outcome.added += int(step.size());
        if (outcome.status == ConversionsReader::Reading
            && !reportProgress(reader.position(), reader.size())) {
            outcome.cancelled = true;
            break;
        }
        ++steps;
    }
    endProgress();
    // A load long enough to show its progress ends at 100%, as a save does, however short its
    // last step was.
    if (steps > 1 && !outcome.cancelled)
        reportProgress(reader.size(), reader.size());
    if (outcome.cancelled) {
        m_dialogs.message(dialogParent,
            Notice { Notice::Information,
                StringTable::text(StringId::LoadCancelled).arg(outcome.added), QString() });
    }
    return outcome;
}

void frmConvRecords::mnuFilePrintCurrentRecord_Click()
{
    PrintRecords(Some);
}

void frmConvRecords::mnuFilePrintAllRecords_Click()
{
    PrintRecords(All);
}

void frmConvRecords::PrintRecords(Mode mode)
{
    const int question
        = mode == Some ? StringId::PrintSelectedQuestion : StringId::PrintAllQuestion;
    if (m_dialogs.question(this,
            Notice { Notice::Exclamation, StringTable::text(question), QString() }, Dialogs::YesNo,
            Dialogs::Yes)
        != Dialogs::Yes)
        return;
    const QList<ReportLine> lines = PrintReport::markedReport(chosenRecords(mode));
    BusyPointer busy;
    m_reportPrinter.print(lines);
}

void frmConvRecords::mnuFileSaveCurrentRecord_Click()
{
    SaveRecords(Some);
}

void frmConvRecords::mnuFileSaveAllRecords_Click()
{
    SaveRecords(All);
}

void frmConvRecords::SaveRecords(Mode mode)
{
    const QString path = FileDialogTexts::saveFileName(m_dialogs, this);
    if (path.isEmpty())
        return;
    const QList<MarkedConversion> records = chosenRecords(mode);
    ConversionsFile::WriteResult result;
    {
        BusyPointer busy;
        startProgress(StringId::Saving, this);
        result = ConversionsFile::saveRecords(path, records,
            [this](qint64 done, qint64 total) { return reportProgress(done, total); });
        endProgress();
    }
    switch (result.status) {
    case ConversionsFile::WriteResult::Written:
        if (mode == All)
            m_session.MarkedConversionsSaved = true;
        break;
    case ConversionsFile::WriteResult::Cancelled:
        mainmessage->setText(StringTable::text(StringId::SaveCancelled));
        m_selectionTextShown = false;
        break;
    case ConversionsFile::WriteResult::Failed:
        m_dialogs.message(this,
            Notice { Notice::Exclamation,
                StringTable::text(StringId::NotSaved).arg(path, result.errorText), QString() });
        break;
    }
}

void frmConvRecords::mnuFileExit_Click()
{
    close();
}

void frmConvRecords::cmdHideForm_Click()
{
    mnuFileExit_Click();
}

void frmConvRecords::cmdHelp_Click()
{
    emit helpRequested(HelpTopics::MarkedConversions);
}

void frmConvRecords::mnuEditSelectAll_Click()
{
    lstConvRecords->clearSelection();
}

void frmConvRecords::mnuEditCopyItem_Click()
{
    CopyRecords(Some);
}

void frmConvRecords::mnuEditCopyAllItems_Click()
{
    CopyRecords(All);
}

void frmConvRecords::CopyRecords(Mode mode)
{
#ifdef Q_OS_WIN
    const QString lineEnd = QStringLiteral("\r\n");
#else
    const QString lineEnd = QStringLiteral("\n");
#endif
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(PrintReport::clipboardText(chosenRecords(mode), lineEnd));
}

void frmConvRecords::mnuEditDelSelectedItem_Click()
{
    const Notice question { Notice::Critical, StringTable::text(StringId::DeleteSelectedQuestion),
        QString() };
    if (m_dialogs.question(this, question, Dialogs::YesNo, Dialogs::Yes) != Dialogs::Yes)
        return;
    BusyPointer busy;
    lstConvRecords->setUpdatesEnabled(false);
    m_model->removeRowList(selectedRows());
    lstConvRecords->setUpdatesEnabled(true);
    updateCountPanels();
}

void frmConvRecords::mnuEditDelAllItems_Click()
{
    emit deleteAllRequested();
}

// Progress of loading and saving: the status bar shows how much is done; a run that takes a
// while also gets a progress window whose Cancel button stops it.

void frmConvRecords::startProgress(int labelId, QWidget *dialogParent)
{
    m_cancelRequested = false;
    m_progress = new QProgressDialog(
        StringTable::text(labelId), StringTable::text(StringId::Cancel), 0, 100, dialogParent);
    m_progress->setObjectName(QStringLiteral("progress"));
    m_progress->setWindowTitle(StringTable::text(StringId::Caption));
    m_progress->setWindowModality(Qt::WindowModal);
    m_progress->setMinimumDuration(ProgressDelayMs);
    m_progress->setAutoClose(false);
    m_progress->setAutoReset(false);
    connect(m_progress, &QProgressDialog::canceled, this, &frmConvRecords::cancelOperation);
    m_progress->setValue(0);
}

bool frmConvRecords::reportProgress(qint64 done, qint64 total)
{
    const int percent = total > 0 ? int(qRound64(100.0 * double(done) / double(total))) : 100;
    mainmessage->setText(QString::number(percent) + u'%' + StringTable::text(StringId::Done));
    m_selectionTextShown = false;
    if (m_progress)
        m_progress->setValue(qMin(percent, 99));
    emit progressed(percent);
    QCoreApplication::processEvents();
    return !m_cancelRequested;
}

void frmConvRecords::endProgress()
{
    delete m_progress;
    m_progress = nullptr;
}

void frmConvRecords::cancelOperation()
{
    m_cancelRequested = true;
}
