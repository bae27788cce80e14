// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "support/ScriptedDialogs.h"

#include <QTest>

static const char *kindName(ScriptedDialogs::Kind kind)
{
    switch (kind) {
    case ScriptedDialogs::Message:
        return "message";
    case ScriptedDialogs::Question:
        return "question";
    case ScriptedDialogs::Input:
        return "input box";
    case ScriptedDialogs::OpenFile:
        return "open-file dialog";
    case ScriptedDialogs::SaveFile:
        return "save-file dialog";
    }
    return "dialog";
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
    Asked asked;
    asked.kind = Message;
    asked.notice = notice;
    m_asked.append(asked);
    if (m_allowMessages && (m_script.isEmpty() || m_script.constFirst().kind != Message))
        return;
    take(Message, notice.text);
}

Dialogs::Answer ScriptedDialogs::question(
    QWidget *, const Notice &notice, Buttons buttons, Answer defaultAnswer)
{
    Asked asked;
    asked.kind = Question;
    asked.notice = notice;
    asked.buttons = buttons;
    asked.defaultAnswer = defaultAnswer;
    m_asked.append(asked);
    const std::optional<Step> step = take(Question, notice.text);
    if (!step)
        return buttons == YesNoCancel ? Cancel : No;
    return step->answer;
}

std::optional<QString> ScriptedDialogs::input(
    QWidget *, const QString &prompt, const QString &title, const QString &defaultText)
{
    Asked asked;
    asked.kind = Input;
    asked.prompt = prompt;
    asked.title = title;
    asked.defaultText = defaultText;
    m_asked.append(asked);
    const std::optional<Step> step = take(Input, prompt);
    return step ? step->text : std::nullopt;
}

QString ScriptedDialogs::openFileName(QWidget *, const QString &filter)
{
    Asked asked;
    asked.kind = OpenFile;
    asked.filter = filter;
    m_asked.append(asked);
    const std::optional<Step> step = take(OpenFile, filter);
    return step ? step->text.value_or(QString()) : QString();
}

QString ScriptedDialogs::saveFileName(
    QWidget *, const QString &filter, const QString &defaultName, const QString &defaultSuffix)
{
    Asked asked;
    asked.kind = SaveFile;
    asked.filter = filter;
    asked.defaultName = defaultName;
    asked.defaultSuffix = defaultSuffix;
    m_asked.append(asked);
    const std::optional<Step> step = take(SaveFile, filter);
    return step ? step->text.value_or(QString()) : QString();
}
