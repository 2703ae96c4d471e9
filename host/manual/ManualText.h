// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTextBrowser>

// A page of the manual. Tab leads on to the next control; the links in the page are gone through by the arrow keys that scroll no
// text, Left to the next one, and Enter follows the one that has the mark.
class ManualText : public QTextBrowser
{
    Q_OBJECT

public:
    explicit ManualText(QWidget *parent = nullptr);

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
};
