// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/letters/LetterSheet.h"

#include "suite/utility/values/ShamsiDate.h"

#include <QStringList>

using namespace Qt::StringLiterals;

PaperSheet LetterSheet::of(const Letter &letter, const LetterRecipient &recipient, const QString &office)
{
    const QString subject = Letter::forPaper(letter.subject).simplified();
    QStringList opening{Letter::forPaper(Letter::salutation(recipient)).simplified()};
    if (!subject.isEmpty())
        opening.append(u"موضوع : "_s + subject);
    const QString sign = u"مهر و امضا"_s;
    PaperSheet sheet;
    sheet.kind = u"LetterPaper"_s;
    sheet.title = u"نامه"_s;
    sheet.isLetter = true;
    sheet.fileName = QStringList{u"نامه"_s, letter.number, subject}.join(u' ').simplified();
    sheet.marks = {{.label = u"تاریخ :"_s, .text = shamsiText(letter.date)}, {.label = u"شماره :"_s, .text = Letter::forPaper(letter.number).simplified()}};
    sheet.opening = opening.join(u'\n');
    sheet.body = Letter::forPaper(letter.body) + u"\n\nبا احترام"_s;
    sheet.signatures = {{office.isEmpty() ? sign : office, office.isEmpty() ? QString() : sign}};
    return sheet;
}
