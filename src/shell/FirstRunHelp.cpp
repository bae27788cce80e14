// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/FirstRunHelp.h"

#include "catalogue/StringTable.h"

#include <QKeySequence>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace StringId
{
constexpr int HelpCaption = 5620;
constexpr int Contents = 5630;
// Pairs of heading and paragraph, then the closing note.
constexpr int FirstSection = 5631;
constexpr int SectionCount = 4;
constexpr int ClosingNote = 5639;
} // namespace StringId

FirstRunHelp::FirstRunHelp(QWidget *parent)
    : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("FirstRunHelp"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(StringTable::text(StringId::HelpCaption));
    auto *page = new QTextBrowser(this);
    page->setObjectName(QStringLiteral("txtContents"));
    page->setOpenLinks(false);
    page->setHtml(contentsPage());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(page);
    auto *close = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
    resize(fontMetrics().averageCharWidth() * 64, fontMetrics().height() * 26);
}

QString FirstRunHelp::contentsPage()
{
    QString html
        = QStringLiteral("<h2>%1</h2>").arg(StringTable::text(StringId::Contents).toHtmlEscaped());
    for (int i = 0; i < StringId::SectionCount; ++i) {
        const int heading = StringId::FirstSection + 2 * i;
        html += QStringLiteral("<h3>%1</h3><p>%2</p>")
                    .arg(StringTable::text(heading).toHtmlEscaped(),
                        StringTable::text(heading + 1).toHtmlEscaped());
    }
    html += QStringLiteral("<p><i>%1</i></p>")
                .arg(StringTable::text(StringId::ClosingNote).toHtmlEscaped());
    return html;
}
