// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/RecordPictures.h"

#include "suite/accounting/attachments/CTblPictures.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"

#include <QStringList>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Stored = QList<RecordPictures::Picture>;

constexpr int longestPictureName = 200;
const QString ownColumn = u"oPicture"_s;

KSql picturesOf(int kind, qint32 recordID)
{
    return KSql::formatted("iTable=%1 AND iRecordID=%2", kind, recordID);
}

KSql namesStatement(int kind, qint32 recordID)
{
    return KSql::formatted("SELECT iID,sName FROM Pictures WHERE %1 ORDER BY iOrder,iID", picturesOf(kind, recordID));
}

Stored storedPictures(int kind, qint32 recordID, bool locks, int database)
{
    CTblTemp rows(database);
    rows.Open(false, false, true);
    KSql statement = namesStatement(kind, recordID);
    if (locks)
        statement += " FOR UPDATE";
    rows.ExecuteQuery(statement);
    Stored found;
    for (; rows.HasResultRow(); rows.MoveNextResult())
        found.append({rows.GetLongFieldValue(0), rows.GetTextFieldValue(1)});
    return found;
}

bool holds(const Stored &pictures, qint32 id)
{
    return std::ranges::any_of(pictures, [id](const RecordPictures::Picture &picture) { return picture.id == id; });
}

QList<qint32> keysOf(const Stored &pictures)
{
    QList<qint32> keys;
    for (const RecordPictures::Picture &picture : pictures)
        keys.append(picture.id);
    return keys;
}

QList<qint32> keptKeys(const QList<RecordPictures::Entry> &entries)
{
    QList<qint32> keys;
    for (const RecordPictures::Entry &entry : entries) {
        if (entry.id != 0)
            keys.append(entry.id);
    }
    return keys;
}

// Null for a kind without a picture of its own.
std::unique_ptr<KMySQL> ownerOf(int kind, int database)
{
    const RecordSubject *subject = RecordSubjects::of(RecordSubjects::tableOf(kind));
    std::unique_ptr<KMySQL> record = subject ? subject->make(database) : nullptr;
    return record && record->column(ownColumn) ? std::move(record) : nullptr;
}

QByteArray ownBytes(int kind, qint32 recordID, int database)
{
    const std::unique_ptr<KMySQL> record = ownerOf(kind, database);
    if (!record)
        return {};
    record->SetColumns({ownColumn});
    return record->IsRecordExist(u"iID"_s, recordID) ? record->value(ownColumn).toByteArray() : QByteArray();
}

bool hasOwn(int kind, qint32 recordID, int database)
{
    const std::unique_ptr<KMySQL> record = ownerOf(kind, database);
    if (!record)
        return false;
    CTblTemp row(database);
    row.Open(false, false, true);
    row.ExecuteQuery(KSql::formatted("SELECT 1 FROM %1 WHERE iID=%2 AND OCTET_LENGTH(oPicture)>0", KSql::name(record->GetTableName()), recordID));
    return row.HasResultRow();
}

void addPicture(int kind, qint32 recordID, int place, const RecordPictures::Entry &entry, int database)
{
    CTblPictures picture(database);
    picture.Open(true, false, true);
    picture.AddNew();
    picture.m_iTable = kind;
    picture.m_iRecordID = recordID;
    picture.m_iOrder = place;
    picture.m_sName = entry.name.left(longestPictureName);
    picture.m_oPicture.data = entry.bytes;
    picture.m_iUserID = GetDBSetting()->GetUserID();
    picture.m_dateCreate = GetDBSetting()->GetDBServerDate();
    picture.Update(true);
}

QString spoken(const QString &name)
{
    return name.isEmpty() ? u"بدون نام"_s : name;
}

template <class Pictures>
QString namesOf(const Pictures &pictures)
{
    QStringList names;
    for (const auto &picture : pictures)
        names.append(spoken(picture.name));
    return names.join(u"، "_s);
}

void run(const KSql &statement, int database)
{
    CTblTemp rows(database);
    rows.Open(true, false, true);
    rows.ExecuteQuery(statement);
}

// An editor's change put onto the rows as they are now.
struct Merged
{
    QList<RecordPictures::Entry> places; // in their order from now on
    Stored removed;

    // kept: a row that stays although the editor has it no more; 0: none.
    Merged(const Stored &before, const RecordPictures::Change &change, qint32 kept)
    {
        places = change.wanted;
        places.removeIf([&](const RecordPictures::Entry &entry) { return entry.id != 0 && !holds(before, entry.id); });
        const QList<qint32> mine = keptKeys(places);
        QList<qint32> asOpened = change.opened;
        asOpened.removeIf([&](qint32 id) { return !mine.contains(id); });
        // Others' order holds where the editor only added and removed.
        const bool isTheirOrder = asOpened == mine && keysOf(before) != change.opened;
        if (isTheirOrder)
            places.removeIf([](const RecordPictures::Entry &entry) { return entry.id != 0; });
        QList<RecordPictures::Entry> rest;
        for (const RecordPictures::Picture &picture : before) {
            const bool isPlaced = std::ranges::any_of(places, [&](const auto &entry) { return entry.id == picture.id; });
            const bool isLeft = mine.contains(picture.id) || picture.id == kept || !change.opened.contains(picture.id);
            if (!isLeft)
                removed.append(picture);
            else if (!isPlaced)
                rest.append({picture.id, picture.name, {}});
        }
        places = isTheirOrder ? rest + places : places + rest;
    }
};

}

bool RecordPictures::Change::isEmpty() const
{
    return wanted.size() == opened.size() && keptKeys(wanted) == opened;
}

QList<RecordPictures::Picture> RecordPictures::further(int kind, qint32 recordID, int database)
{
    return storedPictures(kind, recordID, false, database);
}

void RecordPictures::expectFurther(int kind, qint32 recordID, int database)
{
    KReadAhead::expect(namesStatement(kind, recordID), database);
}

QList<RecordPictures::Picture> RecordPictures::all(int kind, qint32 recordID, int database)
{
    QList<Picture> pictures = further(kind, recordID, database);
    if (hasOwn(kind, recordID, database))
        pictures.prepend({});
    return pictures;
}

QByteArray RecordPictures::bytes(int kind, qint32 recordID, qint32 id, int database)
{
    if (id == 0)
        return ownBytes(kind, recordID, database);
    CTblPictures picture(database);
    picture.SetColumns({ownColumn});
    return picture.IsRecordExist(u"iID"_s, id, 0, " AND " + picturesOf(kind, recordID)) ? picture.m_oPicture.data : QByteArray();
}

QHash<qint32, QByteArray> RecordPictures::furtherBytes(int kind, qint32 recordID, int database)
{
    QHash<qint32, QByteArray> pictures;
    CTblTemp rows(database);
    rows.Open(false, false, true);
    rows.ExecuteQuery("SELECT iID,oPicture FROM Pictures WHERE " + picturesOf(kind, recordID));
    for (; rows.HasResultRow(); rows.MoveNextResult())
        pictures.insert(rows.GetLongFieldValue(0), rows.GetBinaryFieldValue(1));
    return pictures;
}

QString RecordPictures::save(int kind, qint32 recordID, const Change &change, const QByteArray &own, int database)
{
    if (change.isEmpty())
        return {};
    const Stored before = storedPictures(kind, recordID, true, database);
    const QString table = RecordSubjects::tableOf(kind);
    const QString who = keysOf(before) == change.opened ? QString() : RowChanged::lastChange(table, recordID, database);
    const bool keepsMadeFirst = change.madeFirst != 0 && bytes(kind, recordID, change.madeFirst, database) != own;
    Merged merged(before, change, keepsMadeFirst ? change.madeFirst : 0);
    if (merged.places.size() > most)
        throw KAccountingError(u"بیش از %1 تصویر در کنار تصویر نخست نگه داشته نمی‌شود. چیزی ذخیره نشد."_s.arg(most));

    QList<KChangedValue> notes;
    for (const Picture &picture : std::as_const(merged.removed)) {
        run(KSql::formatted("DELETE FROM Pictures WHERE iID=%1", picture.id), database);
        notes.append({u"تصویر"_s, spoken(picture.name), QVariant()});
    }
    int place = 0;
    for (const Entry &entry : std::as_const(merged.places)) {
        ++place;
        if (entry.id != 0) {
            run(KSql::formatted("UPDATE Pictures SET iOrder=%1 WHERE iID=%2", place, entry.id), database);
            continue;
        }
        addPicture(kind, recordID, place, entry, database);
        notes.append({u"تصویر"_s, QVariant(), spoken(entry.name)});
    }
    if (notes.isEmpty())
        notes.append({u"ترتیب تصویرها"_s, namesOf(before), namesOf(merged.places)});
    // A record that nobody has saved before begins with them.
    if (!Placeholders::contains({table, recordID}, database))
        RecordSubjects::noteOn(kind, recordID, u"Pictures"_s, notes, database);
    return who;
}

void RecordPictures::deleteAll(int kind, qint32 recordID, int database)
{
    run("DELETE FROM Pictures WHERE " + picturesOf(kind, recordID), database);
}
