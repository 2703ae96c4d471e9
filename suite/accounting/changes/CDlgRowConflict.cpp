// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/CDlgRowConflict.h"

#include "suite/db/records/KLookup.h"
#include "suite/db/records/KMySQL.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QQueue>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int sides = ConflictTable::sides;

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

QString nameBehind(KMySQL &record, const QString &column, int key)
{
    const QString name = KLookup::name(record, column, key);
    return name.isEmpty() && key != 0 ? u"(حذف شده)"_s : name;
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
        return record.nameSource(name).table.isEmpty() ? value.toString() : nameBehind(record, name, value.toInt());
    case KMySQL::ColumnKind::Text:
        break;
    }
    return value.toString();
}

QString labelOf(KMySQL &record, const QString &name, const CDlgRowConflict::Caption &caption)
{
    const QString label = caption ? caption(name) : QString();
    const KMySQL::Column *column = record.column(name);
    return (!label.isEmpty() || !column ? label : column->caption).trimmed();
}

// In the order in which the record names its columns, which is nearer to a window's than the alphabet; other names stay behind.
QList<RowConflict> inOrder(QList<RowConflict> conflicts, KMySQL &record)
{
    const auto position = [&record](const RowConflict &conflict) {
        return std::ranges::find(record.columns(), conflict.column, &KMySQL::Column::name) - record.columns().cbegin();
    };
    std::ranges::stable_sort(conflicts, {}, position);
    return conflicts;
}

// Values that differ by less than what is shown.
bool isSame(const ConflictTable::Line &line)
{
    return line.texts[0] == line.texts[1] && line.texts[1] == line.texts[2] && line.pictures[0] == line.pictures[1]
        && line.pictures[1] == line.pictures[2];
}

}

QList<ConflictTable::Line> CDlgRowConflict::linesOf(const RowChanged &changed, KMySQL &record, const Caption &caption,
                                                    const Format &format)
{
    QList<ConflictTable::Line> lines;
    for (const RowConflict &conflict : inOrder(changed.conflicts(), record)) {
        ConflictTable::Line line{labelOf(record, conflict.column, caption), {}, {}};
        if (line.caption.isEmpty())
            line.caption = conflict.column;
        const QVariant values[sides] = {conflict.opened, conflict.theirs, conflict.mine};
        for (std::size_t side = 0; side < sides; ++side) {
            const auto known = format ? format(conflict.column, values[side]) : std::nullopt;
            line.texts[side] = known ? *known : plainText(record, conflict.column, values[side]);
            if (values[side].typeId() == QMetaType::QByteArray)
                line.pictures[side] = values[side].toByteArray();
        }
        lines.append(line);
    }
    // Of the columns of one field some may have changed only in what nobody sees; one is left to tell the user why there is a question.
    if (!std::ranges::all_of(lines, isSame))
        lines.removeIf(isSame);
    return lines;
}

CDlgRowConflict::Answer CDlgRowConflict::ask(const RowChanged &changed, KMySQL &record, const Caption &caption, const Format &format,
                                             QWidget *parent)
{
    const QList<ConflictTable::Line> lines = linesOf(changed, record, caption, format);
    if (!preparedAnswers().isEmpty()) {
        for (const ConflictTable::Line &line : lines)
            keptLines().append(line.caption + u": "_s + line.texts[0] + u" | "_s + line.texts[1] + u" | "_s + line.texts[2]);
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

CDlgRowConflict::CDlgRowConflict(const QString &heading, const QList<ConflictTable::Line> &lines, QWidget *parent)
    : KDialog(parent)
{
    setWindowTitle(u"تغییر هم‌زمان"_s);
    SetSettingName(u"RowConflict"_s);
    auto *buttons = new QDialogButtonBox(this);
    addButton(buttons, u"تغییر او بماند"_s, u"آنچه شما در این فیلدها نوشته‌اید کنار گذاشته می‌شود."_s, Answer::TakeTheirs);
    addButton(buttons, u"تغییر من بماند"_s, u"آنچه او در این فیلدها نوشته است از میان می‌رود."_s, Answer::TakeMine);
    QPushButton *back = addButton(buttons, u"بازگشت به پنجره"_s, u"چیزی ذخیره نمی‌شود و آنچه نوشته‌اید در پنجره می‌ماند."_s, Answer::GoBack);
    setContent(buildPage(heading, lines), buttons, Content::Fills);
    resize(LookSizes::scaled(900), LookSizes::scaled(460));
    // The answer that loses nothing.
    back->setDefault(true);
    LookMarks::setButton(back, LookMarks::Button::Primary);
    back->setFocus();
}

QWidget *CDlgRowConflict::buildPage(const QString &heading, const QList<ConflictTable::Line> &lines)
{
    auto *explanation = new QLabel(
        heading + u'\n' + u"تنها فیلدهای زیر را هر دو تغییر داده‌اید؛ تغییرهای دیگر هر دو نفر در هر حال می‌ماند."_s);
    explanation->setWordWrap(true);
    explanation->setTextFormat(Qt::PlainText);

    // A tab stop of its own, so that the arrow keys scroll what does not fit.
    auto *scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::StrongFocus);
    scroll->setAccessibleName(windowTitle());
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(new ConflictTable(lines));

    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::unit);
    column->addWidget(explanation);
    column->addWidget(scroll, 1);
    return page;
}

// All of one role, so that they stand in the order in which they are added.
QPushButton *CDlgRowConflict::addButton(QDialogButtonBox *box, const QString &text, const QString &consequence, Answer answer)
{
    QPushButton *button = box->addButton(text, QDialogButtonBox::ActionRole);
    button->setAccessibleName(text);
    button->setAccessibleDescription(consequence);
    button->setToolTip(consequence);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, answer] {
        m_answer = answer;
        cancel();
    });
    return button;
}
