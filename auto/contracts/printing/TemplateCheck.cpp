// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/TemplateCheck.h"

#include "auto/contracts/printing/ContractMergeFields.h"
#include "auto/contracts/printing/PlanMergeFields.h"
#include "suite/utility/documents/KMSWord.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringList unique(QStringList names)
{
    names.removeDuplicates();
    return names;
}

bool isPicture(const QString &name)
{
    return pictureHeight(name, logoField()) >= 0;
}

QStringList unknownAmong(const QStringList &standing, const QStringList &known)
{
    QStringList unknown;
    const auto ask = [&](const QString &name) {
        if (Fields::indexOfName(known, name) < 0 && !isPicture(name))
            unknown.append(name);
    };
    for (const QString &name : standing) {
        const PartMark mark = PartMark::of(name);
        if (mark.kind == PartMark::None)
            ask(name);
        else
            std::ranges::for_each(mark.names, ask);
    }
    return unique(unknown);
}

}

TemplateCheck TemplateCheck::of(const QByteArray &file, int contractType)
{
    TemplateCheck check;
    KMSWord word;
    if (!word.Init() || !word.OpenContent(file, u"template.docx"_s)) {
        check.refusal = word.Failure();
        return check;
    }
    const QStringList standing = word.GetFields().GetNames();
    check.unknown = unknownAmong(standing, knownFields());
    check.unpaired = unique(word.UnpairedMarks());
    const QStringList hidden = hiddenMergeFields(contractType);
    for (const QString &name : statedMergeFields())
        if (!hidden.contains(name) && std::ranges::none_of(standing, [&](const QString &field) { return Fields::indexOfName({name}, field) == 0; }))
            check.missing.append(name);

    DocumentParts parts;
    parts.says = [&](const QString &name) { return Fields::indexOfName(hidden, name) < 0; };
    if (!word.SetParts(parts))
        check.refusal = word.Failure();
    for (const QString &name : word.GetFields().GetNames())
        if (Fields::indexOfName(hidden, name) >= 0)
            check.hidden.append(name);
    check.hidden = unique(check.hidden);
    return check;
}

QStringList TemplateCheck::knownFields()
{
    const RecordValues nothing = [](QStringView) { return QVariant(); };
    QStringList names = statedMergeFields();
    for (const MergeBatch &batch : {furtherMergeFields({nothing, nothing, nothing}), planMergeFields({}, 0, {})})
        for (const MergeField &field : batch)
            names.append(field.name);
    return names + planTable({}, 0, {}).columns + QStringList{logoField()};
}
