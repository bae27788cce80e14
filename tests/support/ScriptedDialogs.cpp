// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "support/ScriptedDialogs.h"

#include <QTest>

static const char *kindName(ScriptedDialogs::Kind kind)
{
    static const char *const names[]
        = { "message", "question", "input box", "open-file dialog", "save-file dialog" };
    return names[kind];
}

void ScriptedDialogs::expectMessage()
{
    m_script.append({ Message, Ok, std::nullopt });
}

void ScriptedDialogs::answerQuestion(Answer answer)
{
    m_script.append({ Question, answer, std::nullopt });
}

void ScriptedDialogs::answerInput(const std::optional<QString> &text)
{
    m_script.append({ Input, Ok, text });
}

void ScriptedDialogs::answerOpenFile(const QString &path)
{
    m_script.append({ OpenFile, Ok, path });
}

void ScriptedDialogs::answerSaveFile(const QString &path)
{
    m_script.append({ SaveFile, Ok, path });
}

QList<Notice> ScriptedDialogs::notices() const
{
    QList<Notice> list;
    for (const Asked &asked : m_asked)
        if (asked.kind == Message || asked.kind == Question)
            list.append(asked.notice);
    return list;
}

void ScriptedDialogs::clear()
{
    m_script.clear();
    m_asked.clear();
}

std::optional<ScriptedDialogs::Step> ScriptedDialogs::take(Kind kind, const QString &what)
{
    if (m_script.isEmpty() || m_script.constFirst().kind != kind) {
        const QString expected = m_script.isEmpty()
            ? QStringLiteral("nothing")
            : QString::fromLatin1(kindName(m_script.constFirst().kind));
        const QString failure = QStringLiteral("Unexpected %1 (the script expected %2): %3")
                                    .arg(QString::fromLatin1(kindName(kind)), expected, what);
        QTest::qFail(qPrintable(failure), __FILE__, __LINE__);
        return std::nullopt;
    }
    return m_script.takeFirst();
}

void ScriptedDialogs::message(QWidget *, const Notice &notice)
{
    m_asked.append({ Message, notice, YesNo, Ok, {}, {}, {}, {}, {}, {} });
    if (m_allowMessages && (m_script.isEmpty() || m_script.constFirst().kind != Message))
        return;
    take(Message, notice.text);
}

Dialogs::Answer ScriptedDialogs::question(
    QWidget *, const Notice &notice, Buttons buttons, Answer defaultAnswer)
{
    m_asked.append({ Question, notice, buttons, defaultAnswer, {}, {}, {}, {}, {}, {} });
    const std::optional<Step> step = take(Question, notice.text);
    if (!step)
        return buttons == YesNoCancel ? Cancel : No;
    return step->answer;
}

std::optional<QString> ScriptedDialogs::input(
    QWidget *, const QString &prompt, const QString &title, const QString &defaultText)
{
    m_asked.append({ Input, {}, YesNo, Ok, prompt, title, defaultText, {}, {}, {} });
    const std::optional<Step> step = take(Input, prompt);
    return step ? step->text : std::nullopt;
}

QString ScriptedDialogs::openFileName(QWidget *, const QString &filter)
{
    m_asked.append({ OpenFile, {}, YesNo, Ok, {}, {}, {}, filter, {}, {} });
    const std::optional<Step> step = take(OpenFile, filter);
    return step ? step->text.value_or(QString()) : QString();
}

QString ScriptedDialogs::saveFileName(
    QWidget *, const QString &filter, const QString &defaultName, const QString &defaultSuffix)
{
    m_asked.append({ SaveFile, {}, YesNo, Ok, {}, {}, {}, filter, defaultName, defaultSuffix });
    const std::optional<Step> step = take(SaveFile, filter);
    return step ? step->text.value_or(QString()) : QString();
}
