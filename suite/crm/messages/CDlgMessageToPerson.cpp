// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/CDlgMessageToPerson.h"

#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/messages/MessageLink.h"
#include "suite/crm/messages/MessageWords.h"
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
    , m_drafts(kind, std::move(messages))
{
    setWindowTitle(u"متن پیام: %1"_s.arg(kind.title));
    SetSettingName(u"Messages\\Window"_s);
    build();
    connectControls();
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
    for (const CTblMessageTexts::Entry &entry : m_drafts.entries())
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
        part->setVisible(m_drafts.count() > 1);
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
    connect(m_numbers, &QComboBox::activated, this, [this](int number) { m_drafts.setNumber(number); });
    connect(m_text, &QPlainTextEdit::textChanged, this, &CDlgMessageToPerson::textTyped);
}

void CDlgMessageToPerson::showMessage(int index)
{
    m_drafts.go(index);
    const PersonMessage &message = m_drafts.message();
    m_person->setText(u"%1     %2"_s.arg(message.person, message.about));
    m_place->setText(u"%1 از %2"_s.arg(index + 1).arg(m_drafts.count()));
    m_numbers->clear();
    m_numbers->addItems(message.numbers);
    m_numbers->setCurrentIndex(message.numbers.isEmpty() ? -1 : m_drafts.number());
    m_numbers->setEnabled(!message.numbers.isEmpty());
    FieldNote::of(m_numbers)->showHint(message.numbers.isEmpty() ? u"شماره همراهی در دست نیست"_s : QString());
    m_status->clear();
    m_texts->setCurrentIndex(m_drafts.choice());
    showText();
    updateButtons();
}

void CDlgMessageToPerson::showText()
{
    m_showing = true;
    m_text->setText(m_drafts.text());
    m_showing = false;
    FieldNote::of(m_text)->setOwnText(MessageWords::size(m_drafts.text()));
}

void CDlgMessageToPerson::textTyped()
{
    if (m_showing)
        return;
    m_drafts.setText(m_text->text());
    FieldNote::of(m_text)->setOwnText(MessageWords::size(m_drafts.text()));
    updateButtons();
}

void CDlgMessageToPerson::textChosen(int choice)
{
    if (choice == m_drafts.choice())
        return;
    if (m_drafts.isEdited() && g_pDlgYesNo->Ask(u"آنچه در متن نوشته‌اید کنار برود و متن دیگری پر شود؟"_s, this) != KMessageDialog::Yes) {
        m_texts->setCurrentIndex(m_drafts.choice());
        return;
    }
    m_drafts.choose(choice);
    showText();
    updateButtons();
}

void CDlgMessageToPerson::updateButtons()
{
    const bool hasText = !m_drafts.text().trimmed().isEmpty() && m_text->isEntryValid();
    m_copy->setEnabled(hasText);
    m_open->setEnabled(hasText && !m_drafts.message().numbers.isEmpty());
    m_note->setVisible(m_drafts.isNoteOffered());
    m_note->setEnabled(m_drafts.mayNote());
    m_previous->setEnabled(m_drafts.current() > 0);
    m_next->setEnabled(m_drafts.current() + 1 < m_drafts.count());
}

QString CDlgMessageToPerson::statusText() const
{
    return m_status->text();
}

void CDlgMessageToPerson::taken(const QString &said)
{
    m_drafts.markTaken();
    updateButtons();
    m_status->setText(said + (m_drafts.mayNote() ? u" پس از فرستادن، «ثبت پیگیری» (F4) آن را در سابقه می‌نویسد."_s : QString()));
}

void CDlgMessageToPerson::copy()
{
    if (!m_copy->isEnabled())
        return;
    QGuiApplication::clipboard()->setText(m_drafts.text());
    taken(u"پیام کپی شد."_s);
}

void CDlgMessageToPerson::openMessenger()
{
    if (!m_open->isEnabled())
        return;
    bool isOpened = false;
    {
        const KWaitCursor wait;
        isOpened = KProcess::openLink(MessageLink::sms(m_numbers->currentText(), m_drafts.text()));
    }
    if (isOpened)
        taken(u"پیام به پیام‌رسان داده شد؛ فرستادن با شما است."_s);
    else
        g_pDlgWarning->Show(u"روی این رایانه برنامه‌ای برای پیامک نیست. پیام را کپی نمایید و در پیام‌رسان خود بچسبانید."_s, this);
}

void CDlgMessageToPerson::noteFollowUp()
{
    if (!m_drafts.mayNote())
        return;
    KErrorBoundary::guarded(this, [this] {
        const KWaitCursor wait;
        m_drafts.writeNote();
    });
    if (m_drafts.isNoted())
        m_status->setText(u"پیگیری در سابقه نوشته شد."_s);
    updateButtons();
}

void CDlgMessageToPerson::showNext()
{
    if (m_drafts.current() + 1 < m_drafts.count())
        showMessage(m_drafts.current() + 1);
}

void CDlgMessageToPerson::showPrevious()
{
    if (m_drafts.current() > 0)
        showMessage(m_drafts.current() - 1);
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
    if (!m_drafts.isAnyLost() || g_pDlgYesNo->Ask(u"متنی که تغییر داده‌اید کپی نشده است. پنجره بسته شود؟"_s, this) == KMessageDialog::Yes)
        KDialog::reject();
}
