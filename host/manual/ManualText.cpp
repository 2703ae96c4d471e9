// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/manual/ManualText.h"

#include "suite/utility/look/LookSizes.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

ManualText::ManualText(QWidget *parent)
    : QTextBrowser(parent)
{
    setAccessibleName(u"صفحه راهنما"_s);
    setOpenLinks(false);
    setTabChangesFocus(true);
    // Pictures fill the width: with a bar that comes and goes they would never fit.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    document()->setDocumentMargin(LookSizes::cardPadding);
}

bool ManualText::focusNextPrevChild(bool next)
{
    return QWidget::focusNextPrevChild(next);
}

void ManualText::keyPressEvent(QKeyEvent *event)
{
    const bool isArrow = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (!isArrow || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        QTextBrowser::keyPressEvent(event);
        return;
    }
    event->accept();
    QTextBrowser::focusNextPrevChild(event->key() == Qt::Key_Left);
    // Behind the last link it would be another control's turn.
    setFocus();
}
