// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/AccessLine.h"

AccessLine::AccessLine(const char *command)
{
    m_line.reserve(512);
    m_line.append(command);
}

void AccessLine::append(QStringView text)
{
    m_line.append('\t');
    const QByteArray plain = text.toUtf8();
    qsizetype from = 0;
    for (qsizetype at = 0; at < plain.size(); ++at) {
        const char letter = plain.at(at);
        if (letter != '\\' && letter != '\t' && letter != '\n' && letter != '\r')
            continue;
        m_line.append(plain.constData() + from, at - from).append('\\');
        m_line.append(letter == '\t' ? 't' : letter == '\n' ? 'n'
                          : letter == '\r'                  ? 'r'
                                                            : '\\');
        from = at + 1;
    }
    m_line.append(plain.constData() + from, plain.size() - from);
}

void AccessLine::appendNumber(int number)
{
    m_line.append('\t').append(QByteArray::number(number));
}

void AccessLine::appendNothing()
{
    m_line.append("\t\\N");
}

QByteArray AccessLine::finished()
{
    m_line.append('\n');
    return std::move(m_line);
}

QStringList AccessLine::words(const QByteArray &line)
{
    QStringList words;
    for (const QByteArray &word : line.split('\t')) {
        QByteArray plain;
        for (qsizetype at = 0; at < word.size(); ++at) {
            const char letter = word.at(at);
            if (letter != '\\' || at + 1 == word.size()) {
                plain.append(letter);
                continue;
            }
            const char escaped = word.at(++at);
            if (escaped != 'N')
                plain.append(escaped == 't' ? '\t' : escaped == 'n' ? '\n'
                                 : escaped == 'r'                   ? '\r'
                                                                    : escaped);
        }
        words.append(QString::fromUtf8(plain));
    }
    return words;
}
