// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/UndoOffer.h"

#include "suite/db/connection/KConnection.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

constexpr int offeredMilliseconds = 20 * 1000;
constexpr int lookMilliseconds = 500;

}

UndoOffer::UndoOffer(QWidget *parent)
    : QWidget(parent)
    , m_sentence(new ElidedLabel(this))
    , m_button(new QPushButton(LookIcons::icon(u":/icons/refresh.svg"_s), u"بازگردانی"_s, this))
    , m_key(new QShortcut(QKeySequence::Undo, this))
{
    LookFonts::apply(m_sentence, LookFonts::Use::Label);
    LookFonts::apply(m_button, LookFonts::Use::Label);
    LookMarks::setButton(m_button, LookMarks::Button::Flat);
    m_button->setAccessibleName(u"بازگردانی آخرین حذف"_s);
    m_button->setToolTip(u"بازگردانی آخرین حذف (%1)"_s.arg(QKeySequence(QKeySequence::Undo).toString(QKeySequence::NativeText)));
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins({});
    line->setSpacing(LookSizes::unit);
    line->addWidget(m_sentence, 1);
    line->addWidget(m_button);
    m_over.setSingleShot(true);
    m_over.setInterval(offeredMilliseconds);
    m_looking.setInterval(lookMilliseconds);
    connect(&m_over, &QTimer::timeout, this, &UndoOffer::withdraw);
    connect(&m_looking, &QTimer::timeout, this, &UndoOffer::look);
    connect(m_button, &QPushButton::clicked, this, &UndoOffer::choose);
    connect(m_key, &QShortcut::activated, this, &UndoOffer::choose);
    withdraw();
}

QSize UndoOffer::sizeHint() const
{
    return {m_sentence->sizeHint().width() + m_button->sizeHint().width() + LookSizes::unit, m_button->sizeHint().height()};
}

void UndoOffer::offer(const Bin::Entry &entry)
{
    m_entry = entry;
    m_changes = KConnection::changesOfThread();
    m_sentence->setText(u"%1 حذف شد."_s.arg(entry.name()));
    m_key->setEnabled(true);
    m_over.start();
    m_looking.start();
    updateGeometry();
    show();
}

void UndoOffer::withdraw()
{
    m_entry = {};
    m_key->setEnabled(false);
    m_over.stop();
    m_looking.stop();
    hide();
}

void UndoOffer::choose()
{
    const Bin::Entry entry = m_entry;
    withdraw();
    if (entry.id != 0)
        Q_EMIT chosen(entry);
}

void UndoOffer::look()
{
    // It does not vanish from under the hand that is on it.
    if (KConnection::changesOfThread() != m_changes && !m_button->hasFocus())
        withdraw();
}
