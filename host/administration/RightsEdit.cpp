// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/RightsEdit.h"

#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array allOfAForm{KSecurity::Access, KSecurity::Read, KSecurity::Write,
                                KSecurity::Modify, KSecurity::Delete, KSecurity::PrintList};

const QString granted = u"1"_s;

QString logKind()
{
    return u"Rights"_s;
}

QString cellName(const QString &form, int right)
{
    return form + u'/' + QString::number(right);
}

QString cellCaption(const QString &form, KSecurity::Right right)
{
    return KSecurity::rightCaption(right) + u" - "_s + KSecurity::formCaption(form);
}

std::unique_ptr<CTblValues> cellsOf(int userID)
{
    QList<CTblValues::Field> fields;
    for (const KSecurity::Form &form : KSecurity::forms()) {
        for (const KSecurity::Right right : allOfAForm)
            fields.append({cellName(form.name, right), cellCaption(form.name, right)});
    }
    auto cells = std::make_unique<CTblValues>(logKind(), fields);
    cells->setKey(userID);
    return cells;
}

}

RightsEdit::RightsEdit(int userID)
    : RightsEdit(userID, cellsOf(userID))
{
}

RightsEdit::RightsEdit(int userID, std::unique_ptr<CTblValues> cells)
    : RowEdit(*cells, userID)
    , m_userID(userID)
    , m_cells(std::move(cells))
{
    setRights(KSecurity::storedRights(userID));
}

RightsEdit::~RightsEdit() = default;

QHash<QString, int> RightsEdit::rights() const
{
    QHash<QString, int> rights;
    for (const KSecurity::Form &form : KSecurity::forms()) {
        int bits = 0;
        for (const KSecurity::Right right : allOfAForm)
            bits |= m_cells->text(cellName(form.name, right)) == granted ? right : 0;
        rights.insert(form.name, bits);
    }
    return rights;
}

void RightsEdit::setRights(const QHash<QString, int> &rights)
{
    for (const KSecurity::Form &form : KSecurity::forms()) {
        for (const KSecurity::Right right : allOfAForm)
            m_cells->setText(cellName(form.name, right), rights.value(form.name) & right ? granted : QString());
    }
}

QStringList RightsEdit::closeForms(const QHash<QString, int> &wanted)
{
    QStringList lost;
    QHash<QString, int> merged = rights();
    for (const KSecurity::Form &form : KSecurity::forms()) {
        int &bits = merged[form.name];
        if (bits & KSecurity::Access)
            continue;
        for (const KSecurity::Right right : allOfAForm) {
            if (bits & wanted.value(form.name) & right)
                lost.append(cellCaption(form.name, right));
        }
        bits = 0;
    }
    setRights(merged);
    return lost;
}

void RightsEdit::lockRow()
{
    CTblUsers user;
    if (!user.lockRecord(m_userID))
        throw RowChanged(RowChanged::Kind::Gone, user, m_userID);
    m_stored = KSecurity::storedRights(m_userID);
    setRights(m_stored);
}

void RightsEdit::storeRow()
{
    const QHash<QString, int> wanted = rights();
    for (auto form = wanted.cbegin(); form != wanted.cend(); ++form) {
        if (m_stored.value(form.key()) == form.value())
            continue;
        KSecurity::setRights(m_userID, form.key(), form.value());
    }
}
