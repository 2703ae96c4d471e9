// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/CDlgRowConflict.h"

#include "suite/db/KLookup.h"
#include "suite/db/KMySQL.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QQueue>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int sides = 3;
constexpr QSize pictureSize(160, 120);

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
}

bool CDlgRowConflict::Line::isSame() const
{
    return texts[0] == texts[1] && texts[1] == texts[2] && pictures[0] == pictures[1] && pictures[1] == pictures[2];
}

QList<CDlgRowConflict::Line> CDlgRowConflict::linesOf(const RowChanged &changed, KMySQL &record, const Caption &caption,
                                                      const Format &format)
{
    QList<Line> lines;
    for (const RowConflict &conflict : inOrder(changed.conflicts(), record)) {
        Line line{labelOf(record, conflict.column, caption), {}, {}};
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
    if (std::ranges::any_of(lines, [](const Line &line) { return !line.isSame(); }))
        lines.removeIf([](const Line &line) { return line.isSame(); });
    return lines;
}

CDlgRowConflict::Answer CDlgRowConflict::ask(const RowChanged &changed, KMySQL &record, const Caption &caption, const Format &format,
                                             QWidget *parent)
{
    const QList<Line> lines = linesOf(changed, record, caption, format);
    if (!preparedAnswers().isEmpty()) {
        for (const Line &line : lines)
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

CDlgRowConflict::CDlgRowConflict(const QString &heading, const QList<Line> &lines, QWidget *parent)
    : KDialog(parent)
{
    setWindowTitle(u"تغییر هم‌زمان"_s);
    SetSettingName(u"RowConflict"_s);
    auto *explanation = new QLabel(
        heading + u'\n' + u"تنها فیلدهای زیر را هر دو تغییر داده‌اید؛ تغییرهای دیگر هر دو نفر در هر حال می‌ماند."_s, this);
    explanation->setWordWrap(true);
    explanation->setTextFormat(Qt::PlainText);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(addButton(u"تغییر او بماند"_s, u"آنچه شما در این فیلدها نوشته‌اید کنار گذاشته می‌شود."_s, Answer::TakeTheirs));
    buttons->addWidget(addButton(u"تغییر من بماند"_s, u"آنچه او در این فیلدها نوشته است از میان می‌رود."_s, Answer::TakeMine));
    QPushButton *back = addButton(u"بازگشت به پنجره"_s, u"چیزی ذخیره نمی‌شود و آنچه نوشته‌اید در پنجره می‌ماند."_s, Answer::GoBack);
    buttons->addWidget(back);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(buildFields(lines), 1);
    layout->addLayout(buttons);
    resize(900, 440);
    // The answer that loses nothing.
    back->setDefault(true);
    back->setFocus();
}

QWidget *CDlgRowConflict::buildFields(const QList<Line> &lines)
{
    const QString titles[sides] = {u"هنگام باز شدن"_s, u"تغییر او"_s, u"تغییر شما"_s};
    auto *content = new QWidget;
    auto *grid = new QGridLayout(content);
    grid->setHorizontalSpacing(16);
    grid->addWidget(title(u"فیلد"_s), 0, 0);
    for (int side = 0; side < sides; ++side) {
        grid->addWidget(title(titles[side]), 0, side + 1);
        grid->setColumnStretch(side + 1, 1);
    }
    int row = 1;
    for (const Line &line : lines) {
        auto *rule = new QFrame(content);
        rule->setFrameShape(QFrame::HLine);
        rule->setFrameShadow(QFrame::Sunken);
        grid->addWidget(rule, row++, 0, 1, sides + 1);
        grid->addWidget(title(line.caption), row, 0, Qt::AlignTop);
        for (int side = 0; side < sides; ++side)
            grid->addWidget(cell(line, side, titles[side]), row, side + 1, Qt::AlignTop);
        ++row;
    }
    grid->setRowStretch(row, 1);

    // A tab stop of its own, so that the arrow keys scroll what does not fit.
    auto *scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::StrongFocus);
    scroll->setAccessibleName(windowTitle());
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(content);
    return scroll;
}

QLabel *CDlgRowConflict::cell(const Line &line, int side, const QString &title)
{
    const auto position = static_cast<std::size_t>(side);
    const QString text = line.texts[position].isEmpty() ? u"(خالی)"_s : line.texts[position];
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // Figures and dates too begin at the column's right edge.
    label->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignTop);
    label->setAccessibleName(line.caption + u"، "_s + title + u": "_s + text);
    if (QPixmap picture; picture.loadFromData(line.pictures[position])) {
        label->setPixmap(picture.scaled(pictureSize.boundedTo(picture.size()), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    } else if (position > 0 && line.texts[position] != line.texts[0]) {
        QFont changed = label->font();
        changed.setBold(true);
        label->setFont(changed);
    }
    return label;
}

QLabel *CDlgRowConflict::title(const QString &text)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QPushButton *CDlgRowConflict::addButton(const QString &text, const QString &consequence, Answer answer)
{
    auto *button = new QPushButton(text, this);
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
