// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/letters/CDlgLetter.h"

#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/accounting/papers/Letterhead.h"
#include "suite/crm/letters/CDlgEarlierLetters.h"
#include "suite/crm/letters/LetterFiling.h"
#include "suite/crm/letters/LetterSheet.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/FormGrid.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString personsForm = u"Persons"_s;
constexpr int letterPageWidth = 760;

QList<qint32> keysOf(const QList<LetterRecipient> &recipients)
{
    QList<qint32> keys;
    for (const LetterRecipient &recipient : recipients)
        keys.append(recipient.id);
    return keys;
}

}

CDlgLetter::CDlgLetter(const QList<qint32> &persons, Read read, QWidget *parent)
    : KDialog(parent)
    , m_read(std::move(read))
    , m_recipients(m_read(persons))
    , m_to(new QLabel)
    , m_date(new KDateEdit)
    , m_number(new KEdit)
    , m_subject(new KEdit)
    , m_body(new KTextArea)
{
    setWindowTitle(u"نامه"_s);
    SetSettingName(u"Letter"_s);
    build();
    const QDate today = GetDBSetting()->GetDBServerDate().date();
    m_date->setDate(today);
    m_number->setText(LetterFiling::proposedNumber(today));
    showRecipients();
    m_subject->setFocus();
}

CDlgLetter::~CDlgLetter() = default;

void CDlgLetter::write(const QList<qint32> &persons, const Read &read, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(personsForm);
    if (!security.CheckReadSecurity() || !security.CheckPrintListSecurity())
        return;
    CDlgLetter dialog(persons, read, parent);
    if (dialog.m_recipients.isEmpty())
        g_pDlgWarning->Show(u"این شخص دیگر وجود ندارد."_s, parent);
    else
        dialog.exec();
}

void CDlgLetter::build()
{
    m_to->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_to->setTextFormat(Qt::PlainText);
    m_to->setWordWrap(true);
    m_number->setMaxLength(Letter::longestNumber);
    m_subject->setMaxLength(Letter::longestSubject);
    m_body->setMaxLength(Letter::longestBody);
    m_body->setMinimumHeight(m_body->fontMetrics().lineSpacing() * 9);
    auto *page = new CardPage(letterPageWidth, this);
    FormGrid *grid = page->addForm();
    addLabelled(grid, u"گیرنده :"_s, m_to, 4);
    addLabelled(grid, u"تاریخ :"_s, m_date);
    addLabelled(grid, u"شماره :"_s, m_number);
    grid->startRow();
    addLabelled(grid, u"موضوع :"_s, m_subject, 4);
    addLabelled(grid, u"متن :"_s, m_body, 4);
    setContent(page, createButtons(u"پیش نمایش و چاپ"_s, u"بازگشت"_s));
    QPushButton *earlier = addButton(footer(), u"از نامه قبلی"_s, u":/icons/history.svg"_s);
    earlier->setAutoDefault(false);
    connect(earlier, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { chooseEarlier(); }); });
}

void CDlgLetter::showRecipients()
{
    m_to->setText(Letter::addressees(m_recipients));
}

Letter CDlgLetter::letter() const
{
    return {m_date->date(), m_number->text().trimmed(), m_subject->text().trimmed(), m_body->text()};
}

void CDlgLetter::chooseEarlier()
{
    if (const std::optional<Letter> chosen = CDlgEarlierLetters::choose(this))
        takeWords(*chosen);
}

void CDlgLetter::takeWords(const Letter &other)
{
    const bool isTyped = !m_body->text().trimmed().isEmpty() && m_body->text() != other.body;
    if (isTyped && g_pDlgYesNo->Ask(u"متن نامه قبلی جای متن این نامه را بگیرد؟"_s, this) != KMessageDialog::Yes)
        return;
    m_subject->setText(other.subject);
    m_body->setText(other.body);
    m_body->setFocus();
}

bool CDlgLetter::refuse(const QString &why, QWidget *field)
{
    g_pDlgWarning->Show(why, this);
    field->setFocus();
    return false;
}

bool CDlgLetter::isEntryGood()
{
    if (!m_date->isEntryValid())
        return refuse(m_date->entryError(), m_date);
    if (!m_date->date().isValid())
        return refuse(u"لطفا تاریخ نامه را وارد نمایید."_s, m_date);
    for (KEdit *edit : {m_number, m_subject}) {
        if (!edit->isEntryValid())
            return refuse(edit->entryError(), edit);
    }
    if (!m_body->isEntryValid())
        return refuse(m_body->entryError(), m_body);
    if (Letter::forPaper(m_body->text()).isEmpty())
        return refuse(u"لطفا متن نامه را وارد نمایید."_s, m_body);
    return true;
}

bool CDlgLetter::readRecipients()
{
    const QList<LetterRecipient> now = m_read(keysOf(m_recipients));
    if (now.isEmpty()) {
        g_pDlgWarning->Show(m_recipients.size() == 1 ? u"این شخص در این میان حذف شده است. متن نامه در پنجره می‌ماند."_s : u"این اشخاص در این میان حذف شده‌اند. متن نامه در پنجره می‌ماند."_s, this);
        return false;
    }
    QStringList gone, inactive;
    for (const LetterRecipient &before : std::as_const(m_recipients)) {
        const auto found = std::find_if(now.begin(), now.end(), [&](const LetterRecipient &one) { return one.id == before.id; });
        if (found == now.end())
            gone.append(before.name);
        else if (before.isActive && !found->isActive)
            inactive.append(found->name);
    }
    QStringList told;
    if (!gone.isEmpty())
        told.append(u"حذف شده‌اند و نامه ندارند: %1"_s.arg(gone.join(u"، "_s)));
    if (!inactive.isEmpty())
        told.append(u"غیر فعال شده‌اند: %1"_s.arg(inactive.join(u"، "_s)));
    if (!told.isEmpty() && g_pDlgYesNo->Ask(u"در این میان %1.\nنامه ساخته شود؟"_s.arg(told.join(u"؛ "_s)), this) != KMessageDialog::Yes)
        return false;
    m_recipients = now;
    showRecipients();
    return true;
}

bool CDlgLetter::OnOK()
{
    if (!isEntryGood() || !readRecipients())
        return false;
    QList<PaperSheet> sheets;
    const Letter words = letter();
    {
        const KWaitCursor wait;
        const QString office = Letterhead::read().name;
        for (const LetterRecipient &recipient : std::as_const(m_recipients))
            sheets.append(LetterSheet::of(words, recipient, office));
    }
    CDlgPaper paper(sheets, this);
    offerFiling(paper);
    paper.exec();
    if (paper.isHandedOut())
        typedWorkSaved();
    return false;
}

void CDlgLetter::offerFiling(CDlgPaper &paper)
{
    if (!KSecurity::IsGranted(personsForm, KSecurity::Modify))
        return;
    const Letter words = letter();
    // The same words that are looked at again are the same letter.
    if (m_mark.isEmpty() || !(m_filedWords == words))
        m_mark = LetterFiling::newMark();
    m_filedWords = words;
    paper.offerFiling([words, mark = m_mark, recipients = m_recipients](qsizetype sheet, const QByteArray &pdf) { LetterFiling::file(recipients.at(sheet), words, mark, pdf); },
                      u"%1 نامه با پرونده‌های شخص بایگانی شد."_s);
}
