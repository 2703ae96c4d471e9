// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/MessageFilling.h"

#include "suite/utility/values/TextStandard.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QRegularExpression &braces()
{
    static const QRegularExpression expression(u"\\{([^{}\\n]*)\\}"_s);
    return expression;
}

const QRegularExpression &brackets()
{
    static const QRegularExpression expression(u"\\[([^\\[\\]\\n]*)\\]"_s);
    return expression;
}

// A mark that turns the direction would turn the rest of the message along with the value.
bool turnsDirection(QChar c)
{
    return c == u'\u200e' || c == u'\u200f' || c == u'\u061c' || (c >= u'\u202a' && c <= u'\u202e') || (c >= u'\u2066' && c <= u'\u2069');
}

QString cleaned(QString value)
{
    value.removeIf(&turnsDirection);
    for (QChar &c : value) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = u' ';
    }
    return value.simplified();
}

class Values
{
public:
    explicit Values(const QHash<QString, QString> &values)
    {
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            m_values.insert(searchKey(value.key()), cleaned(value.value()));
    }

    bool hold(const QString &field) const { return m_values.contains(searchKey(field)); }
    bool areEmptyFor(const QString &field) const { return m_values.value(searchKey(field)).isEmpty(); }

    // One pass, so that braces in a value are no field.
    QString put(const QString &text) const
    {
        QString result;
        qsizetype end = 0;
        for (auto field = braces().globalMatch(text); field.hasNext();) {
            const QRegularExpressionMatch match = field.next();
            result += QStringView(text).mid(end, match.capturedStart() - end);
            result += hold(match.captured(1)) ? m_values.value(searchKey(match.captured(1))) : match.captured();
            end = match.capturedEnd();
        }
        return result.append(QStringView(text).mid(end));
    }

    // Brackets around fields: gone with an empty one, else only the signs themselves.
    QString withoutBrackets(const QString &line) const
    {
        QString result;
        qsizetype end = 0;
        for (auto part = brackets().globalMatch(line); part.hasNext();) {
            const QRegularExpressionMatch match = part.next();
            result += QStringView(line).mid(end, match.capturedStart() - end);
            end = match.capturedEnd();
            QStringList fields = fieldsIn(match.captured(1));
            if (fields.isEmpty())
                result += match.captured();
            else if (std::ranges::none_of(fields, [this](const QString &field) { return areEmptyFor(field); }))
                result += match.captured(1);
        }
        return result.append(QStringView(line).mid(end));
    }

private:
    QStringList fieldsIn(const QString &text) const
    {
        QStringList fields;
        for (auto field = braces().globalMatch(text); field.hasNext();) {
            const QString name = field.next().captured(1);
            if (hold(name))
                fields.append(name);
        }
        return fields;
    }

    QHash<QString, QString> m_values; // by searchKey
};

bool isPersian(QChar c)
{
    return c.script() == QChar::Script_Arabic && c.isLetter();
}

bool isLatin(QChar c)
{
    return c.script() == QChar::Script_Latin;
}

}

QList<MessageFilling::Wrong> MessageFilling::wrong(const QString &text, const QStringList &fields)
{
    QStringList known;
    for (const QString &field : fields)
        known.append(searchKey(field));
    QList<Wrong> found;
    const auto add = [&](qsizetype at, qsizetype length) {
        found.append({at, length, text.mid(at, length), int(text.left(at).count(u'\n')) + 1});
    };
    const auto addLoneBraces = [&](qsizetype from, qsizetype end) {
        for (qsizetype at = from; at < end; ++at) {
            if (text.at(at) == u'{' || text.at(at) == u'}')
                add(at, 1);
        }
    };
    qsizetype end = 0;
    for (auto field = braces().globalMatch(text); field.hasNext();) {
        const QRegularExpressionMatch match = field.next();
        addLoneBraces(end, match.capturedStart());
        if (!known.contains(searchKey(match.captured(1))))
            add(match.capturedStart(), match.capturedLength());
        end = match.capturedEnd();
    }
    addLoneBraces(end, text.size());
    return found;
}

QString MessageFilling::filled(const QString &text, const QHash<QString, QString> &values)
{
    static const QRegularExpression blanks(u"[ \\t]{2,}"_s);
    const Values known(values);
    QStringList lines;
    for (const QString &line : text.split(u'\n')) {
        QString made = known.put(known.withoutBrackets(line));
        made = made.replace(blanks, u" "_s).trimmed();
        // A line of what has no value is no line; one that was left empty stays so.
        if (!made.isEmpty() || line.trimmed().isEmpty())
            lines.append(made);
    }
    return withPersianDigits(lines.join(u'\n').trimmed());
}

QString MessageFilling::withPersianDigits(const QString &text)
{
    if (std::ranges::none_of(text, &isPersian))
        return text;
    QString result = text;
    for (qsizetype start = 0; start < result.size();) {
        qsizetype end = start;
        while (end < result.size() && !result.at(end).isSpace())
            ++end;
        const QStringView word = QStringView(result).mid(start, end - start);
        if (std::none_of(word.cbegin(), word.cend(), &isLatin)) {
            for (qsizetype at = start; at < end; ++at) {
                if (result.at(at) >= u'0' && result.at(at) <= u'9')
                    result[at] = QChar(u'۰' + result.at(at).unicode() - u'0');
            }
        }
        start = end + 1;
    }
    return result;
}
