// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/sheets/XlsxBook.h"

#include "suite/utility/documents/ZipEntries.h"
#include "suite/utility/sheets/SheetBounds.h"
#include "suite/utility/sheets/SheetRows.h"
#include "suite/utility/sheets/XlsxStyles.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QXmlStreamReader>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Trouble = SheetError::Trouble;

constexpr qint64 maxUnpacked = 8 * SheetFile::maxBytes;
constexpr qsizetype maxSharedTexts = 1'000'000;
constexpr int maxDepth = 100;

// Walks the elements of a part without keeping it. Nothing of a document type is ever needed, so none is taken: with it go entities
// of every kind.
class PartReader
{
public:
    explicit PartReader(const QByteArray &part)
        : m_xml(part)
    {
        m_xml.setEntityExpansionLimit(0);
    }

    QXmlStreamReader &xml() { return m_xml; }

    // On to the next beginning or end of an element, or text; false at the end of the part.
    bool next()
    {
        switch (m_xml.readNext()) {
        case QXmlStreamReader::Invalid:
            throw SheetError(Trouble::Damaged, 0, m_xml.errorString().toStdString());
        case QXmlStreamReader::EndDocument:
            return false;
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
            throw SheetError(Trouble::Damaged, 0, "a document type declaration");
        case QXmlStreamReader::StartElement:
            if (++m_depth > maxDepth)
                throw SheetError(Trouble::Damaged, 0, "elements nested too deep");
            return true;
        case QXmlStreamReader::EndElement:
            --m_depth;
            return true;
        default:
            return true;
        }
    }

    bool begins(QStringView name) const { return m_xml.isStartElement() && m_xml.name() == name; }
    bool ends(QStringView name) const { return m_xml.isEndElement() && m_xml.name() == name; }
    QString attribute(QStringView name) const
    {
        for (const QXmlStreamAttribute &attribute : m_xml.attributes()) {
            if (attribute.name() == name)
                return attribute.value().toString();
        }
        return {};
    }

    // All text below the element that has just begun, but what is below an element of the other name. Ends behind it.
    QString text(QStringView element, QStringView without = {})
    {
        QString text;
        int outside = 0;
        while (next() && !ends(element)) {
            if (!without.isEmpty() && begins(without))
                ++outside;
            else if (!without.isEmpty() && ends(without))
                --outside;
            else if (m_xml.isCharacters() && outside == 0 && text.size() <= SheetFile::longestCell)
                text.append(m_xml.text());
        }
        return text;
    }

private:
    QXmlStreamReader m_xml;
    int m_depth = 0;
};

// "AB12": the column's letters, from 0; -1 for a reference without any.
qint64 columnOf(const QString &reference)
{
    qint64 column = 0;
    for (const QChar c : reference) {
        if (c < u'A' || c > u'Z')
            break;
        column = column * 26 + (c.unicode() - u'A') + 1;
        if (column > SheetFile::maxRows) // any column beyond the bound will do
            break;
    }
    return column - 1;
}

QString plainNumber(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest).contains(u'e') ? QString::number(number, 'f', 0)
                                                                                       : QString::number(number, 'g', QLocale::FloatingPointShortest);
}

class Book
{
public:
    explicit Book(const QByteArray &file)
        : m_zip(file, maxUnpacked)
        , m_room(maxUnpacked)
    {
        readWorkbook();
        readSharedTexts();
        readStyles();
    }

    QList<Sheet> sheets()
    {
        QList<Sheet> sheets;
        for (const Tab &tab : std::as_const(m_tabs)) {
            Sheet sheet{tab.name, {}};
            readSheet(tab.part, sheet);
            sheets.append(sheet);
        }
        return sheets;
    }

private:
    struct Tab
    {
        QString name;
        QString part;
    };

    // Empty for a part that is not there, and that a book can do without.
    QByteArray part(const QString &name)
    {
        const ZipEntries::Entry *entry = m_zip.find(name);
        return entry ? m_zip.unpack(entry->index, &m_room) : QByteArray();
    }

    // What a part's relationships point to, by their id, as names of parts; of one sort, or of any.
    QHash<QString, QString> targets(const QString &of, QStringView sort = {})
    {
        const QString folder = of.left(of.lastIndexOf(u'/') + 1);
        const QByteArray content = part(folder + u"_rels/"_s + of.mid(folder.size()) + u".rels"_s);
        QHash<QString, QString> found;
        if (content.isEmpty())
            return found;
        PartReader reader(content);
        while (reader.next()) {
            if (!reader.begins(u"Relationship") || reader.attribute(u"TargetMode") == "External"_L1)
                continue;
            if (!sort.isEmpty() && !reader.attribute(u"Type").endsWith(sort))
                continue;
            const QString target = reader.attribute(u"Target");
            QStringList steps;
            for (const QString &step : (target.startsWith(u'/') ? target : folder + target).split(u'/', Qt::SkipEmptyParts)) {
                if (step == ".."_L1 && !steps.isEmpty())
                    steps.removeLast();
                else if (step != "."_L1 && step != ".."_L1)
                    steps.append(step);
            }
            found.insert(reader.attribute(u"Id"), steps.join(u'/'));
        }
        return found;
    }

    void readWorkbook()
    {
        const QHash<QString, QString> roots = targets({}, u"/officeDocument");
        m_workbook = roots.isEmpty() ? u"xl/workbook.xml"_s : *roots.cbegin();
        const QByteArray content = part(m_workbook);
        if (content.isEmpty())
            throw SheetError(Trouble::Damaged, 0, "no workbook in the file");
        const QHash<QString, QString> parts = targets(m_workbook);
        PartReader reader(content);
        while (reader.next()) {
            if (reader.begins(u"workbookPr"))
                m_from1904 = isOn(reader.attribute(u"date1904"));
            if (!reader.begins(u"sheet") || reader.attribute(u"state").contains(u"idden"_s))
                continue;
            if (m_tabs.size() >= SheetFile::maxSheets)
                throw SheetError(Trouble::TooLarge, 0, "too many sheets");
            m_tabs.append({reader.attribute(u"name"), parts.value(reader.attribute(u"id"))});
        }
    }

    static bool isOn(const QString &value) { return value == "1"_L1 || value == "true"_L1; }

    void readSharedTexts()
    {
        const QHash<QString, QString> found = targets(m_workbook, u"/sharedStrings");
        const QByteArray content = found.isEmpty() ? QByteArray() : part(*found.cbegin());
        if (content.isEmpty())
            return;
        PartReader reader(content);
        while (reader.next()) {
            if (!reader.begins(u"si"))
                continue;
            if (m_texts.size() >= maxSharedTexts)
                throw SheetError(Trouble::TooLarge, 0, "too many texts");
            // How a text is read aloud stands beside it.
            m_texts.append(reader.text(u"si", u"rPh"));
        }
    }

    void readStyles()
    {
        const QHash<QString, QString> found = targets(m_workbook, u"/styles");
        const QByteArray content = found.isEmpty() ? QByteArray() : part(*found.cbegin());
        if (content.isEmpty())
            return;
        QHash<int, bool> own;
        bool inCells = false;
        PartReader reader(content);
        while (reader.next()) {
            if (reader.begins(u"numFmt"))
                own.insert(reader.attribute(u"numFmtId").toInt(), XlsxStyles::isDateFormat(reader.attribute(u"formatCode")));
            else if (reader.begins(u"cellXfs") || reader.ends(u"cellXfs"))
                inCells = reader.xml().isStartElement();
            else if (inCells && reader.begins(u"xf")) {
                const int format = reader.attribute(u"numFmtId").toInt();
                m_isDate.append(own.contains(format) ? own.value(format) : XlsxStyles::isDateFormat(format));
            }
        }
    }

    void readSheet(const QString &name, Sheet &sheet)
    {
        const QByteArray content = part(name);
        if (content.isEmpty())
            return; // a chart has a tab, too
        qint64 row = -1;
        qint64 column = -1;
        PartReader reader(content);
        while (reader.next()) {
            if (reader.begins(u"row")) {
                const QString number = reader.attribute(u"r");
                row = number.isEmpty() ? row + 1 : number.toLongLong() - 1;
                column = -1;
            } else if (reader.begins(u"c")) {
                const QString reference = reader.attribute(u"r");
                column = reference.isEmpty() ? column + 1 : columnOf(reference);
                m_rows.put(sheet, row, column, readCell(reader));
            }
        }
    }

    SheetCell readCell(PartReader &reader)
    {
        const QString type = reader.attribute(u"t");
        const int style = reader.attribute(u"s").toInt();
        QString value;
        while (reader.next() && !reader.ends(u"c")) {
            if (reader.begins(u"v"))
                value = reader.text(u"v");
            else if (reader.begins(u"is"))
                value = reader.text(u"is", u"rPh");
        }
        return cellOf(type, value, style);
    }

    SheetCell cellOf(const QString &type, const QString &value, int style) const
    {
        using Kind = SheetCell::Kind;
        if (type == "s"_L1) {
            bool isNumber = false;
            const qlonglong index = value.toLongLong(&isNumber);
            if (!isNumber || index < 0 || index >= m_texts.size())
                throw SheetError(Trouble::Damaged, 0, "a text that is not in the table of texts");
            return {m_texts.at(index)};
        }
        if (type == "str"_L1 || type == "inlineStr"_L1)
            return {value};
        if (type == "b"_L1)
            return {isOn(value) ? u"1"_s : u"0"_s, Kind::Flag, isOn(value) ? 1.0 : 0.0};
        if (type == "e"_L1)
            return {value, Kind::Error};
        if (type == "d"_L1) {
            const QDate date = QDate::fromString(value.left(10), Qt::ISODate);
            return date.isValid() ? SheetCell{date.toString(Qt::ISODate), Kind::Date, 0, date} : SheetCell{value};
        }
        return numberOf(value, style);
    }

    SheetCell numberOf(const QString &value, int style) const
    {
        using Kind = SheetCell::Kind;
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number))
            return {value};
        if (m_isDate.value(style)) {
            if (const QDate date = XlsxStyles::dateOf(number, m_from1904); date.isValid())
                return {date.toString(Qt::ISODate), Kind::Date, number, date};
        }
        return {plainNumber(number), Kind::Number, number};
    }

    ZipEntries m_zip;
    qint64 m_room;
    QString m_workbook;
    bool m_from1904 = false;
    QList<Tab> m_tabs;
    QStringList m_texts;
    QList<bool> m_isDate; // by the style of a cell
    SheetRows m_rows;
};

}

QList<Sheet> XlsxBook::read(const QByteArray &file)
{
    try {
        return Book(file).sheets();
    } catch (const PackageError &error) {
        throw SheetError(Trouble::Damaged, 0, error.what());
    }
}
