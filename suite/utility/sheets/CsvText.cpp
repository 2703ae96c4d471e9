// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/sheets/CsvText.h"

#include "suite/utility/sheets/SheetRows.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using Trouble = SheetError::Trouble;

// Windows-1256 from 0x80 on; the converters of this program's floor do not know it.
constexpr std::array<char16_t, 128> windowsArabic{
    0x20AC,
    0x067E,
    0x201A,
    0x0192,
    0x201E,
    0x2026,
    0x2020,
    0x2021,
    0x02C6,
    0x2030,
    0x0679,
    0x2039,
    0x0152,
    0x0686,
    0x0698,
    0x0688,
    0x06AF,
    0x2018,
    0x2019,
    0x201C,
    0x201D,
    0x2022,
    0x2013,
    0x2014,
    0x06A9,
    0x2122,
    0x0691,
    0x203A,
    0x0153,
    0x200C,
    0x200D,
    0x06BA,
    0x00A0,
    0x060C,
    0x00A2,
    0x00A3,
    0x00A4,
    0x00A5,
    0x00A6,
    0x00A7,
    0x00A8,
    0x00A9,
    0x06BE,
    0x00AB,
    0x00AC,
    0x00AD,
    0x00AE,
    0x00AF,
    0x00B0,
    0x00B1,
    0x00B2,
    0x00B3,
    0x00B4,
    0x00B5,
    0x00B6,
    0x00B7,
    0x00B8,
    0x00B9,
    0x061B,
    0x00BB,
    0x00BC,
    0x00BD,
    0x00BE,
    0x061F,
    0x06C1,
    0x0621,
    0x0622,
    0x0623,
    0x0624,
    0x0625,
    0x0626,
    0x0627,
    0x0628,
    0x0629,
    0x062A,
    0x062B,
    0x062C,
    0x062D,
    0x062E,
    0x062F,
    0x0630,
    0x0631,
    0x0632,
    0x0633,
    0x0634,
    0x0635,
    0x0636,
    0x00D7,
    0x0637,
    0x0638,
    0x0639,
    0x063A,
    0x0640,
    0x0641,
    0x0642,
    0x0643,
    0x00E0,
    0x0644,
    0x00E2,
    0x0645,
    0x0646,
    0x0647,
    0x0648,
    0x00E7,
    0x00E8,
    0x00E9,
    0x00EA,
    0x00EB,
    0x0649,
    0x064A,
    0x00EE,
    0x00EF,
    0x064B,
    0x064C,
    0x064D,
    0x064E,
    0x00F4,
    0x064F,
    0x0650,
    0x00F7,
    0x0651,
    0x00F9,
    0x0652,
    0x00FB,
    0x00FC,
    0x200E,
    0x200F,
    0x06D2,
};

QString fromWindowsArabic(const QByteArray &file)
{
    QString text;
    text.reserve(file.size());
    for (const char byte : file) {
        const auto code = static_cast<unsigned char>(byte);
        text.append(QChar(code < 0x80 ? char16_t{code} : windowsArabic[code - 0x80]));
    }
    return text;
}

// Nothing where the bytes are no text of that encoding.
std::optional<QString> decodedAs(QStringConverter::Encoding encoding, const QByteArray &file)
{
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    QString text = decoder(file);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

// Without a mark: text of few scripts has one and the same byte at every second place, mostly that of Latin letters and signs.
std::optional<QStringConverter::Encoding> wideEncoding(const QByteArray &file)
{
    const QByteArray head = file.left(4096);
    int atEven = 0;
    int atOdd = 0;
    for (qsizetype i = 0; i < head.size(); ++i) {
        if (head.at(i) == 0)
            ++(i % 2 == 0 ? atEven : atOdd);
    }
    if (atOdd > 0 && atEven == 0)
        return QStringConverter::Utf16LE;
    if (atEven > 0 && atOdd == 0)
        return QStringConverter::Utf16BE;
    return std::nullopt;
}

bool isText(QChar c)
{
    if (c == u'\t' || c == u'\n' || c == u'\r' || c == u'\f')
        return true;
    return c.category() != QChar::Other_Control && !c.isNonCharacter();
}

// One pass over the text; a cell at a time.
class Reader
{
public:
    explicit Reader(const QString &text)
        : m_text(text)
        , m_separator(CsvText::separatorOf(text))
    {
    }

    Sheet read()
    {
        while (m_at < m_text.size())
            readCell();
        return std::move(m_sheet);
    }

private:
    bool stands(QChar c) const { return m_at < m_text.size() && m_text.at(m_at) == c; }
    bool atEndOfCell() const { return m_at >= m_text.size() || stands(m_separator) || stands(u'\n') || stands(u'\r'); }

    // Quotes that do not begin the cell are part of it.
    void readCell()
    {
        QString cell;
        if (stands(u'"'))
            readQuoted(&cell);
        while (!atEndOfCell())
            cell.append(m_text.at(m_at++));
        m_rows.put(m_sheet, m_row, m_column, {cell});
        endCell();
    }

    void readQuoted(QString *cell)
    {
        const qint64 beganIn = m_row;
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (!stands(u'"')) {
                cell->append(m_text.at(m_at));
                continue;
            }
            ++m_at;
            if (!stands(u'"'))
                return;
            cell->append(u'"');
        }
        throw SheetError(Trouble::OpenQuote, static_cast<int>(beganIn) + 1);
    }

    void endCell()
    {
        if (stands(m_separator)) {
            ++m_at;
            ++m_column;
            return;
        }
        if (stands(u'\r'))
            ++m_at;
        if (stands(u'\n'))
            ++m_at;
        ++m_row;
        m_column = 0;
    }

    const QString &m_text;
    QChar m_separator;
    qsizetype m_at = 0;
    qint64 m_row = 0;
    qint64 m_column = 0;
    Sheet m_sheet;
    SheetRows m_rows;
};

}

QString CsvText::decoded(const QByteArray &file)
{
    std::optional<QString> text;
    if (file.startsWith("\xFF\xFE"))
        text = decodedAs(QStringConverter::Utf16LE, file.mid(2));
    else if (file.startsWith("\xFE\xFF"))
        text = decodedAs(QStringConverter::Utf16BE, file.mid(2));
    else if (const auto wide = wideEncoding(file))
        text = decodedAs(*wide, file);
    else
        text = decodedAs(QStringConverter::Utf8, file.startsWith("\xEF\xBB\xBF") ? file.mid(3) : file);
    if (!text)
        text = fromWindowsArabic(file);
    if (!std::ranges::all_of(*text, isText))
        throw SheetError(Trouble::NotText);
    return *text;
}

QChar CsvText::separatorOf(const QString &text)
{
    const std::array<QChar, 3> separators{u'\t', u';', u','};
    std::array<int, 3> counts{};
    bool quoted = false;
    for (const QChar c : text) {
        if (c == u'"')
            quoted = !quoted;
        if (quoted)
            continue;
        if (c == u'\n' && std::ranges::any_of(counts, [](int count) { return count > 0; }))
            break;
        if (const auto found = std::ranges::find(separators, c); found != separators.cend())
            ++counts[static_cast<std::size_t>(found - separators.cbegin())];
    }
    const auto most = std::ranges::max_element(counts);
    return *most == 0 ? QChar(u',') : separators[static_cast<std::size_t>(most - counts.cbegin())];
}

Sheet CsvText::read(const QByteArray &file)
{
    const QString text = decoded(file);
    return Reader(text).read();
}
