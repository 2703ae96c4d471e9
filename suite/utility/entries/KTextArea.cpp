// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KTextArea.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTextOption>

#include <cmath>

#include "suite/utility/entries/EntryMark.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int shownLines = 3;
constexpr int leastLines = 2;
constexpr int areaMargin = 4;
// The offers show a text on one line, so the text itself stands behind it.
constexpr int wholeTextRole = Qt::UserRole;

bool isPopupKey(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape || key == Qt::Key_Tab
        || key == Qt::Key_Backtab;
}

}

KTextArea::KTextArea(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    // Clear of the frame's round corners.
    setViewportMargins(areaMargin, areaMargin / 2, areaMargin, areaMargin / 2);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(this, &QPlainTextEdit::textChanged, this, &KTextArea::checkLength);
    readInWindowsDirection();
}

// The toolkit takes the alignment of plain text for an absolute one, also in a window that is read from the right.
void KTextArea::readInWindowsDirection()
{
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(layoutDirection());
    option.setAlignment(isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
    document()->setDefaultTextOption(option);
}

void KTextArea::setMaxLength(int characters)
{
    m_maxLength = characters;
    checkLength();
}

void KTextArea::checkLength()
{
    // The server counts characters, and Qt the two halves of the rare ones.
    const qsizetype length = text().toUcs4().size();
    QString error;
    if (m_maxLength > 0 && length > m_maxLength)
        error = u"طولانی است؛ %1 نویسه از %2 نویسه مجاز بیشتر است."_s.arg(length).arg(m_maxLength);
    if (error == m_error)
        return;
    m_error = error;
    tellEntryError(this, m_error);
    viewport()->update();
}

void KTextArea::setCompletions(const QStringList &texts)
{
    if (!m_completer) {
        m_completer = new QCompleter(this);
        m_completer->setWidget(this);
        m_completer->setModel(new QStandardItemModel(m_completer));
        m_completer->setCompletionRole(wholeTextRole);
        m_completer->setFilterMode(Qt::MatchContains);
        m_completer->setCaseSensitivity(Qt::CaseInsensitive);
        connect(m_completer, qOverload<const QString &>(&QCompleter::activated), this, [this](const QString &chosen) {
            setPlainText(chosen);
            moveCursor(QTextCursor::End);
        });
    }
    auto *model = static_cast<QStandardItemModel *>(m_completer->model());
    model->clear();
    for (const QString &text : texts) {
        auto *item = new QStandardItem(text.simplified());
        item->setData(text, wholeTextRole);
        model->appendRow(item);
    }
}

void KTextArea::offerCompletions()
{
    const QString typed = text();
    m_completer->setCompletionPrefix(typed);
    const int offers = m_completer->completionCount();
    const bool isOnlyItself = offers == 1 && m_completer->currentCompletion() == typed;
    if (typed.trimmed().isEmpty() || offers == 0 || isOnlyItself) {
        m_completer->popup()->hide();
        return;
    }
    // Under the line that is typed, as wide as the field. From right to left the completer lays the left edge of the offers
    // where the rectangle ends.
    QRect below(viewport()->x(), viewport()->y() + cursorRect().y(), viewport()->width(), cursorRect().height());
    if (isRightToLeft())
        below.moveRight(viewport()->x());
    m_completer->complete(below);
}

void KTextArea::keyPressEvent(QKeyEvent *event)
{
    const bool isOffering = m_completer && m_completer->popup()->isVisible();
    if (isOffering && isPopupKey(event->key())) {
        event->ignore();
        return;
    }
    offeringAfter([&] { QPlainTextEdit::keyPressEvent(event); });
}

// Keyboards that compose letters enter them by this.
void KTextArea::inputMethodEvent(QInputMethodEvent *event)
{
    offeringAfter([&] { QPlainTextEdit::inputMethodEvent(event); });
}

// Runs the user's own edits; offers are for these, not for texts that the program sets.
void KTextArea::offeringAfter(const std::function<void()> &typing)
{
    const QString before = text();
    typing();
    if (m_completer && !isReadOnly() && text() != before)
        offerCompletions();
}

void KTextArea::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        readInWindowsDirection();
    // The ground of an area that cannot be typed into is not in the application's palette.
    if (event->type() == QEvent::ReadOnlyChange || (event->type() == QEvent::PaletteChange && isReadOnly()))
        setPalette(entryPalette(isReadOnly()));
}

bool KTextArea::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && !isEntryValid()) {
        showErrorToolTip(this, m_error, static_cast<QHelpEvent *>(event));
        return true;
    }
    return QPlainTextEdit::event(event);
}

void KTextArea::paintEvent(QPaintEvent *event)
{
    QPlainTextEdit::paintEvent(event);
    if (!isEntryValid())
        paintEntryMark(viewport());
}

QSize KTextArea::sizeOfLines(int lines) const
{
    const int margins = 2 * (frameWidth() + int(std::ceil(document()->documentMargin()))) + areaMargin;
    return {fontMetrics().averageCharWidth() * 24, lines * fontMetrics().lineSpacing() + margins};
}

QSize KTextArea::sizeHint() const
{
    return sizeOfLines(shownLines);
}

QSize KTextArea::minimumSizeHint() const
{
    return sizeOfLines(leastLines);
}
