// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KDropDown.h"

#include "suite/utility/entries/CodeFont.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>

namespace {

// The families for a text, and nothing else about the font; for a text that is no code the other ones.
QFont fontFor(const QString &text, const QStringList &otherFamilies)
{
    const QStringList families = CodeFont::isLatinCode(text) ? CodeFont::families(QApplication::font()) : otherFamilies;
    QFont font;
    if (!families.isEmpty())
        font.setFamilies(families);
    return font;
}

}

KDropDown::KDropDown(QWidget *parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    keepTextReadable();
    connect(this, &QComboBox::currentTextChanged, this, [this](const QString &text) { setFont(fontFor(text, {})); });
    // The entries have a font each, so that the font of the chosen one is not theirs.
    connect(model(), &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex &, int first, int last) {
        const QStringList program{QApplication::font().family()};
        for (int row = first; row <= last; ++row)
            setItemData(row, fontFor(itemText(row), program), Qt::FontRole);
    });
}

bool KDropDown::event(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        keepTextReadable();
    if (event->type() != QEvent::Wheel || hasFocus())
        return QComboBox::event(event);
    event->ignore();
    return true;
}

void KDropDown::keepTextReadable()
{
    // These alone are its own; all else stays that of the form, also when it changes.
    QPalette own;
    const QPalette program = QApplication::palette(this);
    for (const QPalette::ColorRole role : {QPalette::ButtonText, QPalette::Text})
        own.setColor(QPalette::Disabled, role, program.color(QPalette::Active, role));
    setPalette(own);
}
