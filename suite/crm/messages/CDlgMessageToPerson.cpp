// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/CDlgMessageToPerson.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/messages/MessageFilling.h"
#include "suite/crm/messages/MessageLink.h"
#include "suite/crm/messages/MessageWords.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KProcess.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString settingSection = u"Messages"_s;
constexpr int longestNote = 500;   // as follow-ups have room for
constexpr int messageHeight = 156; // for the six lines of most messages

// A shortcut of the window whose button shows it.
void setKey(QPushButton *button, const QKeySequence &key)
{
    QObject::connect(new QShortcut(key, button->window()), &QShortcut::activated, button, &QPushButton::click);
    button->setToolTip(key.toString(QKeySequence::NativeText));
}

}

CDlgMessageToPerson::CDlgMessageToPerson(const MessageKind &kind, QList<PersonMessage> messages, QWidget *parent)
    : KDialog(parent)
    , m_kind(kind)
    , m_messages(std::move(messages))
    , m_entries(CTblMessageTexts::entries(kind.id))
    , m_states(static_cast<size_t>(m_messages.size()))
{
    setWindowTitle(u"متن پیام: %1"_s.arg(m_kind.title));
    SetSettingName(u"Messages\\Window"_s);
    build();
    connectControls();
    // What this user chose last for such a message; one that is gone leaves the office's first.
    const int last = ReadSetting(settingSection, m_kind.id, -1);
    const auto chosen = std::ranges::find_if(m_entries, [last](const CTblMessageTexts::Entry &entry) { return entry.key == last; });
    m_texts->setCurrentIndex(chosen == m_entries.cend() ? 0 : static_cast<int>(chosen - m_entries.cbegin()));
    showMessage(0);
    resize(LookSizes::scaled(700), LookSizes::scaled(440));
    m_text->setFocus();
}

CDlgMessageToPerson::~CDlgMessageToPerson() = default;

void CDlgMessageToPerson::run(const QString &kind, const QList<MessageAbout> &about, QWidget *parent)
{
    const MessageKind *known = MessageKinds::of(kind);
    if (!known || about.isEmpty())
        return;
    KErrorBoundary::guarded(parent, [&] {
        QList<PersonMessage> messages;
        {
            const KWaitCursor wait;
            messages = MessageKinds::read(*known, about);
        }
        const auto gone = std::ranges::count_if(about, [&messages](const MessageAbout &asked) {
            return std::ranges::none_of(messages, [&asked](const PersonMessage &message) { return message.of == asked; });
        });
        if (gone > 0)
            g_pDlgMessage->Show(gone == about.size() ? u"آنچه پیام درباره آن است دیگر نیست."_s : u"%1 مورد دیگر نیست و پیامی ندارد."_s.arg(gone), parent);
        if (!messages.isEmpty())
            CDlgMessageToPerson(*known, messages, parent).exec();
    });
}

void CDlgMessageToPerson::build()
{
    m_texts = new KDropDown(this);
    for (const CTblMessageTexts::Entry &entry : m_entries)
        m_texts->addItem(entry.name, entry.key);
    m_numbers = new KDropDown(this);
    m_text = new KTextArea(this);
    m_text->setMaxLength(CTblMessageTexts::longestText);
    m_text->setMinimumHeight(LookSizes::scaled(messageHeight));
    m_text->installEventFilter(this);
    m_status = new QLabel(this);
    m_status->setObjectName(u"status"_s);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setWordWrap(true);
    auto *page = new CardPage(680, this);
    page->cards()->addCard(buildHead());
    FormGrid *grid = page->addForm({}, FormGrid::Extent::Half);
    addLabelled(grid, u"متن آماده :"_s, m_texts, 2);
    addLabelled(grid, u"شماره همراه :"_s, m_numbers, 2);
    addLabelled(grid, u"پیام :"_s, m_text, 4);
    page->cards()->addCard(m_status);
    QDialogButtonBox *close = createButtons({}, u"بازگشت"_s);
    setContent(page, close);
    // What was typed is asked for also by this button.
    auto *back = close->findChild<QPushButton *>();
    disconnect(back, &QPushButton::clicked, this, &KDialog::cancel);
    connect(back, &QPushButton::clicked, this, &CDlgMessageToPerson::reject);
    buildFooter();
}

QWidget *CDlgMessageToPerson::buildHead()
{
    auto *head = new QWidget(this);
    auto *line = new QHBoxLayout(head);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(LookSizes::unit);
    m_person = new QLabel(head);
    m_person->setObjectName(u"person"_s);
    m_person->setTextFormat(Qt::PlainText);
    m_person->setWordWrap(true);
    LookFonts::apply(m_person, LookFonts::Use::Strong);
    line->addWidget(m_person, 1);
    m_previous = addButton(line, u"قبلی"_s);
    m_place = new QLabel(head);
    m_place->setObjectName(u"place"_s);
    line->addWidget(m_place);
    m_next = addButton(line, u"بعدی"_s);
    setKey(m_previous, QKeySequence(Qt::CTRL | Qt::Key_PageUp));
    setKey(m_next, QKeySequence(Qt::CTRL | Qt::Key_PageDown));
    for (QWidget *part : std::initializer_list<QWidget *>{m_previous, m_place, m_next})
        part->setVisible(m_messages.size() > 1);
    return head;
}

void CDlgMessageToPerson::buildFooter()
{
    m_copy = addButton(footer(), u"کپی"_s, u":/icons/document.svg"_s);
    m_copy->setDefault(true);
    LookMarks::setButton(m_copy, LookMarks::Button::Primary);
    setKey(m_copy, QKeySequence(QKeySequence::Copy));
    m_open = addButton(footer(), u"باز کردن در پیام‌رسان"_s, u":/icons/show.svg"_s);
    setKey(m_open, QKeySequence(Qt::CTRL | Qt::Key_M));
    m_note = addButton(footer(), u"ثبت پیگیری"_s, u":/icons/reminder.svg"_s);
    setKey(m_note, QKeySequence(Qt::Key_F4));
}

void CDlgMessageToPerson::connectControls()
{
    connect(m_previous, &QPushButton::clicked, this, &CDlgMessageToPerson::showPrevious);
    connect(m_next, &QPushButton::clicked, this, &CDlgMessageToPerson::showNext);
    connect(m_copy, &QPushButton::clicked, this, &CDlgMessageToPerson::copy);
    connect(m_open, &QPushButton::clicked, this, &CDlgMessageToPerson::openMessenger);
    connect(m_note, &QPushButton::clicked, this, &CDlgMessageToPerson::noteFollowUp);
    connect(m_texts, &QComboBox::activated, this, &CDlgMessageToPerson::textChosen);
    connect(m_numbers, &QComboBox::activated, this, [this](int number) { state().number = number; });
    connect(m_text, &QPlainTextEdit::textChanged, this, &CDlgMessageToPerson::textTyped);
}

void CDlgMessageToPerson::showMessage(int index)
{
    m_current = index;
    m_person->setText(u"%1     %2"_s.arg(message().person, message().about));
    m_place->setText(u"%1 از %2"_s.arg(index + 1).arg(m_messages.size()));
    m_numbers->clear();
    m_numbers->addItems(message().numbers);
    m_numbers->setCurrentIndex(message().numbers.isEmpty() ? -1 : state().number);
    m_numbers->setEnabled(!message().numbers.isEmpty());
    FieldNote::of(m_numbers)->showHint(message().numbers.isEmpty() ? u"شماره همراهی در دست نیست"_s : QString());
    m_status->clear();
    if (state().choice < 0)
        fill(m_texts->currentIndex());
    else
        m_texts->setCurrentIndex(state().choice);
    showText();
    updateButtons();
}

void CDlgMessageToPerson::fill(int choice)
{
    state().choice = choice;
    state().filled = MessageFilling::filled(m_entries.value(choice).text, message().values);
    state().text = state().filled;
}

void CDlgMessageToPerson::showText()
{
    m_showing = true;
    m_text->setText(state().text);
    m_showing = false;
    FieldNote::of(m_text)->setOwnText(MessageWords::size(state().text));
}

void CDlgMessageToPerson::textTyped()
{
    if (m_showing)
        return;
    state().text = m_text->text();
    FieldNote::of(m_text)->setOwnText(MessageWords::size(state().text));
    updateButtons();
}

void CDlgMessageToPerson::textChosen(int choice)
{
    if (choice == state().choice)
        return;
    if (state().isEdited() && g_pDlgYesNo->Ask(u"آنچه در متن نوشته‌اید کنار برود و متن دیگری پر شود؟"_s, this) != KMessageDialog::Yes) {
        m_texts->setCurrentIndex(state().choice);
        return;
    }
    fill(choice);
    WriteSetting(settingSection, m_kind.id, int(m_entries.at(choice).key));
    showText();
    updateButtons();
}

void CDlgMessageToPerson::updateButtons()
{
    const bool hasText = !state().text.trimmed().isEmpty() && m_text->isEntryValid();
    m_copy->setEnabled(hasText);
    m_open->setEnabled(hasText && !message().numbers.isEmpty());
    m_note->setVisible(static_cast<bool>(message().note));
    m_note->setEnabled(state().isTaken && state().noted != Noted::Yes);
    m_previous->setEnabled(m_current > 0);
    m_next->setEnabled(m_current + 1 < m_messages.size());
}

QString CDlgMessageToPerson::statusText() const
{
    return m_status->text();
}

void CDlgMessageToPerson::taken(const QString &said)
{
    state().isTaken = true;
    updateButtons();
    const bool offersNote = m_note->isVisibleTo(this) && m_note->isEnabled();
    m_status->setText(said + (offersNote ? u" پس از فرستادن، «ثبت پیگیری» (F4) آن را در سابقه می‌نویسد."_s : QString()));
}

void CDlgMessageToPerson::copy()
{
    if (!m_copy->isEnabled())
        return;
    QGuiApplication::clipboard()->setText(state().text);
    taken(u"پیام کپی شد."_s);
}

void CDlgMessageToPerson::openMessenger()
{
    if (!m_open->isEnabled())
        return;
    bool isOpened = false;
    {
        const KWaitCursor wait;
        isOpened = KProcess::openLink(MessageLink::sms(m_numbers->currentText(), state().text));
    }
    if (isOpened)
        taken(u"پیام به پیام‌رسان داده شد؛ فرستادن با شما است."_s);
    else
        g_pDlgWarning->Show(u"روی این رایانه برنامه‌ای برای پیامک نیست. پیام را کپی نمایید و در پیام‌رسان خود بچسبانید."_s, this);
}

// The second press finds it written, or the first one on its way.
void CDlgMessageToPerson::noteFollowUp()
{
    if (m_noting || !m_note->isVisibleTo(this) || !m_note->isEnabled())
        return;
    m_noting = true;
    const QString said = u"پیام «%1»: %2"_s.arg(m_kind.title, state().text.simplified()).left(longestNote);
    KErrorBoundary::guarded(this, [&] {
        try {
            const KWaitCursor wait;
            message().note(said);
            state().noted = Noted::Yes;
        } catch (const CMySQLException &error) {
            const bool wasSaved = error.category() == CMySQLException::Category::SavedAfterAll && state().noted == Noted::Unknown;
            if (error.category() == CMySQLException::Category::OutcomeUnknown)
                state().noted = Noted::Unknown;
            if (!wasSaved)
                throw;
            state().noted = Noted::Yes;
        } catch (const KAccountingError &error) {
            g_pDlgWarning->Show(error.userMessage(), this);
        }
    });
    m_noting = false;
    if (state().noted == Noted::Yes)
        m_status->setText(u"پیگیری در سابقه نوشته شد."_s);
    updateButtons();
}

void CDlgMessageToPerson::showNext()
{
    if (m_current + 1 < m_messages.size())
        showMessage(m_current + 1);
}

void CDlgMessageToPerson::showPrevious()
{
    if (m_current > 0)
        showMessage(m_current - 1);
}

// Ctrl+C is the text's own as long as a part of it is marked.
bool CDlgMessageToPerson::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_text && event->type() == QEvent::ShortcutOverride && !m_text->textCursor().hasSelection()
        && static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy)) {
        event->ignore();
        return true;
    }
    return KDialog::eventFilter(watched, event);
}

void CDlgMessageToPerson::reject()
{
    const bool isLost = std::ranges::any_of(m_states, [](const State &one) { return one.isEdited() && !one.isTaken; });
    if (!isLost || g_pDlgYesNo->Ask(u"متنی که تغییر داده‌اید کپی نشده است. پنجره بسته شود؟"_s, this) == KMessageDialog::Yes)
        KDialog::reject();
}
