// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/FieldInstruction.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace {

struct Word
{
    QString text;
    bool isSwitch = false; // one letter or sign behind a backslash
};

bool isQuote(QChar c)
{
    return c == u'"' || c == u'“' || c == u'”' || c == u'„';
}

// Reads a quoted text from behind its opening quote and moves behind the closing one; a missing one ends with the text.
QString readQuoted(const QString &from, qsizetype &at)
{
    QString text;
    for (; at < from.size() && !isQuote(from.at(at)); ++at) {
        if (from.at(at) == u'\\' && at + 1 < from.size())
            ++at;
        text += from.at(at);
    }
    ++at;
    return text;
}

QString readPlain(const QString &from, qsizetype &at)
{
    QString text;
    for (; at < from.size() && !from.at(at).isSpace() && from.at(at) != u'\\' && !isQuote(from.at(at)); ++at)
        text += from.at(at);
    return text;
}

QList<Word> wordsOf(const QString &instruction)
{
    QList<Word> words;
    for (qsizetype at = 0; at < instruction.size();) {
        const QChar c = instruction.at(at);
        if (c.isSpace()) {
            ++at;
        } else if (c == u'\\') {
            words.append({instruction.mid(at + 1, 1).toLower(), true});
            at += 2;
        } else if (isQuote(c)) {
            words.append({readQuoted(instruction, ++at)});
        } else {
            words.append({readPlain(instruction, at)});
        }
    }
    return words;
}

QString withUpperStarts(QString text, bool everyWord)
{
    bool start = true;
    for (QChar &c : text) {
        if (start && c.isLetter())
            c = c.toUpper();
        start = everyWord ? c.isSpace() : start && !c.isLetter();
    }
    return text;
}

} // namespace

FieldInstruction FieldInstruction::parse(const QString &instruction)
{
    const QList<Word> words = wordsOf(instruction);
    FieldInstruction parsed;
    if (words.size() < 2 || words.first().isSwitch || words.first().text.compare(u"MERGEFIELD"_s, Qt::CaseInsensitive) != 0
        || words.at(1).isSwitch)
        return parsed;
    parsed.name = words.at(1).text.trimmed();
    for (int i = 2; i + 1 < words.size(); ++i) {
        if (!words.at(i).isSwitch || words.at(i + 1).isSwitch)
            continue;
        const QString name = words.at(i).text;
        const QString argument = words.at(i + 1).text;
        const QString format = name == u"*"_s ? argument.toLower() : QString();
        if (name == u"b"_s)
            parsed.before = argument;
        else if (name == u"f"_s)
            parsed.after = argument;
        else if (format == u"upper"_s)
            parsed.letterCase = LetterCase::Upper;
        else if (format == u"lower"_s)
            parsed.letterCase = LetterCase::Lower;
        else if (format == u"firstcap"_s)
            parsed.letterCase = LetterCase::FirstLetter;
        else if (format == u"caps"_s)
            parsed.letterCase = LetterCase::EveryWord;
        else if (format == u"charformat"_s)
            parsed.lookOfInstruction = true;
    }
    return parsed;
}

QString FieldInstruction::shaped(const QString &value) const
{
    if (value.trimmed().isEmpty())
        return value;
    QString text = value;
    switch (letterCase) {
    case LetterCase::AsGiven: break;
    case LetterCase::Upper: text = value.toUpper(); break;
    case LetterCase::Lower: text = value.toLower(); break;
    case LetterCase::FirstLetter: text = withUpperStarts(value, false); break;
    case LetterCase::EveryWord: text = withUpperStarts(value, true); break;
    }
    return before + text + after;
}
