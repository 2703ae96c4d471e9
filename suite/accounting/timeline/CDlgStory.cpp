// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/CDlgStory.h"

#include "suite/accounting/changes/RecordStory.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/timeline/StoryCard.h"
#include "suite/accounting/timeline/StoryDelegate.h"
#include "suite/accounting/timeline/StoryKinds.h"
#include "suite/accounting/timeline/StoryModel.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/look/WrapLine.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSet>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int wideCard = 400;
constexpr int narrowCard = 300;
const QString storySection = u"Story"_s;

QString captionOfStory(const QString &table)
{
    const StorySubject *subject = StorySources::of(table);
    return subject ? subject->caption : RecordStory::caption();
}

QList<StoryEvent::Kind> keptKinds(const QString &table)
{
    QList<StoryEvent::Kind> kinds;
    const QStringList numbers = ReadSetting(storySection, table, QString()).split(u',', Qt::SkipEmptyParts);
    for (const QString &number : numbers) {
        bool isNumber = false;
        const int kind = number.toInt(&isNumber);
        if (isNumber && kind >= 0 && kind < StoryEvent::kindCount)
            kinds.append(StoryEvent::Kind(kind));
    }
    return kinds;
}

void keepKinds(const QString &table, const QList<StoryEvent::Kind> &kinds)
{
    QStringList numbers;
    for (const StoryEvent::Kind kind : kinds)
        numbers.append(QString::number(int(kind)));
    WriteSetting(storySection, table, numbers.join(u','));
}

bool isWithinModal(const QWidget *parent)
{
    return parent && parent->window()->isModal();
}

}

CDlgStory::CDlgStory(const QString &table, qint32 key, QWidget *parent)
    : KDialogTabPage(parent)
    , m_table(table)
    , m_key(key)
    , m_kinds(keptKinds(table))
    , m_card(new StoryCard)
    , m_model(new StoryModel(this))
    , m_list(new QListView)
    , m_switches(new QWidget)
    , m_count(new QLabel)
{
    setTitle(captionOfStory(table));
    auto *side = new QScrollArea(this);
    side->setWidget(m_card);
    side->setWidgetResizable(true);
    side->setFrameShape(QFrame::NoFrame);
    side->setFocusPolicy(Qt::NoFocus);
    side->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_side = side;
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::windowMargin);
    line->setSpacing(LookSizes::sideGap);
    line->addWidget(side);
    line->addWidget(buildList(), 1);
    load();
}

CDlgStory::~CDlgStory() = default;

void CDlgStory::Show(const QString &table, qint32 key, QWidget *parent)
{
    KErrorBoundary::guarded(parent, [&] {
        if (!Story::isOffered(table)) {
            g_pDlgWarning->Show(u"شما اجازه دیدن این رکورد را ندارید."_s, parent);
            return;
        }
        auto *page = new CDlgStory(table, key);
        if (!isWithinModal(parent)) {
            GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
            return;
        }
        KDialogHolder window(page, parent, QString(), u"بازگشت"_s);
        window.resize(LookSizes::scaled(1180), LookSizes::scaled(640));
        window.SetSettingName(u"Story\\Window"_s);
        window.exec();
    });
}

void CDlgStory::offer(const QString &table, const QString &form)
{
    RecordStory::setWindow({&CDlgStory::Show, &Story::isOffered});
    RecordWindows::addAction(table, {.id = u"story"_s, .text = RecordStory::caption(), .icon = u":/icons/calendar.svg"_s, .form = form, .run = [table](qint32 key, QWidget *parent) { Show(table, key, parent); }});
}

void CDlgStory::withdraw(const QString &table)
{
    RecordWindows::removeAction(table, u"story"_s);
}

bool CDlgStory::OnAccess()
{
    return Story::isOffered(m_table);
}

QWidget *CDlgStory::buildList()
{
    m_list->setModel(m_model);
    m_list->setItemDelegate(new StoryDelegate(m_model, m_list));
    m_list->setAccessibleName(title());
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setUniformItemSizes(false);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setMouseTracking(true);
    connect(m_list, &QListView::activated, this, &CDlgStory::openCurrent);
    m_empty = new KEmptyState(m_list);
    auto *card = new KListCard(m_list, this);
    card->addToFoot(m_count);

    auto *column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(LookSizes::cardGap);
    column->addWidget(m_switches);
    column->addWidget(card, 1);
    auto *commands = new QHBoxLayout;
    commands->setSpacing(LookSizes::unit);
    m_more = addButton(commands, u"بیشتر"_s, u":/icons/down.svg"_s);
    connect(m_more, &QPushButton::clicked, this, &CDlgStory::readMore);
    QPushButton *printing = addButton(commands, u"چاپ"_s, u":/icons/print.svg"_s);
    printing->setToolTip(QKeySequence(QKeySequence::Print).toString(QKeySequence::NativeText));
    connect(printing, &QPushButton::clicked, this, &CDlgStory::print);
    connect(new QShortcut(QKeySequence(QKeySequence::Print), this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut), &QShortcut::activated, printing, &QPushButton::click);
    for (QPushButton *button : {m_more, printing})
        LookMarks::setTall(button);
    commands->addStretch(1);
    column->addLayout(commands);
    auto *room = new QWidget(this);
    room->setLayout(column);
    return room;
}

// Those of what there is; the first one stands for all.
void CDlgStory::buildSwitches()
{
    qDeleteAll(m_switches->findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
    delete m_switches->layout();
    auto *line = new WrapLine(m_switches);
    line->setSpacing(LookSizes::unit);
    const auto add = [&](const QString &caption, const QString &name, bool on, const std::function<void()> &press) {
        auto *button = new QPushButton(caption, m_switches);
        button->setObjectName(name);
        button->setCheckable(true);
        button->setChecked(on);
        button->setAutoDefault(false);
        LookMarks::setTall(button);
        // Queued: the switches may be made anew.
        connect(button, &QPushButton::clicked, this, press, Qt::QueuedConnection);
        line->addTogether({button});
    };
    add(u"همه"_s, u"all"_s, m_kinds.isEmpty(), [this] { setKinds({}); });
    for (int number = 0; number < StoryEvent::kindCount; ++number) {
        const auto kind = StoryEvent::Kind(number);
        const bool isThere = std::ranges::any_of(m_story.events, [kind](const StoryEvent &event) { return event.kind == kind; });
        if (!isThere && !m_kinds.contains(kind))
            continue;
        add(StoryKinds::caption(kind), QString::number(number), m_kinds.contains(kind), [this, kind] {
            QList<StoryEvent::Kind> kinds = m_kinds;
            if (kinds.removeAll(kind) == 0)
                kinds.append(kind);
            setKinds(kinds);
        });
    }
}

QPushButton *CDlgStory::kindSwitch(StoryEvent::Kind kind) const
{
    return m_switches->findChild<QPushButton *>(QString::number(int(kind)));
}

void CDlgStory::setKinds(const QList<StoryEvent::Kind> &kinds)
{
    const bool hadFocus = m_switches->isAncestorOf(focusWidget());
    const QString name = hadFocus ? focusWidget()->objectName() : QString();
    m_kinds = kinds;
    keepKinds(m_table, kinds);
    showEvents();
    if (auto *button = m_switches->findChild<QPushButton *>(name); hadFocus && button)
        button->setFocus();
}

void CDlgStory::load()
{
    noteReading();
    m_story = Story::read(m_table, m_key, m_limit);
    const StorySubject *subject = StorySources::of(m_table);
    setTitle(m_story.head.title.isEmpty() ? captionOfStory(m_table) : u"%1: %2"_s.arg(captionOfStory(m_table), m_story.head.title));
    m_card->show(m_story, subject->hasPicture);
    showCommands();
    showEvents();
}

QList<StoryEvent> CDlgStory::shownEvents() const
{
    return m_kinds.isEmpty() ? m_story.events : Story::only(m_story.events, m_kinds);
}

// What is selected and in sight stays so.
void CDlgStory::showEvents()
{
    const StoryEvent *selected = m_model->event(m_list->currentIndex());
    const StoryEvent current = selected ? *selected : StoryEvent();
    const int place = m_list->verticalScrollBar()->value();
    const QList<StoryEvent> events = shownEvents();
    m_model->setEvents(events);
    buildSwitches();
    const int row = selected ? m_model->rowOf(current) : -1;
    m_list->setCurrentIndex(m_model->index(row >= 0 ? row : 1));
    m_list->verticalScrollBar()->setValue(row >= 0 ? place : 0);
    m_count->setText(u"%1 رویداد"_s.arg(events.size()));
    m_more->setVisible(m_story.hasMore);
    if (events.isEmpty())
        m_empty->say(u":/icons/history.svg"_s, m_kinds.isEmpty() ? u"هنوز چیزی ثبت نشده است."_s : u"از این دسته چیزی نیست."_s);
    else
        m_empty->dismiss();
}

void CDlgStory::showCommands()
{
    QList<StoryCard::Command> commands{{u"open"_s, u"نمایش"_s, u":/icons/show.svg"_s, [this] { openRecord(false); }}};
    const QList<RecordAction> actions = RecordWindows::actionsOf(m_table, m_key);
    for (const RecordAction &action : actions) {
        if (action.id != u"story"_s)
            commands.append({action.id, action.text, action.icon, [this, action] {
                                 RecordWindows::run(action, m_key, this);
                                 refresh();
                             }});
    }
    m_card->setCommands(commands);
}

void CDlgStory::openRecord(bool edits)
{
    RecordWindows::open(m_table, m_key, edits, this);
    refresh();
}

void CDlgStory::openCurrent()
{
    const StoryEvent *event = m_model->event(m_list->currentIndex());
    if (!event || event->table.isEmpty() || event->key == 0)
        return;
    const StoryEvent opened = *event;
    RecordWindows::open(opened.table, opened.key, false, this);
    refresh();
}

void CDlgStory::refresh()
{
    KErrorBoundary::guarded(this, [this] { load(); });
}

void CDlgStory::readMore()
{
    m_limit += Story::step;
    refresh();
}

void CDlgStory::OnClosing()
{
    keepKinds(m_table, m_kinds);
}

ListReport CDlgStory::report() const
{
    const QVector<KListModel::Column> columns{{u"تاریخ"_s, Qt::AlignHCenter, 60, {}, true}, {u"ساعت"_s, Qt::AlignHCenter, 40}, {u"نوع"_s, Qt::AlignRight, 70}, {u"رویداد"_s, Qt::AlignRight, 170}, {u"شرح"_s, Qt::AlignRight, 220}, {u"مبلغ"_s, Qt::AlignRight, 90}, {u"کاربر"_s, Qt::AlignRight, 80}};
    QVector<KListModel::Row> rows;
    const QList<StoryEvent> events = shownEvents();
    for (const StoryEvent &event : events) {
        const KListModel::Cell amount = IsEquals(event.amount, 0) ? KListModel::Cell() : KListModel::Cell{DToMoney(event.amount), event.amount};
        rows.append({int(rows.size()) + 1, {{shamsiText(event.when.date()), event.when}, {StoryModel::timeText(event)}, {StoryKinds::caption(event.kind)}, {event.title}, {event.line}, amount, {event.user}}});
    }
    ListReport report(u"Story"_s, m_table);
    report.setText(u"RightTop"_s, m_story.head.title);
    report.setText(u"RightCenter"_s, m_story.head.second);
    report.setText(u"RightBottom"_s, m_story.head.plate);
    report.setText(u"LeftBottom"_s, u"تاریخ چاپ : "_s + shamsiText(GetDBSetting()->GetDBServerDate().date()));
    report.setText(u"Count"_s, m_count->text());
    report.setText(u"Title"_s, captionOfStory(m_table));
    report.setTable(u"List"_s, columns, rows);
    if (!report.loadLayout())
        report.buildStandard(captionOfStory(m_table));
    return report;
}

void CDlgStory::print()
{
    const RecordSubject *subject = RecordSubjects::of(m_table);
    KSecurity security;
    security.SetFormName(subject ? subject->form : QString());
    if (security.CheckSecurity() && security.CheckPrintListSecurity())
        KErrorBoundary::guarded(this, [this] { CDlgReportGenerator(report(), this).ShowReport(); });
}

void CDlgStory::resizeEvent(QResizeEvent *event)
{
    m_side->setFixedWidth(LookSizes::scaled(width() >= LookSizes::scaled(LookSizes::wide) ? wideCard : narrowCard));
    KDialogTabPage::resizeEvent(event);
}

void CDlgStory::showEvent(QShowEvent *event)
{
    KDialogTabPage::showEvent(event);
    m_list->setFocus(Qt::OtherFocusReason);
}

// The list opens by Enter where the style does not.
void CDlgStory::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && m_list->hasFocus())
        openCurrent();
    else
        KDialogTabPage::keyPressEvent(event);
}
