// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

#include <QByteArray>

class KStaticImage;
class QImage;

// The dealership's logo, which its papers carry: one picture, taken from a file, a paste or a drop.
class CDlgOfficeLogo : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgOfficeLogo(QWidget *parent = nullptr);

    KStaticImage *box() const { return m_box; }
    // As it is kept: a PNG of bounded sides and size, upright; empty for no picture.
    static QByteArray asLogo(const QImage &picture);

protected:
    bool OnOK() override;

private:
    qint32 m_seen = 0; // the logo that this window was opened on
    KStaticImage *m_box;
};
