// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/MessageKinds.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/messages/OfficeFields.h"

#include <algorithm>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Kinds = std::vector<std::unique_ptr<MessageKind>>;

Kinds &entered()
{
    static Kinds kinds;
    return kinds;
}

Kinds::iterator placeOf(const QString &id)
{
    return std::ranges::find_if(entered(), [&id](const auto &kind) { return kind->id == id; });
}

// The first form that the user may not read; empty: there is none.
QString refusedForm(const MessageKind &kind)
{
    for (const QString &form : kind.forms) {
        if (!KSecurity::IsGranted(form, KSecurity::Read))
            return form;
    }
    return {};
}

}

QStringList MessageKind::fieldNames() const
{
    QStringList names;
    for (const MessageField &field : fields)
        names.append(field.name);
    return names;
}

void MessageKinds::enter(MessageKind kind)
{
    kind.fields += OfficeFields::fields();
    const auto place = placeOf(kind.id);
    if (place == entered().end())
        entered().push_back(std::make_unique<MessageKind>(std::move(kind)));
    else
        **place = std::move(kind);
}

void MessageKinds::remove(const QString &id)
{
    const auto place = placeOf(id);
    if (place != entered().end())
        entered().erase(place);
}

const MessageKind *MessageKinds::of(const QString &id)
{
    const auto place = placeOf(id);
    return place == entered().end() ? nullptr : place->get();
}

QList<const MessageKind *> MessageKinds::all()
{
    QList<const MessageKind *> kinds;
    for (const auto &kind : entered())
        kinds.append(kind.get());
    return kinds;
}

QString MessageKinds::titleOf(const QString &id)
{
    const MessageKind *kind = of(id);
    return kind ? kind->title : id;
}

bool MessageKinds::mayWrite(const MessageKind &kind)
{
    return refusedForm(kind).isEmpty();
}

QList<PersonMessage> MessageKinds::read(const MessageKind &kind, const QList<MessageAbout> &about, int database)
{
    KSecurity::forgetRights();
    if (const QString form = refusedForm(kind); !form.isEmpty())
        throw KAccountingError(KSecurity::refusalText(form, KSecurity::Read));
    const bool readsPersons = KSecurity::IsGranted(u"Persons"_s, KSecurity::Read);
    const QHash<QString, QString> office = OfficeFields::read(database);
    QList<PersonMessage> messages = kind.read(about, database);
    for (PersonMessage &message : messages) {
        message.values.insert(office);
        if (!readsPersons)
            message.numbers.clear();
    }
    return messages;
}
