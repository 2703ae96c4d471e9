// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KMonthPopup.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <cstdlib>

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int daysInWeek = 7;
constexpr int weeksShown = 6;
constexpr int friday = 6;
constexpr int monthsInYear = 12;

// A button with one or two arrow heads: a month or a year on or back.
class StepButton : public QAbstractButton
{
public:
    StepButton(QWidget *parent, int months)
        : QAbstractButton(parent)
        , m_months(months)
    {
        setFocusPolicy(Qt::TabFocus);
        setFixedSize(fontMetrics().height() + 12, fontMetrics().height() + 10);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (underMouse() || hasFocus()) {
            painter.setPen(hasFocus() ? QPen(HostColors::of(HostColors::Role::Accent), LookSizes::ring) : QPen(Qt::NoPen));
            painter.setBrush(palette().color(QPalette::Midlight));
            painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 4, 4);
        }
        painter.setPen(QPen(palette().color(QPalette::ButtonText), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        // Time runs to the left where lines are read from the right.
        const int ahead = (m_months > 0) == isRightToLeft() ? -1 : 1;
        const bool isYear = std::abs(m_months) == monthsInYear;
        const QPointF center = QRectF(rect()).center();
        for (double shift : isYear ? QList<double>{-3, 3} : QList<double>{0}) {
            const QPointF tip = center + QPointF(shift + 2.5 * ahead, 0);
            painter.drawPolyline(QPolygonF{tip + QPointF(-4.0 * ahead, -4), tip, tip + QPointF(-4.0 * ahead, 4)});
        }
    }

private:
    int m_months;
};

QString spokenDate(const QDate &date)
{
    const ShamsiDate shamsi = GetShamsi(date);
    return u"%1 %2 %3 %4"_s
        .arg(shamsiDayName(shamsiDayOfWeek(date)))
        .arg(shamsi.day)
        .arg(shamsiMonthName(shamsi.month))
        .arg(shamsi.year);
}

}

KDayButton::KDayButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void KDayButton::setDay(const QDate &date, bool isSelected)
{
    m_date = date;
    m_isSelected = isSelected;
    setEnabled(date.isValid());
    setText(date.isValid() ? QString::number(GetShamsi(date).day) : QString());
    setAccessibleName(date.isValid() ? spokenDate(date) : QString());
    update();
}

QSize KDayButton::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(u"00"_s) + 18, fontMetrics().height() + 10};
}

void KDayButton::paintEvent(QPaintEvent *)
{
    if (!m_date.isValid())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    QColor text = shamsiDayOfWeek(m_date) == friday ? HostColors::of(HostColors::Role::Danger) : palette().color(QPalette::Text);
    painter.setPen(Qt::NoPen);
    if (m_isSelected) {
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(box, 4, 4);
        text = palette().color(QPalette::HighlightedText);
    } else if (underMouse()) {
        painter.setBrush(palette().color(QPalette::Midlight));
        painter.drawRoundedRect(box, 4, 4);
    }
    if (m_date == QDate::currentDate()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(HostColors::of(HostColors::Role::Accent), 1.5));
        painter.drawRoundedRect(box, 4, 4);
    }
    painter.setPen(text);
    painter.drawText(rect(), Qt::AlignCenter, this->text());
}

KMonthPopup::KMonthPopup(QWidget *parent)
    : QFrame(parent, Qt::Popup)
    , m_title(new QLabel(this))
{
    setLayoutDirection(Qt::RightToLeft);
    setFrameShape(QFrame::StyledPanel);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::Text);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);
    addHeader();
    addDays();
    addFooter();
}

void KMonthPopup::addHeader()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    m_title->setFont(LookFonts::font(LookFonts::Use::Primary));
    m_title->setAlignment(Qt::AlignCenter);
    m_title->setForegroundRole(QPalette::Text);
    row->addWidget(addStepButton(u"سال قبل"_s, -monthsInYear));
    row->addWidget(addStepButton(u"ماه قبل"_s, -1));
    row->addWidget(m_title, 1);
    row->addWidget(addStepButton(u"ماه بعد"_s, 1));
    row->addWidget(addStepButton(u"سال بعد"_s, monthsInYear));
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

QAbstractButton *KMonthPopup::addStepButton(const QString &name, int months)
{
    auto *button = new StepButton(this, months);
    button->setAccessibleName(name);
    button->setToolTip(name);
    connect(button, &QAbstractButton::clicked, this, [this, months] { select(addShamsiMonths(m_selected, months)); });
    return button;
}

void KMonthPopup::addDays()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(0);
    for (int day = 0; day < daysInWeek; ++day) {
        auto *label = new QLabel(shamsiDayName(day).left(1), this);
        label->setAlignment(Qt::AlignCenter);
        label->setAccessibleName(shamsiDayName(day));
        label->setForegroundRole(day == friday ? HostColors::dangerText : HostColors::hintText);
        grid->addWidget(label, 0, day);
    }
    for (int place = 0; place < weeksShown * daysInWeek; ++place) {
        auto *button = new KDayButton(this);
        connect(button, &QAbstractButton::clicked, this, [this, button] { choose(button->date()); });
        grid->addWidget(button, 1 + place / daysInWeek, place % daysInWeek);
        m_days.append(button);
    }
    static_cast<QVBoxLayout *>(layout())->addLayout(grid);
}

void KMonthPopup::addFooter()
{
    auto *row = new QHBoxLayout;
    auto *today = new QPushButton(u"امروز"_s, this);
    auto *clear = new QPushButton(u"پاک کردن"_s, this);
    for (QPushButton *button : {today, clear}) {
        button->setAutoDefault(false);
        button->setFlat(true);
        row->addWidget(button);
    }
    connect(today, &QPushButton::clicked, this, [this] { choose(QDate::currentDate()); });
    connect(clear, &QPushButton::clicked, this, [this] {
        close();
        Q_EMIT dateCleared();
    });
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void KMonthPopup::openAt(const QWidget *anchor, const QDate &date)
{
    setFont(anchor->font());
    select(GetShamsi(date).isValid() ? date : QDate::currentDate());
    adjustSize();
    const QRect screenArea = anchor->screen()->availableGeometry();
    const QPoint below = anchor->mapToGlobal(QPoint(0, anchor->height()));
    QRect place(below, size());
    if (place.bottom() > screenArea.bottom())
        place.moveBottom(below.y() - anchor->height());
    place.moveLeft(qBound(screenArea.left(), place.left(), qMax(screenArea.left(), screenArea.right() - width())));
    move(place.topLeft());
    show();
    setFocus(Qt::PopupFocusReason);
}

// Does nothing for a day that the calendar does not hold.
void KMonthPopup::select(const QDate &date)
{
    const ShamsiDate shamsi = GetShamsi(date);
    if (!shamsi.isValid())
        return;
    m_selected = date;
    m_title->setText(u"%1 %2"_s.arg(shamsiMonthName(shamsi.month)).arg(shamsi.year));
    setAccessibleName(spokenDate(date));
    const QDate first = ConvertToMiladi(shamsi.year, shamsi.month, 1);
    const int before = shamsiDayOfWeek(first);
    const int days = shamsiDaysInMonth(shamsi.year, shamsi.month);
    for (int place = 0; place < m_days.size(); ++place) {
        const int day = place - before;
        const QDate shown = day >= 0 && day < days ? first.addDays(day) : QDate();
        m_days[place]->setDay(shown, shown.isValid() && shown == date);
    }
}

void KMonthPopup::choose(const QDate &date)
{
    close();
    Q_EMIT dateChosen(date);
}

QDate KMonthPopup::dateForKey(const QKeyEvent *event) const
{
    const ShamsiDate shamsi = GetShamsi(m_selected);
    const int months = event->modifiers() & Qt::ShiftModifier ? monthsInYear : 1;
    const int ahead = isRightToLeft() ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        return m_selected.addDays(-ahead);
    case Qt::Key_Right:
        return m_selected.addDays(ahead);
    case Qt::Key_Up:
        return m_selected.addDays(-daysInWeek);
    case Qt::Key_Down:
        return m_selected.addDays(daysInWeek);
    case Qt::Key_PageUp:
        return addShamsiMonths(m_selected, -months);
    case Qt::Key_PageDown:
        return addShamsiMonths(m_selected, months);
    case Qt::Key_Home:
        return ConvertToMiladi(shamsi.year, shamsi.month, 1);
    case Qt::Key_End:
        return ConvertToMiladi(shamsi.year, shamsi.month, shamsiDaysInMonth(shamsi.year, shamsi.month));
    default:
        return {};
    }
}

void KMonthPopup::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space) {
        // Enter on one of the buttons rises to here, too, and means that button.
        if (auto *button = qobject_cast<QAbstractButton *>(focusWidget()))
            button->click();
        else
            choose(m_selected);
    } else if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_F4) {
        close();
    } else if (const QDate date = dateForKey(event); date.isValid()) {
        select(date);
    } else {
        QFrame::keyPressEvent(event);
    }
}

void KMonthPopup::wheelEvent(QWheelEvent *event)
{
    if (event->angleDelta().y() != 0)
        select(addShamsiMonths(m_selected, event->angleDelta().y() > 0 ? -1 : 1));
    event->accept();
}
