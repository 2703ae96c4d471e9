// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/KPersonField.h"

#include "suite/crm/persons/CDlgPersons.h"
#include "suite/crm/persons/CTblPersonsMini.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

QString defaultClearCaption()
{
    return u"حذف"_s;
}

QPushButton *createButton(const QString &caption, const QString &accessibleName, QWidget *parent)
{
    auto *button = new QPushButton(caption, parent);
    button->setAccessibleName(accessibleName);
    button->setAutoDefault(false);
    LookMarks::setButton(button, LookMarks::Button::Small);
    button->setMinimumWidth(LookSizes::scaled(LookSizes::control) + LookSizes::unit);
    return button;
}

bool isPickKey(const QKeyEvent *event)
{
    return event->key() == Qt::Key_F4 || event->key() == Qt::Key_Space
        || (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier);
}

}

KPersonField::KPersonField(const QString &label, QWidget *parent)
    : KPersonField(label, defaultClearCaption(), parent)
{
}

KPersonField::KPersonField(const QString &label, const QString &clearCaption, QWidget *parent)
    : QWidget(parent)
    , m_name(new KEdit(this))
    , m_pickButton(createButton(u"..."_s, label + u" ..."_s, this))
    , m_clearButton(createButton(clearCaption, label + u' ' + defaultClearCaption(), this))
{
    m_name->setReadOnly(true);
    m_name->setAccessibleName(label);
    m_name->installEventFilter(this);
    m_pickButton->setToolTip(u"انتخاب شخص (F4)"_s);
    m_clearButton->setToolTip(u"خالی کردن"_s);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(LookSizes::unit / 2);
    row->addWidget(m_name, 1);
    row->addWidget(m_pickButton);
    row->addWidget(m_clearButton);
    setFocusProxy(m_name);
    connect(m_pickButton, &QPushButton::clicked, this, &KPersonField::pick);
    connect(m_clearButton, &QPushButton::clicked, this, &KPersonField::clearByUser);
    connect(m_name, &KEdit::textEdited, this, &KPersonField::nameEdited);
    enableButtons();
}

void KPersonField::setPersonID(int id, const QString &nameIfGone)
{
    const QString name = CTblPersonsMini::GetName(id);
    setPerson(id, name.isEmpty() ? nameIfGone : name);
}

void KPersonField::setPerson(int id, const QString &name)
{
    m_personID = id;
    m_name->setText(name);
    m_name->setCursorPosition(0);
    enableButtons();
}

void KPersonField::clear()
{
    m_personID = 0;
    m_name->clear();
    enableButtons();
}

QString KPersonField::name() const
{
    return m_name->text();
}

void KPersonField::setName(const QString &name)
{
    setPerson(0, name);
}

void KPersonField::setNameEditable(bool editable)
{
    m_name->setReadOnly(!editable);
}

void KPersonField::setPickEnabled(bool enabled)
{
    m_pickEnabled = enabled;
    enableButtons();
}

void KPersonField::setButtonsVisible(bool visible)
{
    m_pickButton->setVisible(visible);
    m_clearButton->setVisible(visible);
    setPickEnabled(visible);
}

void KPersonField::pick()
{
    if (!m_pickEnabled)
        return;
    const int chosen = CDlgPersons::SelectPerson(window(), CDlgPersons::modePickOne, m_personID);
    if (chosen == 0)
        return;
    setPersonID(chosen);
    Q_EMIT changed(chosen);
}

void KPersonField::clearByUser()
{
    clear();
    // A disabled button would leave the keyboard nowhere.
    m_name->setFocus();
    Q_EMIT changed(0);
}

void KPersonField::enableButtons()
{
    m_pickButton->setEnabled(m_pickEnabled);
    m_clearButton->setEnabled(m_pickEnabled && m_personID != 0);
}

bool KPersonField::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_name || event->type() != QEvent::KeyPress || !m_name->isReadOnly() || !m_pickEnabled)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (isPickKey(key)) {
        pick();
        return true;
    }
    if (key->key() == Qt::Key_Delete && m_clearButton->isEnabled()) {
        clearByUser();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
