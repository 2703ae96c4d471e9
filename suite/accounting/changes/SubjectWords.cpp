// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/SubjectWords.h"

using namespace Qt::StringLiterals;

SubjectWords::Caption SubjectWords::captions(const QHash<QString, QString> &texts)
{
    return [texts](const QString &column) { return texts.value(column); };
}

SubjectWords::Word SubjectWords::words(const QHash<QString, QStringList> &lists)
{
    return [lists](const QString &column, const QVariant &value) { return lists.value(column).value(value.toInt()); };
}

SubjectWords::Word SubjectWords::words(const QHash<QString, std::function<QString(int)>> &names)
{
    return [names](const QString &column, const QVariant &value) {
        const auto name = names.value(column);
        return name ? name(value.toInt()) : QString();
    };
}

SubjectWords::Word SubjectWords::anyOf(const QList<Word> &words)
{
    return [words](const QString &column, const QVariant &value) {
        for (const Word &word : words) {
            if (const QString found = word(column, value); !found.isEmpty())
                return found;
        }
        return QString();
    };
}

QStringList SubjectWords::activity()
{
    return {u"فعال"_s, u"غیرفعال"_s};
}

QString SubjectWords::titleOf(qint32 code, const QString &name)
{
    if (code == 0)
        return name;
    const QString number = QString::number(code);
    return name.isEmpty() ? number : number + u" - "_s + name;
}
