// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/EntryMark.h"

#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookSizes.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPalette>
#include <QToolTip>
#include <QVariant>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

// Where a line's own description waits while its error is announced instead.
constexpr char ownDescription[] = "tzOwnDescription";

constexpr int tipMargins = 16;

}

void paintEntryMark(QWidget *edit)
{
    QPainter painter(edit);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(HostColors::of(HostColors::Role::Danger), LookSizes::ring));
    painter.drawRoundedRect(QRectF(edit->rect()).adjusted(1, 1, -1, -1), LookSizes::controlCorner, LookSizes::controlCorner);
}

void tellEntryError(QWidget *edit, const QString &error)
{
    const QVariant kept = edit->property(ownDescription);
    const QString own = kept.isValid() ? kept.toString() : edit->accessibleDescription();
    edit->setProperty(ownDescription, error.isEmpty() ? QVariant() : QVariant(own));
    edit->setAccessibleDescription(error.isEmpty() ? own : u"%1 %2"_s.arg(own, error).trimmed());
    edit->update();
    FieldNote *note = FieldNote::of(edit);
    if (note)
        note->showError(error);
    if (error.isEmpty()) {
        QToolTip::hideText();
    } else if (note && note->isVisible() && !note->isCut()) {
        return;
    } else if (edit->hasFocus()) {
        // Under the right end, where the entry is read.
        const int tipWidth = edit->fontMetrics().horizontalAdvance(error) + tipMargins;
        QToolTip::showText(edit->mapToGlobal(QPoint(qMax(0, edit->width() - tipWidth), edit->height())), error, edit);
    }
}

void showErrorToolTip(QWidget *edit, const QString &error, const QHelpEvent *event)
{
    QToolTip::showText(event->globalPos(), error, edit);
}

QPalette entryPalette(bool readOnly)
{
    QPalette colors;
    if (readOnly)
        colors.setColor(QPalette::Base, HostColors::of(HostColors::Role::Sunken));
    return colors;
}
