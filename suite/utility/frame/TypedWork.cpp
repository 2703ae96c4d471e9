// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/TypedWork.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMetaProperty>
#include <QRadioButton>
#include <QSet>

#include <algorithm>

namespace {

QVariant cellsOf(const QAbstractItemView &view)
{
    const QAbstractItemModel *model = view.model();
    if (!model)
        return {};
    const bool edits = view.editTriggers() != QAbstractItemView::NoEditTriggers;
    QVariantList cells;
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            const Qt::ItemFlags flags = model->flags(index);
            if (edits && (flags & Qt::ItemIsEditable))
                cells.append(index.data());
            if (flags & Qt::ItemIsUserCheckable)
                cells.append(index.data(Qt::CheckStateRole));
        }
    }
    return cells;
}

bool follows(const QWidget &widget)
{
    return widget.property(TypedWork::followsSelection).toBool();
}

// Buttons of a row of tabs are pressed or not as well, and so is a list scrolled: neither is an entry.
bool holdsNothing(const QWidget &widget)
{
    const bool isButton = qobject_cast<const QAbstractButton *>(&widget) && !qobject_cast<const QCheckBox *>(&widget)
        && !qobject_cast<const QRadioButton *>(&widget);
    return isButton || qobject_cast<const QAbstractSlider *>(&widget) || follows(widget) || follows(*widget.parentWidget());
}

// Invalid for a control without a value.
QVariant heldBy(const QWidget &widget)
{
    if (holdsNothing(widget))
        return {};
    if (const auto *view = qobject_cast<const QAbstractItemView *>(&widget))
        return cellsOf(*view);
    if (const auto *combo = qobject_cast<const QComboBox *>(&widget))
        return QVariantList{combo->currentIndex(), combo->currentText()};
    const QMetaProperty value = widget.metaObject()->userProperty();
    return value.isValid() ? value.read(&widget) : QVariant();
}

// Those of the same window alone: a drop-down's list and a calendar are windows of their own.
QList<const QWidget *> controlsBelow(const QWidget *part)
{
    QList<const QWidget *> controls;
    for (const QWidget *widget : part->findChildren<QWidget *>()) {
        if (widget->window() == part->window())
            controls.append(widget);
    }
    return controls;
}

}

void TypedWork::remember(const QWidget *window)
{
    m_entries.clear();
    add(window);
}

void TypedWork::add(const QWidget *part)
{
    const QList<const QWidget *> controls = controlsBelow(part);
    const QSet<const QWidget *> renewed(controls.cbegin(), controls.cend());
    m_entries.removeIf([&renewed](const Entry &entry) { return !entry.widget || renewed.contains(entry.widget); });
    for (const QWidget *control : controls) {
        if (QVariant held = heldBy(*control); held.isValid())
            m_entries.append({control, std::move(held)});
    }
}

bool TypedWork::differs(const QWidget *window) const
{
    QSet<const QWidget *> known;
    for (const Entry &entry : m_entries) {
        if (!entry.widget)
            continue;
        known.insert(entry.widget);
        if (heldBy(*entry.widget) != entry.held)
            return true;
    }
    return std::ranges::any_of(controlsBelow(window), [&known](const QWidget *control) {
        const auto *line = qobject_cast<const QLineEdit *>(control);
        return line && line->isModified() && !known.contains(control);
    });
}

QList<const QWidget *> TypedWork::controls() const
{
    QList<const QWidget *> controls;
    for (const Entry &entry : m_entries) {
        if (entry.widget)
            controls.append(entry.widget);
    }
    return controls;
}
