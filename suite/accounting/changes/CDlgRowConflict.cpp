// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/CDlgRowConflict.h"

#include "suite/db/KLookup.h"
#include "suite/db/KMySQL.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QQueue<CDlgRowConflict::Answer> &preparedAnswers()
{
    static QQueue<CDlgRowConflict::Answer> answers;
    return answers;
}

QStringList &keptLines()
{
    static QStringList lines;
    return lines;
}

QString plainText(KMySQL &record, const QString &name, const QVariant &value)
{
    const KMySQL::Column *column = record.column(name);
    if (!column)
        return value.toString();
    switch (column->kind) {
    case KMySQL::ColumnKind::Date:
        return shamsiText(value.toDateTime().date());
    case KMySQL::ColumnKind::Double:
        return DToMoney(value.toDouble());
    case KMySQL::ColumnKind::Bool:
        return value.toInt() != 0 ? u"بله"_s : u"خیر"_s;
    case KMySQL::ColumnKind::LongBlob:
        return value.toByteArray().isEmpty() ? QString() : u"تصویر"_s;
    case KMySQL::ColumnKind::Long:
        if (!record.nameSource(name).table.isEmpty())
            return KLookup::name(record, name, value.toInt());
        return value.toString();
    case KMySQL::ColumnKind::Text:
        break;
    }
    return value.toString();
}

KListModel::Row rowOf(int key, const QStringList &texts)
{
    KListModel::Row row;
    row.key = key;
    for (const QString &text : texts)
        row.cells.append({text});
    return row;
}

}

CDlgRowConflict::Answer CDlgRowConflict::ask(const RowChanged &changed, KMySQL &record, const Caption &caption, const Format &format,
                                             QWidget *parent)
{
    const auto text = [&](const QString &column, const QVariant &value) {
        const auto known = format ? format(column, value) : std::nullopt;
        return known ? *known : plainText(record, column, value);
    };
    QStringList lines;
    for (const RowConflict &conflict : changed.conflicts()) {
        const KMySQL::Column *column = record.column(conflict.column);
        QString label = caption ? caption(conflict.column) : QString();
        if (label.isEmpty())
            label = column ? column->caption : conflict.column;
        lines.append(QStringList{label.trimmed(), text(conflict.column, conflict.opened), text(conflict.column, conflict.theirs),
                                 text(conflict.column, conflict.mine)}
                         .join(u'\x1f'));
    }
    if (!preparedAnswers().isEmpty()) {
        for (const QString &line : std::as_const(lines)) {
            const QStringList parts = line.split(u'\x1f');
            keptLines().append(parts[0] + u": "_s + parts.mid(1).join(u" | "_s));
        }
        return preparedAnswers().dequeue();
    }
    CDlgRowConflict dialog(changed.userMessage(), lines, parent);
    dialog.exec();
    return dialog.m_answer;
}

void CDlgRowConflict::answerNext(Answer answer)
{
    preparedAnswers().enqueue(answer);
}

QStringList CDlgRowConflict::takeShown()
{
    return std::exchange(keptLines(), {});
}

CDlgRowConflict::CDlgRowConflict(const QString &heading, const QStringList &lines, QWidget *parent)
    : KDialog(parent)
{
    setWindowTitle(u"تغییر هم‌زمان"_s);
    SetSettingName(u"RowConflict"_s);
    auto *explanation = new QLabel(heading, this);
    explanation->setWordWrap(true);
    auto *list = new KExtListCtrl(this);
    list->setAccessibleName(windowTitle());
    list->setColumns({{u"فیلد"_s}, {u"هنگام باز شدن"_s}, {u"تغییر کاربر دیگر"_s}, {u"تغییر شما"_s}});
    QVector<KListModel::Row> rows;
    for (const QString &line : lines)
        rows.append(rowOf(static_cast<int>(rows.size()) + 1, line.split(u'\x1f')));
    list->setRows(std::move(rows));

    auto *buttons = new QHBoxLayout;
    const auto add = [&](const QString &text, Answer answer) {
        auto *button = new QPushButton(text, this);
        button->setAccessibleName(text);
        connect(button, &QPushButton::clicked, this, [this, answer] {
            m_answer = answer;
            cancel();
        });
        buttons->addWidget(button);
        return button;
    };
    buttons->addStretch(1);
    add(u"تغییر او بماند"_s, Answer::TakeTheirs)->setAutoDefault(false);
    add(u"تغییر من بماند"_s, Answer::TakeMine)->setAutoDefault(false);
    QPushButton *back = add(u"بازگشت به پنجره"_s, Answer::GoBack);
    back->setDefault(true);
    back->setFocus();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(list, 1);
    layout->addLayout(buttons);
    resize(820, 380);
}
