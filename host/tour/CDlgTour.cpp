// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/tour/CDlgTour.h"

#include "suite/utility/frame/KCommandButton.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CDlgTour::CDlgTour(QWidget *parent)
    : KDialog(parent)
    , m_number(new QLabel)
    , m_title(new QLabel)
    , m_text(new QLabel)
    , m_previous(new KCommandButton({}, u"قبلی"_s, this))
    , m_manual(new KCommandButton(LookIcons::icon(u":/icons/help.svg"_s), u"در راهنما"_s, this))
{
    setWindowTitle(u"گشت در برنامه"_s);
    setModal(false);
    build();
}

void CDlgTour::build()
{
    LookFonts::applyHint(m_number);
    LookFonts::apply(m_title, LookFonts::Use::Title);
    m_text->setWordWrap(true);
    m_text->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::unit);
    for (QLabel *label : {m_number, m_title, m_text})
        column->addWidget(label, label == m_text ? 1 : 0);

    QDialogButtonBox *buttons = createButtons(u"بعدی"_s, u"پایان"_s);
    for (QAbstractButton *button : buttons->buttons())
        (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole ? m_next : m_end) = qobject_cast<QPushButton *>(button);
    setContent(content, buttons, Content::Fills);
    for (KCommandButton *button : {m_previous, m_manual}) {
        button->setAutoDefault(false);
        LookMarks::setTall(button);
        footer()->addWidget(button);
    }
    m_previous->setShortcutTip(QKeySequence(Qt::ALT | Qt::Key_Right));
    m_previous->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
    connect(m_previous, &QPushButton::clicked, this, &CDlgTour::previous);
    connect(m_manual, &QPushButton::clicked, this, &CDlgTour::manualWanted);
    // Room for the longest of them, so that the buttons stay under the hand.
    constexpr int letters = 62;
    constexpr int lines = 11;
    setFixedSize(fontMetrics().averageCharWidth() * letters, fontMetrics().lineSpacing() * lines);
}

void CDlgTour::showStep(const TourStep &step, int number, int count)
{
    m_number->setText(u"گام %1 از %2"_s.arg(number).arg(count));
    m_title->setText(step.title);
    m_text->setText(step.text);
    m_previous->setEnabled(number > 1);
    const bool isLast = number == count;
    m_next->setEnabled(!isLast);
    (isLast ? m_end : m_next)->setDefault(true);
    (isLast ? m_end : m_next)->setFocus();
    tellScreenReader();
}

// The focus stays on the button, so that what is new must be told.
void CDlgTour::tellScreenReader()
{
    const QString said = m_number->text() + u"، "_s + m_title->text() + u": "_s + m_text->text();
    setAccessibleDescription(said);
    m_next->setAccessibleDescription(said);
    m_end->setAccessibleDescription(said);
    QAccessibleEvent alert(m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void CDlgTour::standBeside(const QRect &part)
{
    const QRect room = (parentWidget() ? parentWidget() : this)->screen()->availableGeometry();
    const QRect window = parentWidget() ? parentWidget()->frameGeometry() & room : room;
    const QSize size = frameGeometry().size();
    const int gap = LookSizes::scaled(LookSizes::windowMargin);
    const QPoint corner(window.left() + gap, window.bottom() - size.height() - gap);
    const int beside = qBound(room.left(), part.center().x() - size.width() / 2, qMax(room.left(), room.right() - size.width()));
    const int level = qBound(room.top(), part.center().y() - size.height() / 2, qMax(room.top(), room.bottom() - size.height()));
    const QPoint places[] = {{beside, part.bottom() + gap},
                             {beside, part.top() - gap - size.height()},
                             {part.left() - gap - size.width(), level},
                             {part.right() + gap, level}};
    for (const QPoint &place : places) {
        if (!part.isEmpty() && room.contains(QRect(place, size))) {
            move(place);
            return;
        }
    }
    move(corner);
}

bool CDlgTour::OnOK()
{
    Q_EMIT next();
    return false;
}
