// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogImport.h"

#include "suite/utility/values/TextStandard.h"

#include <QHash>
#include <QStringDecoder>
#include <QStringList>

#include <algorithm>

namespace {

using namespace CatalogImport;

// The key that equal names share. Accents are folded here as the database folds them in its unique index of brands.
QString nameKey(const QString &name)
{
    QString plain;
    for (const QChar c : name.normalized(QString::NormalizationForm_D)) {
        const bool isLatinAccent = c.unicode() >= 0x0300 && c.unicode() <= 0x036F;
        if (!isLatinAccent)
            plain.append(c);
    }
    return searchKey(plain.normalized(QString::NormalizationForm_C));
}

// The tables cannot store a character beyond the first plane.
bool isTextCharacter(QChar c)
{
    return c == u'\t' || !(c.category() == QChar::Other_Control || c.isSurrogate() || c.isNonCharacter());
}

Trouble readLine(const QString &line, Entry *entry)
{
    if (!std::all_of(line.cbegin(), line.cend(), isTextCharacter))
        return Trouble::NotText;
    QStringList cells;
    for (const QString &cell : line.split(u'\t'))
        cells.append(ConvertToStandard(cell));
    while (cells.size() > 3 && cells.last().isEmpty())
        cells.removeLast();
    if (cells.size() > 3)
        return Trouble::TooManyColumns;
    *entry = {cells.value(0), cells.value(1), cells.value(2)};
    if (entry->brand.isEmpty())
        return Trouble::BrandMissing;
    if (entry->model.isEmpty() && !entry->carClass.isEmpty())
        return Trouble::ModelMissing;
    for (const QString &name : {entry->brand, entry->model, entry->carClass}) {
        if (name.size() > longestName)
            return Trouble::NameTooLong;
    }
    return Trouble::None;
}

Parsed refused(Trouble trouble, int line = 0)
{
    return {{}, trouble, line};
}

// Where an entry is: in the catalog (key), or among what is to be added (position).
struct Place
{
    int key = 0;
    int position = -1;

    bool isKnown() const { return key != 0; }
};

// One level of the tree while the plan is made: what is in it under which parent and name.
class Level
{
public:
    // When a name occurs twice, the first one counts.
    void know(const KnownEntry &entry)
    {
        const QString where = address({entry.parent}, entry.name);
        if (!m_places.contains(where))
            m_places.insert(where, {entry.key});
    }

    // The entry's place; an entry that does not exist yet is added to the plan.
    Place find(const Place &parent, const QString &name, QVector<NewEntry> *planned)
    {
        const QString where = address(parent, name);
        if (const auto found = m_places.constFind(where); found != m_places.cend())
            return *found;
        const Place place{0, static_cast<int>(planned->size())};
        planned->append({name, parent.key, parent.isKnown() ? -1 : parent.position});
        m_places.insert(where, place);
        return place;
    }

private:
    static QString address(const Place &parent, const QString &name)
    {
        return QString::number(parent.key) + u'/' + QString::number(parent.isKnown() ? -1 : parent.position) + u'/' + nameKey(name);
    }

    QHash<QString, Place> m_places;
};

Level knownLevel(const QVector<KnownEntry> &entries)
{
    Level level;
    for (const KnownEntry &entry : entries)
        level.know(entry);
    return level;
}

}

CatalogImport::Parsed CatalogImport::parse(const QByteArray &data)
{
    if (data.size() > maxBytes)
        return refused(Trouble::TooLarge);
    Parsed parsed;
    int number = 0;
    QByteArray text = data;
    if (text.startsWith("\xEF\xBB\xBF"))
        text.remove(0, 3);
    for (QByteArray bytes : text.split('\n')) {
        if (++number > maxLines)
            return refused(Trouble::TooManyLines, number);
        if (bytes.endsWith('\r'))
            bytes.chop(1);
        QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
        const QString line = decoder(bytes);
        if (decoder.hasError())
            return refused(Trouble::NotText, number);
        if (line.startsWith(u'#') || line.trimmed().isEmpty())
            continue;
        Entry entry;
        if (const Trouble trouble = readLine(line, &entry); trouble != Trouble::None)
            return refused(trouble, number);
        parsed.entries.append(entry);
    }
    return parsed.entries.isEmpty() ? refused(Trouble::NoEntries) : parsed;
}

CatalogImport::Plan CatalogImport::plan(const QVector<Entry> &entries, const Known &known)
{
    Level brands = knownLevel(known.brands);
    Level models = knownLevel(known.models);
    Level classes = knownLevel(known.classes);
    Plan plan;
    for (const Entry &entry : entries) {
        const Place brand = brands.find({}, entry.brand, &plan.brands);
        if (entry.model.isEmpty())
            continue;
        const Place model = models.find(brand, entry.model, &plan.models);
        if (!entry.carClass.isEmpty())
            classes.find(model, entry.carClass, &plan.classes);
    }
    return plan;
}
