// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Mensura's help: HTML topics compiled in under ":/help", each reached by a context number
// (the numbers the windows ask for) or from the contents page. This is the one place that
// says which number opens which topic; HelpWindow shows them.
#pragma once

#include <QList>
#include <QString>
#include <QUrl>

class HelpTopics
{
public:
    // The context numbers the program uses.
    enum Context {
        MainWindow = 10,
        NumberDisplay = 11,
        MarkedConversions = 12,
        FindUnit = 13,
        CustomQuantitiesTutorial = 24,
        SIUnits = 27,
        Options = 40,
        PhysicalConstants = 100,
        MetricPrefixes = 105,
    };

    // Every context number that has a topic, in ascending order.
    static QList<int> contexts();
    // The topic's file name below the help folder ("constants.html"), or "" for a number
    // without a topic.
    static QString topicFile(int context);
    // The address of a topic ("qrc:/help/constants.html"), or an empty address.
    static QUrl topicUrl(int context);
    // The contents page, which links every topic.
    static QUrl contentsUrl();
    // The folder the topics live in, as an address ("qrc:/help/").
    static QUrl baseUrl();
};
