// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The small mark beside the converted value that lights up when the result could show more
// significant figures than it does (the user chose fewer than the factors allow). The
// formatter decides when; this only shows it. Off, it keeps its place so that nothing moves.
#pragma once

#include <QWidget>

class FiguresIndicator : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool on READ isOn WRITE setOn)

public:
    explicit FiguresIndicator(QWidget *parent = nullptr);

    void setOn(bool on);
    bool isOn() const { return m_on; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_on = false;
};
