// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The table of help context numbers and their topic files.
#include "help/HelpTopics.h"

#include <algorithm>
#include <iterator>

namespace
{
struct Topic {
    int context;
    const char *file;
};

// Ordered by context number.
constexpr Topic Topics[] = {
    { HelpTopics::MainWindow, "mainwindow.html" },
    { HelpTopics::NumberDisplay, "numbers.html" },
    { HelpTopics::MarkedConversions, "marked.html" },
    { HelpTopics::FindUnit, "findunit.html" },
    { HelpTopics::CustomQuantitiesTutorial, "customunits.html" },
    { HelpTopics::SIUnits, "siunits.html" },
    { HelpTopics::Options, "options.html" },
    { HelpTopics::PhysicalConstants, "constants.html" },
    { HelpTopics::MetricPrefixes, "prefixes.html" },
};

const char ContentsFile[] = "index.html";
} // namespace

QList<int> HelpTopics::contexts()
{
    QList<int> numbers;
    for (const Topic &topic : Topics)
        numbers.append(topic.context);
    return numbers;
}

QString HelpTopics::topicFile(int context)
{
    const auto found = std::find_if(std::begin(Topics), std::end(Topics),
        [context](const Topic &topic) { return topic.context == context; });
    return found == std::end(Topics) ? QString() : QString::fromLatin1(found->file);
}

QUrl HelpTopics::topicUrl(int context)
{
    const QString file = topicFile(context);
    return file.isEmpty() ? QUrl() : baseUrl().resolved(QUrl(file));
}

QUrl HelpTopics::contentsUrl()
{
    return baseUrl().resolved(QUrl(QString::fromLatin1(ContentsFile)));
}

QUrl HelpTopics::baseUrl()
{
    return QUrl(QStringLiteral("qrc:/help/"));
}
