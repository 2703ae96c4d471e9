// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/ItemFields.h"

#include "auto/cars/fields/MissingItems.h"
#include "auto/cars/fields/ParameterNumber.h"
#include "auto/cars/fields/TickedChoice.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "suite/db/records/KLookup.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"

#include <QComboBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

QString chooseTip()
{
    return u"انتخاب یا افزودن مقدار"_s;
}

}

ItemFields::ItemFields(KForm &form, QWidget *page)
    : QObject(page)
    , m_form(form)
    , m_page(page)
{
}

void ItemFields::onButton(const QString &column, const QString &toolTip, const std::function<void()> &work)
{
    m_form.button(column)->setToolTip(toolTip);
    connect(m_form.button(column), &QPushButton::clicked, this, work);
}

void ItemFields::addList(const QString &column, int option)
{
    m_lists.append({column, InputParameters::itemType(option)});
    onButton(column, chooseTip(), [this, column, option] { pickValue(column, option); });
}

void ItemFields::addPickedList(const QString &column, int itemType, const QString &title)
{
    m_lists.append({column, itemType});
    onButton(column, chooseTip(), [this, column, itemType, title] { pickOne(column, itemType, title); });
}

void ItemFields::addNumber(const QString &column, int option)
{
    onButton(column, chooseTip(), [this, column, option] { pickNumber(column, option); });
}

void ItemFields::addTexts(const QString &column, int option)
{
    onButton(column, u"انتخاب چند مقدار"_s, [this, column, option] { pickTexts(column, option); });
}

void ItemFields::addMissing(const QString &column, const QString &chosenColumn, int option, const QString &toolTip)
{
    onButton(column, toolTip, [this, column, chosenColumn, option] { fillMissing(column, chosenColumn, option); });
}

void ItemFields::fill()
{
    for (const List &list : std::as_const(m_lists))
        fillList(list, m_form.key(list.column));
}

void ItemFields::fillList(const List &list, int key)
{
    CTblMultiItems::FillComboBox(m_form.comboBox(list.column), list.itemType);
    m_form.setKey(list.column, key);
}

void ItemFields::pickValue(const QString &column, int option)
{
    const int before = m_form.key(column);
    const int chosen = CDlgInputParameters::Select(m_page, option, before);
    // Values may have been added or renamed whether or not one was chosen.
    fill();
    if (chosen != 0)
        m_form.setKey(column, chosen);
}

void ItemFields::pickOne(const QString &column, int itemType, const QString &title)
{
    const int before = m_form.key(column);
    CDlgMultiItems picker(itemType, title, m_page);
    if (before != 0)
        picker.setSelectedNames({m_form.comboBox(column)->currentText()});
    const bool confirmed = picker.exec() == QDialog::Accepted;
    const QList<int> ticked = picker.selectedIDs();
    fill();
    if (!confirmed)
        return;
    m_form.setKey(column, choiceOfTicked(ticked, before));
    if (ticked.size() > 1)
        g_pDlgMessage->Show(u"این فیلد یک مقدار را نگه می‌دارد: «%1» انتخاب شد."_s.arg(m_form.comboBox(column)->currentText()),
                            m_page);
}

void ItemFields::pickNumber(const QString &column, int option)
{
    const int chosen = CDlgInputParameters::Select(m_page, option);
    fill();
    if (chosen == 0)
        return;
    const QString name = KLookup::name({u"Items"_s, u"iID"_s, u"sName"_s}, chosen);
    const std::optional<int> number = parameterNumber(name);
    if (number)
        m_form.edit(column)->setText(QString::number(*number));
    else
        g_pDlgWarning->Show(u"«%1» عدد ندارد."_s.arg(name), m_page);
}

void ItemFields::pickTexts(const QString &column, int option)
{
    QString text = m_form.edit(column)->text();
    if (CDlgMultiItems::Select(InputParameters::itemType(option), InputParameters::caption(option), &text, m_page))
        enter(column, text);
}

void ItemFields::fillMissing(const QString &column, const QString &chosenColumn, int option)
{
    QStringList all;
    for (const CTblMultiItems::Value &value : CTblMultiItems::values(InputParameters::itemType(option)))
        all.append(value.name);
    if (all.isEmpty()) {
        g_pDlgWarning->Show(u"برای «%1» هنوز مقداری تعریف نشده است."_s.arg(InputParameters::caption(option)), m_page);
        return;
    }
    const QString separator = CDlgMultiItems::separator();
    enter(column, missingItems(all, m_form.edit(chosenColumn)->text(), separator).join(separator));
}

void ItemFields::enter(const QString &column, const QString &text)
{
    KEdit *edit = m_form.edit(column);
    if (text.size() > edit->maxLength()) {
        g_pDlgWarning->Show(u"%1 %2 نویسه می‌شود و حداکثر %3 نویسه قابل ثبت است."_s
                                .arg(edit->accessibleName(), QString::number(text.size()), QString::number(edit->maxLength())),
                            m_page);
        edit->setFocus(Qt::OtherFocusReason);
        return;
    }
    edit->selectAll();
    edit->insert(text);
    edit->setCursorPosition(0);
}
