// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/PersonGroup.h"

#include "suite/crm/persons/CDlgPersons.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/IdentityHints.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

bool isPickKey(const QKeyEvent *event)
{
    return event->key() == Qt::Key_F4 || event->key() == Qt::Key_Space
        || (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier);
}

}

PersonGroup::PersonGroup(const QString &title, int options, QWidget *parent, const QString &ofWhom)
    : QGroupBox(title, parent)
    , m_ofWhom(ofWhom.isEmpty() ? ofWhom : u' ' + ofWhom)
    , m_code(addLine(u"کد شخص :"_s))
    , m_pick(addButton(u"کد شخص : ..."_s + m_ofWhom, u"انتخاب شخص (F4)"_s))
    , m_name(addLine(u"نام و نام خانوادگي :"_s))
    , m_telephone(addLine(u"تلفن :"_s))
    , m_mobile(addLine(u"موبايل :"_s))
{
    connect(m_pick, &QPushButton::clicked, this, &PersonGroup::pick);
    if (options & Clearable) {
        m_clear = addButton(u"کد شخص : حذف"_s + m_ofWhom, u"خالی کردن"_s);
        connect(m_clear, &QPushButton::clicked, this, &PersonGroup::clearByUser);
    }
    if (options & WithFather)
        m_father = addLine(u"نام پدر :"_s);
    if (options & WithNationalCode) {
        m_nationalCode = addLine(u"کد ملي :"_s);
        m_nationalCode->setKind(KEdit::Kind::Code);
    }
    place(options);
    m_code->installEventFilter(this);
    setPersonID(0);
}

KEdit *PersonGroup::addLine(const QString &label)
{
    auto *line = new KEdit(this);
    line->setReadOnly(true);
    m_labels.insert(line, labelFor(label, line, label + m_ofWhom));
    return line;
}

QPushButton *PersonGroup::addButton(const QString &accessibleName, const QString &toolTip)
{
    auto *button = new QPushButton(u"..."_s, this);
    button->setAccessibleName(accessibleName);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    LookMarks::setButton(button, LookMarks::Button::Small);
    button->setMinimumWidth(LookSizes::scaled(LookSizes::control) + LookSizes::unit);
    return button;
}

// The code and the name first, then the other data of the person's record.
void PersonGroup::place(int options)
{
    auto *grid = new FormGrid(this, options & BesideAnother ? FormGrid::Extent::Half : FormGrid::Extent::Full);
    auto *withButtons = new QHBoxLayout;
    withButtons->setSpacing(LookSizes::unit / 2);
    withButtons->addWidget(m_code, 1);
    withButtons->addWidget(m_pick);
    if (m_clear)
        withButtons->addWidget(m_clear);
    grid->addField(m_labels.value(m_code), nullptr, withButtons, 2);
    grid->addField(m_labels.value(m_name), nullptr, m_name, 2);
    for (KEdit *line : {m_father, m_telephone, m_mobile}) {
        if (line)
            grid->addField(m_labels.value(line), nullptr, line, 1);
    }
    if (m_nationalCode)
        grid->addField(m_labels.value(m_nationalCode), new FieldNote(m_nationalCode, this), m_nationalCode, 2);
}

QString PersonGroup::name() const
{
    return m_name->text();
}

void PersonGroup::setPersonID(int personID)
{
    CTblPersons person;
    const bool found = personID > 0 && person.IsRecordExist(u"iID"_s, personID);
    m_personID = personID;
    m_code->setText(found ? QString::number(person.m_iCode) : QString());
    const auto show = [](KEdit *line, const QString &text) {
        line->setText(text);
        line->setCursorPosition(0);
    };
    show(m_name, person.m_sName2);
    if (m_father)
        show(m_father, person.m_sFatherName);
    show(m_telephone, person.m_sTel);
    show(m_mobile, person.m_sMobile);
    if (m_nationalCode) {
        show(m_nationalCode, person.m_sNationalCode);
        const QString hint = found ? IdentityHints::nationalCode(person.m_sNationalCode, person.m_iKind) : QString();
        FieldNote::of(m_nationalCode)->showHint(hint);
        m_nationalCode->setAccessibleDescription(hint);
    }
    if (m_clear)
        m_clear->setEnabled(found);
}

void PersonGroup::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    for (QPushButton *button : {m_pick, m_clear}) {
        if (button)
            button->setVisible(!readOnly);
    }
    m_pick->setEnabled(!readOnly);
}

void PersonGroup::pick()
{
    if (m_readOnly)
        return;
    const int chosen = CDlgPersons::SelectPerson(window(), CDlgPersons::modePickOne, m_personID);
    // Even when nobody was picked, the person shown may have been changed there.
    setPersonID(chosen == 0 ? m_personID : chosen);
    if (chosen != 0)
        Q_EMIT changed(chosen);
}

void PersonGroup::clearByUser()
{
    // A disabled button would leave the keyboard without a focus.
    m_code->setFocus();
    setPersonID(0);
    Q_EMIT changed(0);
}

bool PersonGroup::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_code || event->type() != QEvent::KeyPress || m_readOnly)
        return QGroupBox::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (isPickKey(key))
        pick();
    else if (key->key() == Qt::Key_Delete && m_clear && m_clear->isEnabled())
        clearByUser();
    else
        return QGroupBox::eventFilter(watched, event);
    return true;
}
