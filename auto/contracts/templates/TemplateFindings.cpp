// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/templates/TemplateFindings.h"

#include "auto/contracts/printing/TemplateCheck.h"

using namespace Qt::StringLiterals;

QString TemplateFindings::inWords(const QByteArray &file, int contractType)
{
    const TemplateCheck check = TemplateCheck::of(file, contractType);
    if (!check.isUsable())
        return u"این قالب یک سند ورد (docx) سالم و بی‌خطر نیست و از آن چاپ نمی‌شود."_s;
    const std::pair<QString, const QStringList &> kinds[] = {
        {u"این فیلدها شناخته نیستند و همان‌طور که هستند چاپ می‌شوند:"_s, check.unknown},
        {u"این فیلدها در این نوع قرارداد پنهان‌اند و جایشان خالی می‌ماند:"_s, check.hidden},
        {u"این نشان‌ها بی‌جفت‌اند و چیزی را کنار نمی‌گذارند:"_s, check.unpaired},
        {u"این فیلدها در قالب نیستند و آنچه در آنها نوشته شود چاپ نمی‌شود:"_s, check.missing},
    };
    QStringList sentences;
    for (const auto &[sentence, fields] : kinds) {
        if (!fields.isEmpty())
            sentences.append(sentence + u'\n' + fields.join(u"، "_s));
    }
    return sentences.isEmpty() ? u"در این قالب ایرادی پیدا نشد."_s : sentences.join(u"\n\n"_s);
}
