// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// Answers the program's dialogs from a script, so that a test drives windows that ask
// questions without anybody clicking. Every dialog asked is recorded. A dialog that the script
// did not expect fails the running test (and gets the most harmless answer: No, Cancel, no
// input, no file); so does a script step of another kind than the dialog asked.
//
//     ScriptedDialogs dialogs;
//     dialogs.answerQuestion(Dialogs::No);   // the next dialog is a question, answered No
//     dialogs.expectMessage();               // then a message
//     ... drive the window ...
//     QVERIFY(dialogs.scriptDone());
//     QCOMPARE(dialogs.asked().at(0).notice.text, StringTable::text(333));
//
// With allowMessages(true) messages need no script step: they are recorded and answered OK.
#pragma once

#include "shell/Dialogs.h"

#include <QList>
#include <QString>

class ScriptedDialogs : public Dialogs
{
public:
    enum Kind { Message, Question, Input, OpenFile, SaveFile };

    struct Asked {
        Kind kind = Message;
        Notice notice; // messages and questions
        Buttons buttons = YesNo; // questions
        Answer defaultAnswer = Ok; // questions
        QString prompt, title, defaultText; // input boxes
        QString filter, defaultName, defaultSuffix; // file dialogs
    };

    void expectMessage();
    void answerQuestion(Answer answer);
    void answerInput(const std::optional<QString> &text);
    void answerOpenFile(const QString &path);
    void answerSaveFile(const QString &path);
    void allowMessages(bool allow) { m_allowMessages = allow; }

    // Every dialog asked so far, in order; the notices of the messages and questions only.
    const QList<Asked> &asked() const { return m_asked; }
    QList<Notice> notices() const;
    // True when every scripted step has been used.
    bool scriptDone() const { return m_script.isEmpty(); }
    // Forgets the script and what was asked.
    void clear();

    void message(QWidget *parent, const Notice &notice) override;
    Answer question(
        QWidget *parent, const Notice &notice, Buttons buttons, Answer defaultAnswer) override;
    std::optional<QString> input(QWidget *parent, const QString &prompt, const QString &title,
        const QString &defaultText) override;
    QString openFileName(QWidget *parent, const QString &filter) override;
    QString saveFileName(QWidget *parent, const QString &filter, const QString &defaultName,
        const QString &defaultSuffix) override;

private:
    struct Step {
        Kind kind;
        Answer answer = Ok;
        std::optional<QString> text;
    };

    // The next step when it is of that kind; otherwise the test fails and nothing is returned.
    std::optional<Step> take(Kind kind, const QString &what);

    QList<Step> m_script;
    QList<Asked> m_asked;
    bool m_allowMessages = false;
};
