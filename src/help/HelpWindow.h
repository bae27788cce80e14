// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The help window: a separate window beside the main window (not modal) that shows one help
// topic at a time, with back and forward, a contents button and a find bar for the page
// (Ctrl+F). The windows open it at a context number (HelpTopics) or at the contents. Links
// between topics stay in the window; links to web pages and mail addresses go to the desktop.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QTextBrowser;
class QToolButton;

class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    // anchor: the window the help stands beside when it is first shown (the main window). The
    // help goes when the anchor goes, but the anchor is not its parent: a dialog modal toward the
    // anchor would block the help too, and a user reads the help while working in the dialog.
    explicit HelpWindow(QWidget *anchor = nullptr);

    // Shows the topic of a context number; a number without a topic shows a page saying so.
    void showContext(int context);
    // Shows the contents page.
    void showContents();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void createControls();
    void setTexts();
    void connectControls();
    void showWindow();
    void placeBesideAnchor();

    void showFindBar();
    void hideFindBar();
    void findInPage(bool backward);
    void updateNavigation();

    QWidget *m_anchor;
    bool m_placed = false;

    QToolButton *cmdBack = nullptr;
    QToolButton *cmdForward = nullptr;
    QToolButton *cmdContents = nullptr;
    QToolButton *cmdFind = nullptr;
    QTextBrowser *txtTopic = nullptr;
    QWidget *fraFind = nullptr;
    QLabel *lblFindInPage = nullptr;
    QLineEdit *txtFindInPage = nullptr;
    QToolButton *cmdFindNext = nullptr;
    QToolButton *cmdFindPrevious = nullptr;
    QToolButton *cmdCloseFind = nullptr;
    QLabel *lblNotFound = nullptr;
};
