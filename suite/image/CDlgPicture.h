// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

#include <QImage>

// One picture, as large as the window lets it be. Esc closes it. Inside the library only.
class CDlgPicture : public KDialog
{
    Q_OBJECT

public:
    CDlgPicture(const QImage &image, const QString &title, QWidget *parent);

    // The picture's place in the window.
    QRect pictureRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    QImage m_image;
    QImage m_shown; // m_image in the dots of the screen
};
