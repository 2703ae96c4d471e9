// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/BinaryLogFile.h"

#include <QFile>
#include <QtEndian>

#include <array>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

// Each file begins with them, each event with a head: time (4), kind (1), server (4), length (4), position of the next (4), flags (2).
const QByteArray logMagic = QByteArrayLiteral("\xfe\x62\x69\x6e");
constexpr qint64 headBytes = 19;
constexpr qint64 kindAt = 4;
constexpr qint64 lengthAt = 9;
constexpr qint64 flagsAt = 17;
constexpr qint64 checksumBytes = 4;
// The greatest packet that the server takes, and room around it.
constexpr qint64 longestEvent = 1200LL * 1024 * 1024;
constexpr qint64 readAtOnce = 1024LL * 1024;

enum EventKind : uchar {
    Query = 2,
    Rotate = 4,
    FormatDescription = 15,
    Commit = 16,
    BeginsTransaction = 162 // also a single statement that is a transaction of its own
};

class Checksum
{
public:
    void add(const char *bytes, qint64 count)
    {
        for (qint64 i = 0; i < count; ++i)
            m_value = table()[(m_value ^ static_cast<uchar>(bytes[i])) & 0xff] ^ (m_value >> 8);
    }
    quint32 value() const { return ~m_value; }

private:
    static const std::array<quint32, 256> &table()
    {
        static const std::array<quint32, 256> values = [] {
            std::array<quint32, 256> made{};
            for (quint32 i = 0; i < made.size(); ++i) {
                quint32 value = i;
                for (int bit = 0; bit < 8; ++bit)
                    value = value & 1 ? 0xedb88320U ^ (value >> 1) : value >> 1;
                made[i] = value;
            }
            return made;
        }();
        return values;
    }

    quint32 m_value = 0xffffffffU;
};

// In the body of BeginsTransaction.
constexpr qsizetype transactionFlagsAt = 12;
constexpr char isOneStatement = 1;

struct Event
{
    quint32 seconds = 0;
    uchar kind = 0;
    bool isOneStatement = false; // of BeginsTransaction: the next statement is all of it
};

class EventReader
{
public:
    explicit EventReader(QFile &file)
        : m_file(file) { }

    // The next event; nothing at the end, and for one that is cut off or not as it was written.
    std::optional<Event> next()
    {
        m_begin = m_file.pos();
        QByteArray head = m_file.read(headBytes);
        m_isCutOff = head.size() < headBytes;
        if (m_isCutOff)
            return {};
        Event event;
        event.seconds = qFromLittleEndian<quint32>(head.constData());
        event.kind = static_cast<uchar>(head.at(kindAt));
        const qint64 length = qFromLittleEndian<quint32>(head.constData() + lengthAt);
        if (length < headBytes + checksumBytes || length > longestEvent)
            return {};
        m_isCutOff = m_begin + length > m_file.size();
        if (m_isCutOff)
            return {};
        // The server marks a file as in use in its first event, without counting that in.
        if (event.kind == FormatDescription) {
            m_inUse = head.at(flagsAt) & 1;
            head[flagsAt] = static_cast<char>(head.at(flagsAt) & ~1);
        }
        Checksum checksum;
        checksum.add(head.constData(), headBytes);
        if (!read(length - headBytes - checksumBytes, checksum))
            return {};
        const QByteArray written = m_file.read(checksumBytes);
        if (event.kind == FormatDescription)
            m_checks = !m_lastBytes.isEmpty() && m_lastBytes.back() == 1;
        if (written.size() < checksumBytes || (m_checks && qFromLittleEndian<quint32>(written.constData()) != checksum.value()))
            return {};
        if (event.kind == BeginsTransaction && m_lastBytes.size() > transactionFlagsAt)
            event.isOneStatement = m_lastBytes.at(transactionFlagsAt) & isOneStatement;
        return event;
    }
    // Of the last event.
    qint64 begin() const { return m_begin; }
    // After the last one: the file ends within an event, and the server had not closed it.
    bool wasBrokenOff() const { return m_isCutOff && m_inUse; }

private:
    bool read(qint64 count, Checksum &checksum)
    {
        while (count > 0) {
            m_lastBytes = m_file.read(qMin(count, readAtOnce));
            if (m_lastBytes.isEmpty())
                return false;
            checksum.add(m_lastBytes.constData(), m_lastBytes.size());
            count -= m_lastBytes.size();
        }
        return true;
    }

    QFile &m_file;
    qint64 m_begin = 0;
    bool m_inUse = false;
    bool m_isCutOff = false;
    QByteArray m_lastBytes;
    bool m_checks = false; // said by the last byte of the first event
};

}

BinaryLogFile BinaryLogFile::read(const QString &path, qint64 from, const std::optional<QDateTime> &until)
{
    BinaryLogFile found;
    const qint64 stop = until ? QDateTime(until->date(), until->time(), Qt::LocalTime).toSecsSinceEpoch() : std::numeric_limits<qint64>::max();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.read(logMagic.size()) != logMagic)
        return found;
    EventReader reader(file);
    enum class Open {
        Nothing,
        Statement,
        Transaction
    } open = Open::Nothing;
    quint32 seconds = 0;
    qint64 begin = 0; // of the transaction
    while (const std::optional<Event> event = reader.next()) {
        found.isLog = true;
        const bool ends = (event->kind == Commit && open == Open::Transaction) || (event->kind == Query && open == Open::Statement);
        const bool counts = ends && begin >= from;
        // The time of its end decides; when the file was begun does not matter, for a clock may be set back.
        found.goesFurther = counts && event->seconds >= stop;
        if (found.goesFurther)
            break;
        if (counts)
            seconds = event->seconds;
        // What stands before the beginning of a transaction is complete.
        if (ends || open == Open::Nothing || event->kind == BeginsTransaction || event->kind == Rotate)
            found.end = event->kind == BeginsTransaction ? reader.begin() : file.pos();
        if (event->kind == BeginsTransaction) {
            begin = reader.begin();
            open = event->isOneStatement ? Open::Statement : Open::Transaction;
        } else if (ends) {
            open = Open::Nothing;
        }
    }
    found.isWhole = found.isLog && !found.goesFurther && reader.begin() == file.size();
    found.wasBrokenOff = found.isLog && !found.isWhole && reader.wasBrokenOff();
    if (found.isWhole)
        found.end = file.size();
    if (seconds > 0)
        found.last = QDateTime::fromSecsSinceEpoch(seconds);
    found.last = QDateTime(found.last.date(), found.last.time(), Qt::UTC);
    return found;
}
