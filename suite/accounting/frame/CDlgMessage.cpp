// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/CDlgMessage.h"

#include "suite/accounting/frame/MessageSign.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Of the text, in letters of ordinary width.
constexpr int shortestLine = 36;
// A label breaks its lines a little earlier than they are measured.
constexpr int spareCharacters = 4;
constexpr int longestLine = 64;

QString titleOf(KMessageDialog::Kind kind)
{
    switch (kind) {
    case KMessageDialog::Kind::Warning:
        return u"هشدار"_s;
    case KMessageDialog::Kind::Message:
        return u"پیام"_s;
    case KMessageDialog::Kind::Question:
        return u"پرسش"_s;
    }
    Q_UNREACHABLE();
}

// A screen reader reads an alert by itself when it comes up.
QAccessibleInterface *makeAlert(const QString &, QObject *object)
{
    auto *window = qobject_cast<CDlgMessage *>(object);
    return window ? new QAccessibleWidget(window, QAccessible::AlertMessage) : nullptr;
}

}

CDlgMessage::CDlgMessage(KMessageDialog::Kind kind, const QString &text, const QList<Choice> &choices, Answer closed, QWidget *parent)
    : KDialog(parent)
    , m_answer(closed)
{
    static const bool announced = (QAccessible::installFactory(makeAlert), true);
    Q_UNUSED(announced)
    setWindowTitle(titleOf(kind));
    QWidget *page = buildPage(kind, text);
    setContent(page, buildButtons(choices), Content::Fills);
    fitText();
    for (QPushButton *button : buttons()) {
        if (button->isDefault())
            button->setFocus();
    }
}

QWidget *CDlgMessage::buildPage(KMessageDialog::Kind kind, const QString &text)
{
    auto *page = new QWidget(this);
    m_text = new QLabel(text);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_scroll = new QScrollArea(page);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setAccessibleName(windowTitle());
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidget(m_text);
    auto *line = new QHBoxLayout(page);
    line->setContentsMargins(LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::windowMargin);
    line->setSpacing(LookSizes::windowMargin);
    line->addWidget(new MessageSign(kind, page), 0, Qt::AlignTop);
    line->addWidget(m_scroll, 1);
    return page;
}

QDialogButtonBox *CDlgMessage::buildButtons(const QList<Choice> &choices)
{
    auto *box = new QDialogButtonBox(this);
    for (const Choice &choice : choices) {
        QPushButton *button = box->addButton(choice.caption, choice.role);
        button->setAccessibleName(choice.caption);
        button->setAutoDefault(false);
        button->setDefault(choice.isPreset);
        if (choice.isPreset)
            LookMarks::setButton(button, LookMarks::Button::Primary);
        connect(button, &QPushButton::clicked, this, [this, answer = choice.answer] {
            m_answer = answer;
            cancel();
        });
    }
    return box;
}

// As wide as the text asks within limits of the font, and as high as it is then, but for half the screen, where it begins to scroll.
void CDlgMessage::fitText()
{
    const QSize room = (parentWidget() ? parentWidget()->screen() : screen())->availableSize();
    const QFontMetrics metrics(m_text->font());
    const int longest = std::min(longestLine * metrics.averageCharWidth(), room.width() * 3 / 4);
    const int natural = metrics.boundingRect(QRect(0, 0, longest, 0), Qt::TextWordWrap, text()).width() + metrics.averageCharWidth() * spareCharacters;
    const int width = std::clamp(natural, std::min(shortestLine * metrics.averageCharWidth(), longest), longest);
    const int height = m_text->heightForWidth(width);
    const int most = room.height() / 2;
    const bool scrolls = height > most;
    m_scroll->setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::NoFocus);
    m_scroll->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    const int bar = scrolls ? m_scroll->verticalScrollBar()->sizeHint().width() : 0;
    // Only this counts, not the shape that a label would give its text by itself.
    m_scroll->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_scroll->setMinimumSize(width + bar, std::min(height, most));
}

QString CDlgMessage::text() const
{
    return m_text->text();
}

QList<QPushButton *> CDlgMessage::buttons() const
{
    return findChildren<QPushButton *>();
}

CDlgMessage::Answer CDlgMessage::ask()
{
    exec();
    return m_answer;
}

void CDlgMessage::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(text());
        return;
    }
    QScrollBar *bar = m_scroll->verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_PageDown:
        return bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_PageUp:
        return bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    default:
        KDialog::keyPressEvent(event);
    }
}

void CDlgMessage::showEvent(QShowEvent *event)
{
    // In the font that the window has by now.
    if (!event->spontaneous())
        fitText();
    KDialog::showEvent(event);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}
