// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/finding/SearchPopup.h"

#include "host/finding/KeyCap.h"
#include "host/finding/SearchHitDelegate.h"
#include "host/finding/SearchHits.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int sheetWidth = 680;
constexpr int veilStrength = 115; // of 255

struct KeyHint
{
    QString key;
    QString text;
};

const QList<KeyHint> &keyHints()
{
    static const QList<KeyHint> hints{{u"↑ ↓"_s, u"رفتن"_s}, {u"Enter"_s, u"باز کردن"_s}, {u"Ctrl+Enter"_s, u"ویرایش"_s}, {u"Alt+Enter"_s, u"کارهای دیگر"_s}, {u"Esc"_s, u"بستن"_s}};
    return hints;
}

}

SearchPopup::SearchPopup(QWidget *window)
    : QWidget(window)
    , m_sheet(new QFrame(this))
    , m_list(new QListView(m_sheet))
    , m_hits(new SearchHits(this))
    , m_delegate(new SearchHitDelegate(this))
    , m_sentence(new QLabel(m_sheet))
    , m_facts(new QLabel(m_sheet))
    , m_time(new QLabel(m_sheet))
{
    hide();
    LookMarks::setCard(m_sheet);
    m_sheet->setObjectName(u"searchSheet"_s);
    m_list->setModel(m_hits);
    m_list->setItemDelegate(m_delegate);
    m_list->setAccessibleName(u"یافته‌ها"_s);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setMouseTracking(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->viewport()->installEventFilter(this);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &SearchPopup::chosenChanged);
    m_sentence->setAlignment(Qt::AlignCenter);
    m_sentence->setWordWrap(true);
    m_sentence->setTextFormat(Qt::PlainText);
    m_sentence->setForegroundRole(HostColors::quietText);
    m_sentence->setContentsMargins(LookSizes::windowMargin, 2 * LookSizes::windowMargin, LookSizes::windowMargin, 2 * LookSizes::windowMargin);
    m_facts->setWordWrap(true);
    m_facts->setTextFormat(Qt::PlainText);
    m_facts->setObjectName(u"searchFacts"_s);
    LookFonts::apply(m_facts, LookFonts::Use::Label);
    m_facts->setForegroundRole(HostColors::quietText);
    m_facts->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    auto *column = new QVBoxLayout(m_sheet);
    column->setContentsMargins(LookSizes::unit, LookSizes::unit, LookSizes::unit, 0);
    column->setSpacing(0);
    column->addWidget(m_sentence);
    column->addWidget(m_list, 1);
    column->addWidget(m_facts);
    column->addWidget(buildFooter());
    window->installEventFilter(this);
}

QWidget *SearchPopup::buildFooter()
{
    auto *footer = new QWidget(m_sheet);
    LookMarks::setBar(footer, LookMarks::Bar::Bottom);
    auto *line = new QHBoxLayout(footer);
    line->setContentsMargins(LookSizes::unit, LookSizes::unit, LookSizes::unit, LookSizes::unit);
    line->setSpacing(LookSizes::unit / 2);
    for (const KeyHint &hint : keyHints()) {
        line->addWidget(new KeyCap(hint.key, footer));
        auto *label = new QLabel(hint.text, footer);
        LookFonts::apply(label, LookFonts::Use::Label);
        label->setForegroundRole(HostColors::quietText);
        line->addWidget(label);
        line->addSpacing(LookSizes::unit);
    }
    line->addStretch(1);
    LookFonts::apply(m_time, LookFonts::Use::Label);
    m_time->setForegroundRole(HostColors::quietText);
    line->addWidget(m_time);
    return footer;
}

void SearchPopup::open(const QWidget &box)
{
    m_box = &box;
    place();
    QWidget::show();
    raise();
}

// From below the bar to the window's end; the sheet in the middle below the box, as high as it needs to be and may.
void SearchPopup::place()
{
    if (!m_box)
        return;
    const QWidget *bar = m_box->parentWidget();
    while (bar->parentWidget() && bar->parentWidget() != parentWidget())
        bar = bar->parentWidget();
    const int top = bar->geometry().bottom() + 1;
    setGeometry(0, top, parentWidget()->width(), parentWidget()->height() - top);
    const int margin = LookSizes::unit;
    const int width = std::min(LookSizes::scaled(sheetWidth), this->width() - 2 * margin);
    const int middle = m_box->mapTo(parentWidget(), m_box->rect().center()).x();
    const int left = std::clamp(middle - width / 2, margin, std::max(margin, this->width() - width - margin));
    int rows = 0;
    for (int row = 0; row < m_hits->rowCount(); ++row)
        rows += m_list->sizeHintForRow(row);
    m_list->setFixedHeight(0);
    m_list->setVisible(rows > 0);
    m_sheet->setFixedWidth(width);
    const int others = m_sheet->layout()->heightForWidth(width) > 0 ? m_sheet->layout()->totalHeightForWidth(width) : m_sheet->sizeHint().height();
    const int room = height() - 2 * margin - others;
    m_list->setFixedHeight(std::max(0, std::min(rows, room)));
    m_sheet->setGeometry(left, 0, width, std::min(others + m_list->height(), height() - margin));
    m_sheet->layout()->activate();
}

void SearchPopup::say(const QString &sentence)
{
    m_sentence->setText(sentence);
    m_sentence->setVisible(!sentence.isEmpty());
}

void SearchPopup::show(const QString &typed, const QList<SearchFinding::Group> &groups, qint64 milliseconds)
{
    qsizetype records = 0;
    bool more = false;
    for (const SearchFinding::Group &group : groups) {
        records += group.records.size();
        more = more || group.more;
    }
    m_delegate->setTyped(typed);
    m_hits->show(groups);
    m_foundNothing = groups.isEmpty();
    m_facts->hide();
    say(groups.isEmpty() ? u"چیزی با «%1» پیدا نشد."_s.arg(typed) : QString());
    const QString count = more ? u"بیش از %1"_s.arg(records - 1) : QString::number(records);
    showTime(u"%1 یافته در %2 ثانیه"_s.arg(count, QString::number(double(std::max<qint64>(milliseconds, 10)) / 1000, 'f', 2)));
    choose(m_hits->nextHit(0, 1));
    place();
}

void SearchPopup::showNothingTyped()
{
    m_hits->show({});
    m_foundNothing = false;
    m_facts->hide();
    say(u"نام شخص، موبایل یا کد ملی، پلاک، VIN، شاسی یا موتور (یا رقم‌های پایانی)، شماره قرارداد، تقاضا، چک، سند، فاکتور یا رسید، یا واژه‌ای از توضیحات را بنویسید."_s);
    showTime({});
    place();
}

void SearchPopup::showFailure(const QString &sentence)
{
    m_hits->show({});
    m_foundNothing = false;
    m_facts->hide();
    say(sentence);
    showTime({});
    place();
}

void SearchPopup::showFacts(const SearchHit &hit, const SearchTask::Facts &facts)
{
    const SearchHit *now = chosen();
    if (!now || now->kind != hit.kind || now->key != hit.key)
        return;
    QStringList lines;
    for (const auto &[label, text] : facts)
        lines.append(u"%1: %2"_s.arg(label, text));
    m_facts->setText(lines.join(u"   |   "_s));
    m_facts->setAccessibleName(u"درباره این یافته، "_s + lines.join(u"، "_s));
    m_facts->setVisible(!lines.isEmpty());
    place();
    m_list->scrollTo(m_list->currentIndex());
}

void SearchPopup::setNotice(const QString &notice)
{
    m_notice = notice;
    showTime(m_found);
}

void SearchPopup::showTime(const QString &text)
{
    m_found = text;
    m_time->setText(m_notice.isEmpty() ? text : m_notice);
}

void SearchPopup::choose(int row)
{
    if (row < 0)
        return;
    // The first hit shows the title above it too.
    m_list->setCurrentIndex(m_hits->index(row));
    if (m_hits->nextHit(0, 1) == row)
        m_list->scrollToTop();
}

void SearchPopup::step(int direction)
{
    choose(m_hits->nextHit(m_list->currentIndex().row() + direction, direction));
}

void SearchPopup::stepGroup(int direction)
{
    const SearchFinding::Group *from = chosenGroup();
    int row = m_list->currentIndex().row();
    while (row >= 0 && row < m_hits->rowCount() && m_hits->group(row) == from)
        row += direction;
    if (direction < 0) {
        const SearchFinding::Group *before = m_hits->group(row);
        while (row > 0 && m_hits->group(row - 1) == before)
            --row;
    }
    choose(m_hits->nextHit(std::max(row, 0), 1));
}

const SearchHit *SearchPopup::chosen() const
{
    return m_hits->hit(m_list->currentIndex().row());
}

const SearchFinding::Group *SearchPopup::chosenGroup() const
{
    return m_hits->group(m_list->currentIndex().row());
}

QRect SearchPopup::chosenRect() const
{
    const QRect row = m_list->visualRect(m_list->currentIndex());
    return {m_list->viewport()->mapToGlobal(row.topLeft()), row.size()};
}

void SearchPopup::paintEvent(QPaintEvent *)
{
    QColor veil = HostColors::of(HostColors::Role::Shadow);
    veil.setAlpha(veilStrength);
    QPainter(this).fillRect(rect(), veil);
}

void SearchPopup::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    Q_EMIT left();
}

bool SearchPopup::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize && isVisible())
        place();
    if (watched != m_list->viewport() || event->type() != QEvent::MouseButtonRelease)
        return QWidget::eventFilter(watched, event);
    const QPoint at = static_cast<QMouseEvent *>(event)->position().toPoint();
    const QModelIndex row = m_list->indexAt(at);
    QStyleOptionViewItem option;
    option.rect = m_list->visualRect(row);
    if (m_hits->hit(row.row())) {
        choose(row.row());
        Q_EMIT opened();
    } else if (row.isValid() && SearchHitDelegate::allRect(option).contains(at)) {
        Q_EMIT allWanted(row.row());
    }
    return true;
}
