// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/KRecordset.h"

#include "suite/accounting/taxfile/AccessLine.h"
#include "suite/accounting/taxfile/KAccessDatabase.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString otherFileText()
{
    return u"این جدول در فایل دیگری است که باز نیست."_s;
}

}

KRecordset::KRecordset(KAccessDatabase *database, const QString &role)
    : m_database(database)
    , m_role(role)
    , m_path(database->path())
{
}

KRecordset::~KRecordset()
{
    Close();
}

void KRecordset::bind(const char16_t *value, Member member)
{
    m_bindings.append({QString::fromUtf16(value), member});
}

void KRecordset::SetFilePath(const QString &path)
{
    m_path = path;
}

void KRecordset::Open()
{
    if (!m_database->IsOpen())
        m_database->Open(m_path);
    if (QFileInfo(m_database->path()) != QFileInfo(m_path))
        throw KAccountingError(otherFileText());
    m_written.clear();
    for (const AccessMapping::Field &field : m_database->mapping().table(m_role).fields) {
        int at = 0;
        while (at < m_bindings.size() && m_bindings.at(at).value != field.value)
            ++at;
        if (at == m_bindings.size())
            m_database->mapping().refuseValue(m_role, field.value);
        m_written.append(at);
    }
    m_pending = Pending::Nothing;
    m_isOpen = true;
}

void KRecordset::Close()
{
    if (m_database->m_selected == this)
        m_database->m_selected = nullptr;
    m_pending = Pending::Nothing;
    m_isOpen = false;
}

void KRecordset::select()
{
    if (!m_isOpen)
        throw KAccountingError(otherFileText());
    if (m_database->m_selected == this)
        return;
    const AccessMapping::Table &table = m_database->mapping().table(m_role);
    AccessLine line("select");
    line.append(table.name);
    for (const AccessMapping::Field &field : table.fields)
        line.append(field.name);
    m_database->send(line.finished());
    m_database->m_selected = this;
}

void KRecordset::DeleteAllRecords()
{
    select();
    m_database->send(AccessLine("clear").finished());
}

void KRecordset::begin(Pending pending)
{
    for (const Binding &binding : m_bindings)
        std::visit([](auto *member) { member->reset(); }, binding.member);
    m_pending = pending;
}

void KRecordset::AddNew()
{
    begin(Pending::Added);
}

void KRecordset::Edit()
{
    begin(Pending::Changed);
}

void KRecordset::Update()
{
    if (m_pending == Pending::Nothing)
        return;
    select();
    AccessLine line(m_pending == Pending::Added ? "add" : "change");
    for (const int at : std::as_const(m_written)) {
        std::visit(
            [&line]<class Value>(const std::optional<Value> *member) {
                if (!*member)
                    line.appendNothing();
                else if constexpr (std::is_same_v<Value, QString>)
                    line.append(**member);
                else
                    line.appendNumber(**member);
            },
            m_bindings.at(at).member);
    }
    m_database->send(line.finished());
    ++m_database->m_saved;
    m_pending = Pending::Nothing;
}
