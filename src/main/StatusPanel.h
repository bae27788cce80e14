// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// One panel of the main window's status bar: an optional icon and a text, with a tooltip,
// answering a click and a double-click. A double-click is a click followed by the double-click,
// as with the desktop's own controls: press and release make the click, the second press the
// double-click, and the second release nothing more. Its "enabled" state is a look only: a
// greyed panel still reports clicks, and the window decides what a click on a greyed panel means
// (the scientific-notation panel is greyed while the notation is off and turns it on when
// clicked). When the bar is narrow a panel drops its icon before it would cut its text. The icon
// is read when the panel is first painted, not when the window is built.
#pragma once

#include <QFrame>
#include <QIcon>

class StatusPanel : public QFrame
{
    Q_OBJECT

public:
    // iconName: one of AppIcons' panel icons, or nullptr for a panel without an icon.
    StatusPanel(const QString &objectName, const char *iconName, QWidget *parent = nullptr);

    void setText(const QString &text);
    QString text() const { return m_text; }
    void setPanelEnabled(bool enabled);
    bool isPanelEnabled() const { return m_panelEnabled; }
    // False when the panel is too narrow for its icon.
    bool showsIcon() const;
    // The panel is never narrower than this, nor than its text.
    void setMinimumPanelWidth(int width);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void clicked();
    void doubleClicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    int iconExtent() const;

    const char *m_iconName;
    QIcon m_icon;
    QString m_text;
    int m_minimumWidth = 0;
    bool m_panelEnabled = true;
    // Set by a double-click: the release that ends it is no second click.
    bool m_releaseEndsDoubleClick = false;
};
