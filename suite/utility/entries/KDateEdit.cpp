// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KDateEdit.h"

#include <QCheckBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <utility>

#include "suite/utility/entries/EntryMark.h"
#include "suite/utility/entries/KMonthPopup.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 4;

// The button at the line's end, with a small calendar sheet.
class CalendarButton : public QAbstractButton
{
public:
    explicit CalendarButton(QWidget *parent)
        : QAbstractButton(parent)
    {
        setFocusPolicy(Qt::NoFocus);
        setCursor(Qt::ArrowCursor);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const int side = qMin(LookSizes::scaled(LookSizes::iconSize), qMin(width(), height()));
        QRect sheet(0, 0, side, side);
        sheet.moveCenter(rect().center());
        static const QIcon picture = LookIcons::icon(u":/icons/calendar.svg"_s);
        picture.paint(&painter, sheet, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }
};

bool isDateChar(QChar c)
{
    return (c >= u'0' && c <= u'9') || c == u'/' || c == u'-' || c == u'.';
}

}

KDateEdit::KDateEdit(QWidget *parent)
    : QLineEdit(parent)
    , m_button(new CalendarButton(this))
{
    setLayoutDirection(Qt::LeftToRight);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setInputMethodHints(Qt::ImhDate);
    placeChildren();
    connect(m_button, &QAbstractButton::clicked, this, &KDateEdit::showPopup);
    // Any text that this class did not put here is an edit, wherever it came from: a screen reader sets text without typing.
    connect(this, &QLineEdit::textEdited, this, [this] { m_typing = true; });
    connect(this, &QLineEdit::textChanged, this, &KDateEdit::takeText);
    connect(this, &QLineEdit::editingFinished, this, &KDateEdit::normalize);
}

void KDateEdit::setCheckable(bool checkable)
{
    if (checkable == isCheckable())
        return;
    if (checkable) {
        m_check = new QCheckBox(this);
        m_check->setCursor(Qt::ArrowCursor);
        m_check->setFocusPolicy(Qt::TabFocus);
        m_check->setEnabled(!isReadOnly());
        setTabOrder(this, m_check);
        connect(m_check, &QCheckBox::toggled, this, &KDateEdit::onCheckToggled);
        m_check->show();
    } else {
        delete m_check;
        m_check = nullptr;
    }
    nameChildren();
    placeChildren();
    updateLook();
}

bool KDateEdit::isCheckable() const
{
    return m_check;
}

bool KDateEdit::isChecked() const
{
    return !m_check || m_check->isChecked();
}

void KDateEdit::setChecked(bool checked)
{
    if (m_check)
        m_check->setChecked(checked);
}

void KDateEdit::onCheckToggled(bool checked)
{
    if (checked && text().isEmpty())
        enterDate(QDate::currentDate());
    updateLook();
    Q_EMIT checkedChanged(checked);
}

QDateTime KDateEdit::dateTime() const
{
    return m_dateTime;
}

void KDateEdit::setDateTime(const QDateTime &dateTime)
{
    showText(shamsiText(dateTime.date()));
    setState(dateTime.isValid() ? QDateTime(dateTime.date(), dateTime.time(), Qt::UTC) : QDateTime(), false);
}

void KDateEdit::setDate(const QDate &date)
{
    setDateTime(date.isValid() ? QDateTime(date, QTime(0, 0), Qt::UTC) : QDateTime());
}

bool KDateEdit::isEntryValid() const
{
    return entryError().isEmpty();
}

QString KDateEdit::entryError() const
{
    if (!isChecked() || m_dateTime.isValid() || text().trimmed().isEmpty())
        return {};
    return u"تاریخ نادرست است. نمونه : 1405/08/29"_s;
}

void KDateEdit::setState(const QDateTime &dateTime, bool isEdit)
{
    const bool changed = dateTime != m_dateTime || dateTime.isValid() != m_dateTime.isValid();
    m_dateTime = dateTime;
    updateLook();
    if (!changed)
        return;
    Q_EMIT dateTimeChanged(m_dateTime);
    if (isEdit)
        Q_EMIT dateEdited(m_dateTime);
}

void KDateEdit::takeText(const QString &text)
{
    if (m_showing)
        return;
    const QString ascii = toAsciiDigits(text);
    if (ascii != text) {
        const int caret = cursorPosition();
        showText(ascii);
        setCursorPosition(caret);
    }
    const QDate date = parseShamsi(ascii);
    const bool sameDay = date.isValid() && date == m_dateTime.date();
    // The box first, so that receivers of the date see it counted.
    setChecked(!ascii.trimmed().isEmpty());
    // The user may still be typing; a text that came whole is put into its form before any signal is emitted.
    m_unfinished = std::exchange(m_typing, false);
    if (!m_unfinished && date.isValid())
        showText(shamsiText(date));
    setState(sameDay ? m_dateTime : date.isValid() ? QDateTime(date, QTime(0, 0), Qt::UTC)
                                                   : QDateTime(),
             true);
}

void KDateEdit::enterDate(const QDate &date)
{
    if (!date.isValid()) {
        clear();
        return;
    }
    if (!GetShamsi(date).isValid())
        return;
    showText(shamsiText(date));
    setChecked(true);
    setState(QDateTime(date, QTime(0, 0), Qt::UTC), true);
}

void KDateEdit::showText(const QString &text)
{
    m_showing = true;
    setText(text);
    m_showing = false;
}

// A finished date is shown in the one form, however it was typed.
void KDateEdit::normalize()
{
    m_unfinished = false;
    const QString shown = shamsiText(m_dateTime.date());
    if (m_dateTime.isValid() && !shown.isEmpty() && shown != text())
        showText(shown);
    updateLook();
}

bool KDateEdit::stepByKey(const QKeyEvent *event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const int months = modifiers == Qt::ShiftModifier ? 12 : 1;
    const bool isMonthKey = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
    const bool isDayKey = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    const bool isPlain = modifiers == Qt::NoModifier;
    if (!(isMonthKey && (isPlain || modifiers == Qt::ShiftModifier)) && !(isDayKey && isPlain))
        return false;
    const int direction = event->key() == Qt::Key_Up || event->key() == Qt::Key_PageUp ? 1 : -1;
    const QDate from = m_dateTime.date();
    if (!from.isValid())
        enterDate(QDate::currentDate());
    else if (const QDate to = isDayKey ? from.addDays(direction) : addShamsiMonths(from, direction * months);
             to.isValid())
        enterDate(to);
    return true;
}

void KDateEdit::keyPressEvent(QKeyEvent *event)
{
    if (isReadOnly()) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    const bool isPopupKey = event->key() == Qt::Key_F4
        || (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier));
    const QString typed = toAsciiDigits(event->text());
    const bool isCommand = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool isForeign = typed.size() == 1 && typed[0].isPrint() && !isDateChar(typed[0]) && !isCommand;
    if (isPopupKey)
        showPopup();
    else if (isForeign && typed[0] == u' ' && m_check)
        m_check->toggle();
    else if (!isForeign && !stepByKey(event))
        QLineEdit::keyPressEvent(event);
}

void KDateEdit::showPopup()
{
    if (isReadOnly() || !isEnabled())
        return;
    if (!m_popup) {
        m_popup = new KMonthPopup(this);
        connect(m_popup, &KMonthPopup::dateChosen, this, &KDateEdit::enterDate);
        connect(m_popup, &KMonthPopup::dateCleared, this, [this] { enterDate({}); });
    }
    m_popup->openAt(this, m_dateTime.date());
}

void KDateEdit::nameChildren()
{
    const QString name = accessibleName();
    m_button->setAccessibleName(u"تقویم %1"_s.arg(name).trimmed());
    if (m_check)
        m_check->setAccessibleName(name);
}

void KDateEdit::placeChildren()
{
    const int frame = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    const int side = qMax(0, height() - 2 * frame);
    const int buttonWidth = m_button->isHidden() ? 0 : side;
    m_button->setGeometry(frame, frame, buttonWidth, side);
    int checkWidth = 0;
    if (m_check) {
        const QSize size = m_check->sizeHint();
        checkWidth = size.width() + gap;
        m_check->setGeometry(width() - frame - checkWidth, (height() - size.height()) / 2, size.width(), size.height());
    }
    setTextMargins(buttonWidth, 0, checkWidth, 0);
}

// A date that does not count is drawn faintly.
void KDateEdit::updateLook()
{
    m_button->setVisible(!isReadOnly());
    // An error in what is still being typed is not reported.
    const QString error = m_unfinished && hasFocus() ? QString() : entryError();
    if (error != m_shownError) {
        m_shownError = error;
        tellEntryError(this, error);
    }
    m_updatingLook = true;
    QPalette colors = entryPalette(isReadOnly());
    if (!isChecked())
        colors.setColor(QPalette::Text, palette().color(QPalette::PlaceholderText));
    setPalette(colors);
    m_updatingLook = false;
}

QSize KDateEdit::sizeHint() const
{
    const QSize base = QLineEdit::sizeHint();
    const int digits = fontMetrics().horizontalAdvance(u"0000/00/00"_s);
    const int check = m_check ? m_check->sizeHint().width() + gap : 0;
    return {digits + base.height() + check + 6 * gap, base.height()};
}

QSize KDateEdit::minimumSizeHint() const
{
    return sizeHint();
}

void KDateEdit::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::ReadOnlyChange) {
        if (m_check)
            m_check->setEnabled(!isReadOnly());
        updateLook();
        placeChildren();
    } else if (event->type() == QEvent::PaletteChange && !m_updatingLook) {
        updateLook();
    } else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        placeChildren();
        updateGeometry();
    }
}

bool KDateEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && !m_shownError.isEmpty()) {
        showErrorToolTip(this, m_shownError, static_cast<QHelpEvent *>(event));
        return true;
    }
    return QLineEdit::event(event);
}

void KDateEdit::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    if (!m_shownError.isEmpty())
        paintEntryMark(this);
}

void KDateEdit::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    placeChildren();
}

void KDateEdit::showEvent(QShowEvent *event)
{
    nameChildren();
    QLineEdit::showEvent(event);
}
