// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CustomFieldInput.h"

#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QCheckBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestText = 500;
// Beyond this a double no longer holds four exact decimals.
constexpr double largestNumber = 1e11;

class TextInput final : public CustomFieldInput
{
public:
    TextInput(int fieldID, QWidget *parent)
        : CustomFieldInput(fieldID)
        , m_edit(new KEdit(parent))
    {
        m_edit->setMaxLength(longestText);
    }
    QWidget *widget() const override { return m_edit; }
    QString value() const override { return m_edit->text(); }
    void setValue(const QString &value) override { m_edit->setText(value); }
    QString error() const override { return {}; }
    void setReadOnly(bool readOnly) override { m_edit->setReadOnly(readOnly); }

private:
    KEdit *m_edit;
};

class NumberInput final : public CustomFieldInput
{
public:
    NumberInput(int fieldID, QWidget *parent)
        : CustomFieldInput(fieldID)
        , m_edit(new KEdit(KEdit::Kind::Money, parent))
    {
        m_edit->setDecimals(4);
        m_edit->setRange(-largestNumber, largestNumber);
    }
    QWidget *widget() const override { return m_edit; }
    QString value() const override
    {
        return m_edit->text().isEmpty() ? QString() : QString::number(m_edit->number(), 'g', 17);
    }
    void setValue(const QString &value) override
    {
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        if (isNumber)
            m_edit->setNumber(number);
        else
            m_edit->clear();
    }
    QString textOf(const QString &value) const override
    {
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        return isNumber ? DToStr(number) : value;
    }
    QString error() const override { return m_edit->entryError(); }
    void setReadOnly(bool readOnly) override { m_edit->setReadOnly(readOnly); }

private:
    KEdit *m_edit;
};

class DateInput final : public CustomFieldInput
{
public:
    DateInput(int fieldID, QWidget *parent)
        : CustomFieldInput(fieldID)
        , m_edit(new KDateEdit(parent))
    {
    }
    QWidget *widget() const override { return m_edit; }
    QString value() const override { return m_edit->date().toString(Qt::ISODate); }
    void setValue(const QString &value) override { m_edit->setDate(QDate::fromString(value, Qt::ISODate)); }
    QString textOf(const QString &value) const override { return shamsiText(QDate::fromString(value, Qt::ISODate)); }
    QString error() const override { return m_edit->entryError(); }
    void setReadOnly(bool readOnly) override { m_edit->setReadOnly(readOnly); }

private:
    KDateEdit *m_edit;
};

class YesNoInput final : public CustomFieldInput
{
public:
    YesNoInput(int fieldID, const QString &name, QWidget *parent)
        : CustomFieldInput(fieldID)
        , m_box(new QCheckBox(name, parent))
    {
    }
    QWidget *widget() const override { return m_box; }
    QString value() const override { return m_box->isChecked() ? u"1"_s : QString(); }
    void setValue(const QString &value) override { m_box->setChecked(value == QLatin1String("1")); }
    QString textOf(const QString &value) const override { return value == QLatin1String("1") ? u"بله"_s : u"خیر"_s; }
    QString error() const override { return {}; }
    void setReadOnly(bool readOnly) override { m_box->setEnabled(!readOnly); }

private:
    QCheckBox *m_box;
};

}

CustomFieldInput::CustomFieldInput(int fieldID)
    : m_fieldID(fieldID)
{
}

CustomFieldInput::~CustomFieldInput() = default;

std::unique_ptr<CustomFieldInput> CustomFieldInput::create(int fieldID, const QString &name, int type, QWidget *parent)
{
    switch (type) {
    case CTblCustomFields::Number:
        return std::make_unique<NumberInput>(fieldID, parent);
    case CTblCustomFields::Date:
        return std::make_unique<DateInput>(fieldID, parent);
    case CTblCustomFields::YesNo:
        return std::make_unique<YesNoInput>(fieldID, name, parent);
    default:
        return std::make_unique<TextInput>(fieldID, parent);
    }
}
