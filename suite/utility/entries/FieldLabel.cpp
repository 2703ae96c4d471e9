// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/FieldLabel.h"

#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

QString labelText(const QString &caption)
{
    constexpr QChar rightToLeftMark(0x200F);
    return caption.isRightToLeft() ? caption : rightToLeftMark + caption;
}

void nameControl(QWidget *control, const QString &name)
{
    control->setAccessibleName(name);
    if (!qobject_cast<QComboBox *>(control) && !qobject_cast<QAbstractSpinBox *>(control))
        return;
    if (auto *line = control->findChild<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly))
        line->setAccessibleName(name);
}

QLabel *labelFor(const QString &caption, QWidget *control, const QString &accessibleName)
{
    const QString given = accessibleName.isEmpty() ? control->accessibleName() : accessibleName;
    nameControl(control, given.isEmpty() ? caption : given);
    auto *label = new QLabel(labelText(caption), control->parentWidget());
    label->setBuddy(control);
    LookFonts::apply(label, LookFonts::Use::Label);
    return label;
}

QLabel *addLabelled(QFormLayout *form, const QString &caption, QWidget *control)
{
    QLabel *label = labelFor(caption, control);
    form->addRow(label, control);
    return label;
}

QLabel *addLabelled(QBoxLayout *line, const QString &caption, QWidget *control, int stretch)
{
    QLabel *label = labelFor(caption, control);
    line->addWidget(label);
    line->addWidget(control, stretch);
    return label;
}

QLabel *addLabelled(QGridLayout *grid, int row, int column, const QString &caption, QWidget *control, int span)
{
    QLabel *label = labelFor(caption, control);
    grid->addWidget(label, row, column);
    grid->addWidget(control, row, column + 1, 1, span);
    return label;
}

QLabel *addLabelled(FormGrid *grid, const QString &caption, QWidget *control, int span)
{
    QLabel *label = labelFor(caption, control);
    grid->addField(label, new FieldNote(control), control, span);
    return label;
}

QPushButton *addButton(QBoxLayout *line, const QString &caption, const QString &icon)
{
    auto *button = new QPushButton(LookIcons::icon(icon), caption);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    line->addWidget(button);
    return button;
}
