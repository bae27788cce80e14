// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The About window: the program's name, version and copyright with two links (Frame1): the home
// page, and the issue tracker where questions and problems reach the project (lblemail). A click
// on either icon swaps Frame1 for the credits and back; Shift+Ctrl+Alt with a click on the
// earlier icon shows the dedication picture and its quotation, and a click on the picture or an
// icon leaves it. A double-click on the version line shows the easter-egg message.
#pragma once

#include <QDialog>

class Dialogs;
class QFrame;
class QLabel;
class QPushButton;
class QTextEdit;

class frmAbout : public QDialog
{
    Q_OBJECT

public:
    explicit frmAbout(Dialogs &dialogs, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createControls();
    void setTexts();
    void connectControls();

    void Image_MouseDown(QObject *image, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void Picture1_Click();
    void cmdOK_Click();
    void ToggleCredits();
    void FillCredits();
    void ShowDedication();
    void ShowEasterMessage();

    Dialogs &m_dialogs;
    bool m_creditsFilled = false;

    QLabel *Image1 = nullptr;
    QLabel *Image2 = nullptr;
    QFrame *Frame1 = nullptr;
    QLabel *lblProductName = nullptr;
    QLabel *lblVersion = nullptr;
    QLabel *lblCopyright = nullptr;
    QLabel *lblNotice = nullptr;
    QLabel *lblHomePageCaption = nullptr;
    QLabel *lblHomePage = nullptr;
    QLabel *lblemailCaption = nullptr;
    QLabel *lblemail = nullptr;
    QTextEdit *txtCredits = nullptr;
    QLabel *Picture1 = nullptr;
    QLabel *Label4 = nullptr;
    QPushButton *cmdOK = nullptr;
};
