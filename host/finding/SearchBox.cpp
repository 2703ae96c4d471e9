// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/finding/SearchBox.h"

#include "host/finding/KeyCap.h"
#include "host/finding/SearchHits.h"
#include "host/finding/SearchPopup.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/utility/frame/CommandMenu.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcSearch, "tz.host.search")

// What was asked for an earlier letter is dropped: only letters that come together are taken together.
constexpr int typingPauseMs = 0;
constexpr int factsPauseMs = 120;
constexpr int wideBox = 360;
constexpr int narrowBox = 240;
constexpr int leastBox = 120;

const QString storyAction = u"story"_s; // of RecordWindows

}

SearchBox::SearchBox(QWidget *room, QWidget *window)
    : QWidget(room)
    , m_window(window)
    , m_edit(new QLineEdit(this))
    , m_key(new KeyCap(u"Ctrl+K"_s, this))
    , m_popup(new SearchPopup(window))
{
    m_edit->setAccessibleName(u"جستجو در همه"_s);
    m_edit->setPlaceholderText(u"جستجو در همه"_s);
    m_edit->setToolTip(u"جستجو در همه (Ctrl+K)"_s);
    m_edit->addAction(LookIcons::icon(u":/icons/search.svg"_s), QLineEdit::LeadingPosition);
    m_edit->setMaxLength(200);
    LookMarks::setTall(m_edit);
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins({});
    line->setSpacing(LookSizes::unit);
    line->addWidget(m_edit);
    line->addWidget(m_key);
    m_edit->installEventFilter(this);
    m_pause.setSingleShot(true);
    m_pause.setInterval(typingPauseMs);
    m_factsPause.setSingleShot(true);
    m_factsPause.setInterval(factsPauseMs);
    connect(&m_pause, &QTimer::timeout, this, &SearchBox::ask);
    connect(m_edit, &QLineEdit::textEdited, this, [this] {
        open();
        m_opensWhenFound = false;
        m_pause.start();
    });
    connect(&m_task, &SearchTask::found, this, &SearchBox::show);
    connect(&m_task, &SearchTask::told, m_popup, &SearchPopup::showFacts);
    connect(&m_task, &SearchTask::failed, this, &SearchBox::tell);
    connect(&m_factsPause, &QTimer::timeout, this, [this] {
        if (const SearchHit *hit = m_popup->chosen())
            m_task.tellOf(*hit);
    });
    connect(m_popup, &SearchPopup::chosenChanged, this, [this] { m_factsPause.start(); });
    connect(m_popup, &SearchPopup::opened, this, [this] { openChosen(false); });
    connect(m_popup, &SearchPopup::allWanted, this, [this](int row) {
        const auto *hits = static_cast<const SearchHits *>(m_popup->list()->model());
        openAll(*hits->group(row));
    });
    connect(m_popup, &SearchPopup::left, this, &SearchBox::close);
    fit(0);
}

SearchBox::~SearchBox() = default;

void SearchBox::fit(int barWidth)
{
    const bool isWide = barWidth >= LookSizes::scaled(LookSizes::wide);
    m_key->setVisible(isWide);
    m_edit->setMinimumWidth(LookSizes::scaled(isWide ? wideBox : leastBox));
    m_edit->setMaximumWidth(LookSizes::scaled(isWide ? wideBox : narrowBox));
    setMaximumWidth(m_edit->maximumWidth() + (isWide ? m_key->sizeHint().width() + layout()->spacing() : 0));
}

void SearchBox::setNotice(const QString &notice)
{
    m_popup->setNotice(notice);
}

void SearchBox::begin()
{
    if (!m_edit->hasFocus())
        m_before = QApplication::focusWidget();
    m_edit->setFocus(Qt::ShortcutFocusReason);
    m_edit->selectAll();
    open();
}

void SearchBox::open()
{
    if (m_popup->isVisible())
        return;
    // The rights may have been changed since.
    KSecurity::forgetRights();
    m_popup->open(*m_edit);
    m_shown.clear();
    ask();
}

void SearchBox::close()
{
    m_pause.stop();
    m_factsPause.stop();
    m_task.drop();
    m_opensWhenFound = false;
    if (!m_popup->isVisible())
        return;
    m_popup->hide();
    if (m_before && m_before->isVisible())
        m_before->setFocus(Qt::OtherFocusReason);
    else if (m_edit->hasFocus())
        m_window->setFocus(Qt::OtherFocusReason);
}

void SearchBox::ask()
{
    m_pause.stop();
    m_asked = m_edit->text().trimmed();
    if (m_asked.isEmpty()) {
        m_task.drop();
        m_shown.clear();
        m_popup->showNothingTyped();
        return;
    }
    m_task.find(m_asked, SearchFinding::readable());
}

void SearchBox::show(const QString &typed, const QList<SearchFinding::Group> &groups, qint64 milliseconds)
{
    if (!m_popup->isVisible())
        return;
    m_shown = typed;
    m_popup->show(typed, groups, milliseconds);
    m_factsPause.start();
    Q_EMIT answered();
    if (std::exchange(m_opensWhenFound, false))
        openChosen(false);
}

// Not by a message: the user is typing.
void SearchBox::tell(const std::exception_ptr &error)
{
    qCWarning(lcSearch).noquote() << KErrorText::logText(error);
    if (m_popup->isVisible())
        m_popup->showFailure(KErrorText::userMessage(error));
}

void SearchBox::openChosen(bool edits)
{
    const SearchHit *hit = m_popup->chosen();
    if (!hit)
        return;
    const SearchHit chosen = *hit;
    close();
    RecordWindows::open(chosen.table, chosen.key, edits, m_window);
}

void SearchBox::openAll(const SearchFinding::Group &group)
{
    const KSql condition = KSql::formatted("%1 IN (%2)", SearchKinds::of(group.kind).listKey, KSql::list(group.records));
    const KListRequest request{.filters = {}, .condition = condition, .conditionText = u"جستجو: «%1»"_s.arg(m_shown), .selected = group.records.value(0)};
    const QString table = group.table;
    close();
    RecordWindows::openList(table, request);
}

void SearchBox::offerActions()
{
    const SearchHit *hit = m_popup->chosen();
    if (!hit)
        return;
    const SearchHit chosen = *hit;
    const SearchFinding::Group group = *m_popup->chosenGroup();
    CommandMenu menu(this);
    menu.setLayoutDirection(layoutDirection());
    const auto add = [&](const QString &icon, const QString &text, const std::function<void()> &run) {
        connect(menu.addAction(LookIcons::icon(icon), text), &QAction::triggered, this, run);
    };
    add(u":/icons/show.svg"_s, u"نمایش"_s, [this] { openChosen(false); });
    add(u":/icons/edit.svg"_s, u"ویرایش"_s, [this] { openChosen(true); });
    menu.addSeparator();
    for (const RecordAction &action : RecordWindows::actionsOf(chosen.table, chosen.key)) {
        add(action.icon, action.text, [this, action, chosen] {
            close();
            RecordWindows::run(action, chosen.key, m_window);
        });
    }
    menu.addSeparator();
    add(u":/icons/table.svg"_s, u"همه %1 یافته شده"_s.arg(group.title), [this, group] { openAll(group); });
    const QRect row = m_popup->chosenRect();
    menu.exec(QPoint(isRightToLeft() ? row.right() - menu.sizeHint().width() : row.left(), row.bottom()));
}

void SearchBox::openStory()
{
    const SearchHit *hit = m_popup->chosen();
    if (!hit)
        return;
    const SearchHit chosen = *hit;
    for (const RecordAction &action : RecordWindows::actionsOf(chosen.table, chosen.key)) {
        if (action.id != storyAction)
            continue;
        close();
        RecordWindows::run(action, chosen.key, m_window);
        return;
    }
}

bool SearchBox::moved(const QKeyEvent &event)
{
    const bool byGroup = event.modifiers().testFlag(Qt::ControlModifier);
    const int direction = event.key() == Qt::Key_Up ? -1 : 1;
    if (byGroup)
        m_popup->stepGroup(direction);
    else
        m_popup->step(direction);
    return true;
}

bool SearchBox::keyPressed(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers with = event.modifiers() & ~Qt::KeypadModifier;
    const bool atEnd = m_edit->cursorPosition() == m_edit->text().size() && !m_edit->hasSelectedText();
    switch (event.key()) {
    case Qt::Key_Escape:
        close();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (with == Qt::AltModifier)
            return false;
        open();
        return moved(event);
    case Qt::Key_Menu:
        offerActions();
        return true;
    case Qt::Key_T:
        if (with == Qt::ControlModifier)
            openStory();
        return with == Qt::ControlModifier;
    case Qt::Key_F10:
        if (with == Qt::ShiftModifier)
            offerActions();
        return with == Qt::ShiftModifier;
    case Qt::Key_Left:
        // From right to left, on towards where more stands; only behind the text, where the cursor has nowhere to go.
        if (!atEnd || with != Qt::NoModifier || !m_popup->chosen())
            return false;
        offerActions();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        break;
    default:
        return false;
    }
    if (!m_popup->isVisible()) {
        open();
    } else if (with == Qt::AltModifier) {
        offerActions();
    } else if (with == Qt::ShiftModifier) {
        if (const SearchFinding::Group *group = m_popup->chosenGroup())
            openAll(SearchFinding::Group(*group));
    } else if (m_shown == m_edit->text().trimmed()) {
        openChosen(with == Qt::ControlModifier);
    } else {
        // Before the answer to what is typed is there.
        m_opensWhenFound = true;
    }
    return true;
}

bool SearchBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_edit)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // Keys that menus have too.
        if (const auto *key = static_cast<QKeyEvent *>(event); m_popup->isVisible() && (key->key() == Qt::Key_Escape || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_T))
            event->accept();
        return false;
    case QEvent::KeyPress:
        return keyPressed(*static_cast<QKeyEvent *>(event));
    case QEvent::MouseButtonRelease:
        open();
        return false;
    case QEvent::FocusIn:
        if (const auto *focus = static_cast<QFocusEvent *>(event); focus->reason() == Qt::MouseFocusReason)
            m_before = nullptr;
        return false;
    case QEvent::FocusOut:
        // Into a menu or another window, and it stays; by Tab, it is left.
        if (const auto reason = static_cast<QFocusEvent *>(event)->reason(); reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) {
            m_before = nullptr;
            m_popup->hide();
        }
        return false;
    default:
        return false;
    }
}
