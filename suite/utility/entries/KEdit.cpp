// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KEdit.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>

#include <cmath>
#include <limits>

#include "suite/utility/entries/CutNumber.h"
#include "suite/utility/values/CodeText.h"
#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/entries/EntryMark.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/TextStandard.h"
#include "suite/utility/values/TypedNumber.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int percentDecimals = 4;

}

KEdit::KEdit(QWidget *parent)
    : KEdit(Kind::Text, parent) { }

KEdit::KEdit(Kind kind, QWidget *parent)
    : QLineEdit(parent)
{
    setKind(kind);
    // Any text that setNumber did not put here is an edit, wherever it came from: a screen reader sets text without typing.
    connect(this, &QLineEdit::textChanged, this, &KEdit::takeText);
    connect(this, &QLineEdit::editingFinished, this, &KEdit::normalize);
    connect(this, &QLineEdit::textEdited, this, [this](const QString &typed) {
        const QString ascii = toAsciiDigits(typed);
        if (!isNumberKind() && ascii != typed) {
            showText(ascii, cursorPosition());
            takeFont();
        }
    });
}

void KEdit::setKind(Kind kind)
{
    m_kind = kind;
    m_decimals = kind == Kind::Percent ? percentDecimals : kind == Kind::Integer ? 0
                                                                                 : -1;
    m_minimum = 0;
    m_maximum = kind == Kind::Percent ? 100 : kind == Kind::Integer ? std::numeric_limits<int>::max()
                                                                    : largestMoney;
    if (readsLeftToRight()) {
        setLayoutDirection(Qt::LeftToRight);
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setInputMethodHints(isNumberKind() ? Qt::ImhFormattedNumbersOnly : Qt::ImhNone);
        if (isNumberKind())
            clear();
    } else {
        unsetLayoutDirection();
        alignText();
        setInputMethodHints(Qt::ImhNone);
    }
    checkRange(m_number);
}

// At the form's side whatever is entered: left to itself, a line that holds digits alone, or nothing yet, would go by
// the direction of those and part from the lines above and below it.
void KEdit::alignText()
{
    const Qt::Alignment side = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    setAlignment(side | Qt::AlignAbsolute | Qt::AlignVCenter);
}

void KEdit::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange && !readsLeftToRight())
        alignText();
    // The ground of a line that cannot be typed into is not in the application's palette.
    else if (event->type() == QEvent::ReadOnlyChange || (event->type() == QEvent::PaletteChange && isReadOnly()))
        setPalette(entryPalette(isReadOnly()));
}

bool KEdit::isNumberKind() const
{
    return m_kind == Kind::Money || m_kind == Kind::Percent || m_kind == Kind::Integer;
}

int KEdit::decimals() const
{
    return m_decimals < 0 ? defaultMoneyDecimals() : m_decimals;
}

void KEdit::setRange(double minimum, double maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    checkRange(m_number);
}

void KEdit::setDecimals(int decimals)
{
    m_decimals = decimals;
    normalize();
}

double KEdit::number() const
{
    return m_number;
}

int KEdit::integer() const
{
    constexpr double smallest = std::numeric_limits<int>::min();
    constexpr double largest = std::numeric_limits<int>::max();
    return int(std::lround(qBound(smallest, m_number, largest)));
}

void KEdit::setNumber(double number)
{
    const double taken = std::isfinite(number) ? number : 0;
    const QString shown = displayText(taken);
    showText(shown, int(shown.size()));
    const bool changed = m_number != taken;
    m_number = taken;
    setRefusal(false);
    const double inRange = qBound(m_minimum, taken, m_maximum);
    checkRange(IsEquals(taken, inRange) ? inRange : taken);
    if (changed)
        Q_EMIT numberChanged(m_number);
}

QString KEdit::displayText(double number) const
{
    return m_kind == Kind::Money ? DToMoney(number, decimals()) : DToStr(number);
}

void KEdit::takeText(const QString &text)
{
    if (m_showing)
        return;
    setHint({});
    if (m_kind == Kind::Code)
        takeCode();
    if (!isNumberKind()) {
        takeFont();
        return;
    }
    TypedNumber typed = readTyped(text, cursorPosition(), {decimals(), m_minimum < 0});
    const double entered = typed.value();
    const QString shown = groupTyped(typed, m_kind == Kind::Money);
    if (shown != text)
        showText(shown, typed.caret);
    setRefusal(typed.cut);
    checkRange(entered);
    const double taken = qBound(m_minimum, entered, m_maximum);
    if (taken == m_number)
        return;
    m_number = taken;
    Q_EMIT numberChanged(taken);
    Q_EMIT numberEdited(taken);
}

QString KEdit::plainText() const
{
    return m_kind == Kind::Code ? CodeText::plain(text()) : text();
}

void KEdit::setCodeLength(int length)
{
    m_codeLength = length;
}

void KEdit::takeCode()
{
    QString code = CodeText::plain(text());
    qsizetype caret = CodeText::plain(text().left(cursorPosition())).size();
    if (const qsizetype excess = code.size() - m_codeLength; m_codeLength > 0 && excess > 0) {
        // What came last does not fit any more.
        const qsizetype from = qMax(0, caret - excess);
        code.remove(from, excess);
        caret = from;
    }
    const QString shown = CodeText::shown(toAsciiDigits(code), &caret);
    if (shown != text())
        showText(shown, int(caret));
}

void KEdit::takeFont()
{
    const bool latin = CodeFont::isLatinCode(text());
    if (latin == m_isLatinCode)
        return;
    m_isLatinCode = latin;
    QFont own; // one that says nothing is that of the form
    if (latin)
        own.setFamilies(CodeFont::families(font()));
    setFont(own);
}

// A finished entry is shown as setNumber would show it.
void KEdit::normalize()
{
    setRefusal(false);
    if (!isNumberKind() || text().isEmpty() || !isEntryValid())
        return;
    const QString shown = displayText(m_number);
    if (shown != text())
        showText(shown, int(shown.size()));
}

void KEdit::showText(const QString &text, int caret)
{
    m_showing = true;
    setText(text);
    setCursorPosition(caret);
    m_showing = false;
}

void KEdit::checkRange(double entered)
{
    QString error;
    if (isNumberKind() && (entered < m_minimum || entered > m_maximum)) {
        error = u"مقدار باید بین %1 و %2 باشد."_s.arg(displayText(m_minimum), displayText(m_maximum));
    }
    m_error = error;
    tellNotice();
}

void KEdit::setRefusal(bool refused)
{
    m_refusal.clear();
    if (refused)
        m_refusal = decimals() == 0 ? u"اعشار پذیرفته نمی‌شود."_s : u"حداکثر %1 رقم اعشار پذیرفته می‌شود."_s.arg(decimals());
    tellNotice();
}

void KEdit::setHint(const QString &hint)
{
    m_hint = hint;
    tellNotice();
}

QString KEdit::notice() const
{
    for (const QString &notice : {m_error, m_refusal}) {
        if (!notice.isEmpty())
            return notice;
    }
    return m_hint;
}

void KEdit::tellNotice()
{
    if (notice() == m_told)
        return;
    m_told = notice();
    tellEntryError(this, m_told);
}

// A point that would cut digits off, or a second one, is refused, and with it the digits that are typed behind it: without
// their point they would join the whole.
bool KEdit::refusesKey(const QKeyEvent *event)
{
    const QString typed = toAsciiDigits(event->text());
    const Qt::KeyboardModifiers commands = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool isCharacter = typed.size() == 1 && typed[0].isPrint() && !commands;
    if (isCharacter && typed[0] >= u'0' && typed[0] <= u'9')
        return m_pointRefused;
    m_pointRefused = false;
    if (!isCharacter)
        return false;
    const int from = hasSelectedText() ? selectionStart() : cursorPosition();
    if (typed[0] == u'-')
        return m_minimum >= 0 || from > 0;
    if (!isDecimalPoint(typed[0]))
        return true;
    const int behind = int(text().size()) - (hasSelectedText() ? selectionEnd() : from);
    m_pointRefused = behind > decimals() || (text().contains(u'.') && !selectedText().contains(u'.'));
    setRefusal(m_pointRefused);
    return m_pointRefused;
}

// A separator or mark is not the user's: deleting and moving meet the character on its other side.
void KEdit::stepOverInserted(int key)
{
    const QChar inserted = m_kind == Kind::Code ? CodeText::mark : QChar(u',');
    const int at = cursorPosition();
    if (hasSelectedText())
        return;
    if ((key == Qt::Key_Backspace || (key == Qt::Key_Left && m_kind == Kind::Code)) && at > 0 && text()[at - 1] == inserted)
        setCursorPosition(at - 1);
    else if ((key == Qt::Key_Delete || (key == Qt::Key_Right && m_kind == Kind::Code)) && at < text().size()
             && text()[at] == inserted)
        setCursorPosition(at + 1);
}

void KEdit::keyPressEvent(QKeyEvent *event)
{
    if (isNumberKind() && !isReadOnly() && refusesKey(event)) {
        event->accept();
        return;
    }
    if (readsLeftToRight() && !isReadOnly())
        stepOverInserted(event->key());
    const QString selected = selectedText();
    QLineEdit::keyPressEvent(event);
    if (m_kind == Kind::Code && (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::Cut)))
        takeMarksOffClipboard(selected);
}

void KEdit::contextMenuEvent(QContextMenuEvent *event)
{
    if (m_kind != Kind::Code) {
        QLineEdit::contextMenuEvent(event);
        return;
    }
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // Queued, because the menu's signal comes before the line has acted.
    connect(
        menu, &QMenu::triggered, this, [selected = selectedText()] { takeMarksOffClipboard(selected); }, Qt::QueuedConnection);
    menu->popup(event->globalPos());
}

// Wherever a copied code is pasted, an invisible mark would make it a different one.
void KEdit::takeMarksOffClipboard(const QString &copied)
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    if (!copied.isEmpty() && clipboard->text() == copied)
        clipboard->setText(CodeText::plain(copied));
}

void KEdit::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    m_selectOnRelease = isNumberKind() && event->reason() == Qt::MouseFocusReason;
    m_pointRefused = false;
    if (!m_told.isEmpty())
        tellEntryError(this, m_told);
}

// The click that enters a number field selects it whole, as Tab does, so that typing replaces the old amount.
void KEdit::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (m_selectOnRelease && !hasSelectedText())
        selectAll();
    m_selectOnRelease = false;
    m_pointRefused = false;
}

bool KEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && !m_told.isEmpty()) {
        showErrorToolTip(this, m_told, static_cast<QHelpEvent *>(event));
        return true;
    }
    if (event->type() == QEvent::ToolTip && (isCut() || (isReadOnly() && isLongerThanRoom()))) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text(), this);
        return true;
    }
    return QLineEdit::event(event);
}

// Inside the frame, where the base class draws the text.
QRect KEdit::textRoom() const
{
    constexpr int horizontalMargin = 2;
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()->subElementRect(QStyle::SE_LineEditContents, &option, this).marginsRemoved(textMargins()).adjusted(horizontalMargin, 0, -horizontalMargin, 0);
}

bool KEdit::isLongerThanRoom() const
{
    return fontMetrics().horizontalAdvance(text()) > textRoom().width();
}

bool KEdit::isCut() const
{
    return isNumberKind() && !hasFocus() && isLongerThanRoom();
}

void KEdit::paintCut()
{
    QStylePainter painter(this);
    QStyleOptionFrame option;
    initStyleOption(&option);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
    painter.setPen(option.palette.color(QPalette::Text));
    painter.drawText(textRoom(), Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute, CutNumber::mark());
}

void KEdit::paintElided()
{
    QStylePainter painter(this);
    QStyleOptionFrame option;
    initStyleOption(&option);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
    painter.setPen(option.palette.color(QPalette::Text));
    const QRect room = textRoom();
    painter.drawText(room, alignment() | Qt::TextSingleLine, fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

void KEdit::paintEvent(QPaintEvent *event)
{
    if (isCut())
        paintCut();
    else if (isReadOnly() && !hasFocus() && m_kind == Kind::Text && isLongerThanRoom())
        paintElided(); // half a name would be read as another one
    else
        QLineEdit::paintEvent(event);
    if (!m_told.isEmpty())
        paintEntryMark(this);
}
