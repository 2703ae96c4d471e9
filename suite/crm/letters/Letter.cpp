// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/letters/Letter.h"

#include "suite/utility/values/TextStandard.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QString letterPaper = u"letter"_s;

// Embeddings, overrides and isolates: what is not closed would turn all lines behind it.
bool turnsTheRest(QChar c)
{
    return (c >= QChar(0x202a) && c <= QChar(0x202e)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
}

bool isSeparator(QChar c)
{
    return c == QChar::LineSeparator || c == QChar::ParagraphSeparator || c == u'\v' || c == u'\f';
}

}

QString Letter::salutation(const LetterRecipient &recipient)
{
    switch (recipient.address) {
    case LetterRecipient::Address::Man:
        return u"جناب آقای %1"_s.arg(recipient.name);
    case LetterRecipient::Address::Woman:
        return u"سرکار خانم %1"_s.arg(recipient.name);
    case LetterRecipient::Address::Company:
        break;
    }
    return recipient.name;
}

QString Letter::addressees(const QList<LetterRecipient> &recipients)
{
    constexpr qsizetype most = 3;
    QStringList names;
    for (const LetterRecipient &recipient : recipients.mid(0, most))
        names.append(salutation(recipient));
    const QString all = names.join(u"، "_s);
    return recipients.size() > most ? u"%1 و %2 گیرنده دیگر"_s.arg(all, QString::number(recipients.size() - most)) : all;
}

QString Letter::numberAfter(const QString &before, int year)
{
    static const QRegularExpression last(u"^(.*?)(\\d{1,15})(\\D*)$"_s);
    static const QRegularExpression inYear(u"^(1[34]\\d\\d)(\\D.*)$"_s);
    const QString text = toAsciiDigits(before).trimmed();
    const QRegularExpressionMatch figures = last.match(text);
    if (!figures.hasMatch())
        return u"%1/1"_s.arg(year);
    const QString front = figures.captured(1);
    const QRegularExpressionMatch ofYear = inYear.match(front);
    if (ofYear.hasMatch() && ofYear.captured(1).toInt() < year)
        return QString::number(year) + ofYear.captured(2) + u'1' + figures.captured(3);
    const QString digits = figures.captured(2);
    return front + QString::number(digits.toLongLong() + 1).rightJustified(digits.size(), u'0') + figures.captured(3);
}

QString Letter::forPaper(const QString &text)
{
    QString paper;
    for (const QChar c : text) {
        if (isSeparator(c))
            paper += u'\n';
        else if (c == u'\t')
            paper += u"    "_s;
        else if (!turnsTheRest(c) && (c == u'\n' || c.category() != QChar::Other_Control))
            paper += c;
    }
    while (!paper.isEmpty() && paper.back().isSpace())
        paper.chop(1);
    return paper;
}

QByteArray Letter::toJson(const QString &salutation, const QString &mark) const
{
    return QJsonDocument(QJsonObject{{u"paper"_s, letterPaper},
                                     {u"date"_s, date.toString(Qt::ISODate)},
                                     {u"number"_s, number},
                                     {u"subject"_s, subject},
                                     {u"body"_s, body},
                                     {u"salutation"_s, salutation},
                                     {u"mark"_s, mark}})
        .toJson(QJsonDocument::Compact);
}

Letter Letter::fromJson(const QByteArray &json)
{
    const QJsonObject values = QJsonDocument::fromJson(json).object();
    if (values.value("paper"_L1).toString() != letterPaper)
        return {};
    return {QDate::fromString(values.value("date"_L1).toString(), Qt::ISODate), values.value("number"_L1).toString(), values.value("subject"_L1).toString(), values.value("body"_L1).toString()};
}
