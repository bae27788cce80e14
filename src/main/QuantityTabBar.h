// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The strip of physical quantities above the conversion panel, one tab per enabled quantity.
// The interface-style option draws it either as a row of tabs (scrolling when they do not all
// fit) or as rows of push buttons, the current one pressed in. The buttons wrap onto as many
// rows as the width needs, each full row filled; when the window allows fewer rows than that,
// the rows page up and down with two small arrows, and the current quantity's row always shows.
// Selecting, the keyboard and the signals are those of a tab bar in both styles.
#pragma once

#include <QTabBar>
#include <QVector>

class QToolButton;

class QuantityTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit QuantityTabBar(QWidget *parent = nullptr);

    // Replaces every tab: one caption and one data value each. Adding tabs one by one would
    // measure every tab again for each tab added.
    void setQuantities(const QStringList &captions, const QList<QVariant> &data);

    void setButtonStyle(bool buttons);
    bool buttonStyle() const { return m_buttons; }
    // At most as many rows of buttons as fit in this height show at a time (0: all of them).
    void setRowsHeightLimit(int height);
    int visibleRows() const;
    int firstVisibleRow() const { return m_firstRow; }
    void scrollRows(int step);

    // Where the quantity's tab or button is drawn; empty for a button in a row not showing.
    QRect quantityRect(int index) const;
    int quantityAt(const QPoint &pos) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void leaveEvent(QEvent *event) override;
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    void tabLayoutChange() override;
    void tabInserted(int index) override;
    void tabRemoved(int index) override;
    void changeEvent(QEvent *event) override;

private:
    struct Layout {
        QVector<QRect> rects; // unscrolled, row after row
        QVector<int> rowOf;
        int rows = 0;
        bool paged = false;
    };

    QSize buttonSize(int index) const;
    int rowHeight() const;
    int pagerWidth() const;
    // The buttons' places in rows for a width.
    Layout layoutButtons(int width) const;
    Layout layoutFor(int width) const;
    void relayout();
    void showCurrentRow();
    void announceChecked(int index);

    bool m_buttons = false;
    bool m_replacing = false;
    int m_maxRows = 0;
    int m_firstRow = 0;
    Layout m_layout;
    int m_hovered = -1;
    int m_checked = -1; // the current quantity, as assistive technologies were last told
    mutable QVector<int> m_widths; // the buttons' widths, measured when first needed
    QToolButton *m_up = nullptr;
    QToolButton *m_down = nullptr;
};
