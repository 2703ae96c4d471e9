// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupCipher.h"

#include "host/server/ServerError.h"

#include <QtEndian>

#include <cstring>
#include <sodium.h>

using namespace Qt::StringLiterals;

namespace BackupCipher {

namespace {

static_assert(addedBytes == crypto_secretstream_xchacha20poly1305_ABYTES);

const QByteArray mark = QByteArrayLiteral("TzAutoE1");
constexpr qsizetype saltBytes = crypto_pwhash_SALTBYTES;
constexpr qsizetype streamBytes = crypto_secretstream_xchacha20poly1305_HEADERBYTES;
constexpr qsizetype sumBytes = 32;
constexpr unsigned char lastPiece = crypto_secretstream_xchacha20poly1305_TAG_FINAL;

// A file that asks for more is not ours, and would only keep the computer busy.
constexpr quint32 mostOperations = 20;
constexpr quint32 mostMemoryKiB = 1024 * 1024;

const unsigned char *bytesOf(const QByteArray &bytes)
{
    return reinterpret_cast<const unsigned char *>(bytes.constData());
}

unsigned char *bytesOf(QByteArray &bytes)
{
    return reinterpret_cast<unsigned char *>(bytes.data());
}

void requireLibrary()
{
    if (sodium_init() < 0)
        throw ServerError(ServerError::Kind::DumpFailed, u"کتابخانه رمزنگاری آماده نشد؛ برنامه را دوباره نصب نمایید."_s,
                          u"libsodium does not start"_s);
}

struct Key
{
    unsigned char bytes[crypto_secretstream_xchacha20poly1305_KEYBYTES];

    Key(const QString &passphrase, const Effort &effort, const QByteArray &salt)
    {
        // The same characters may be typed as one or as two code points.
        QByteArray text = passphrase.normalized(QString::NormalizationForm_C).toUtf8();
        const int result = crypto_pwhash(bytes, sizeof bytes, text.constData(), static_cast<unsigned long long>(text.size()),
                                         bytesOf(salt), effort.operations, static_cast<std::size_t>(effort.memoryKiB) * 1024,
                                         crypto_pwhash_ALG_ARGON2ID13);
        sodium_memzero(text.data(), static_cast<std::size_t>(text.size()));
        if (result != 0)
            throw ServerError(ServerError::Kind::DumpFailed, u"حافظه رایانه برای رمزنگاری پشتیبان کافی نیست."_s,
                              u"Argon2id needs %1 KiB"_s.arg(effort.memoryKiB));
    }
    ~Key() { sodium_memzero(bytes, sizeof bytes); }
    Key(const Key &) = delete;
    Key &operator=(const Key &) = delete;
};

QByteArray sumOf(const QByteArray &bytes)
{
    QByteArray sum(sumBytes, Qt::Uninitialized);
    crypto_generichash(bytesOf(sum), sumBytes, bytesOf(bytes), static_cast<unsigned long long>(bytes.size()), nullptr, 0);
    return sum;
}

QByteArray number(quint32 value)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

}

namespace {

Effort &currentEffort()
{
    static Effort effort;
    return effort;
}

}

void setUsualEffort(Effort effort)
{
    currentEffort() = effort;
}

Effort usualEffort()
{
    return currentEffort();
}

struct Sealer::State
{
    crypto_secretstream_xchacha20poly1305_state stream;
    QByteArray header;
};

Sealer::Sealer(const QString &passphrase, Effort effort)
    : m_state(std::make_unique<State>())
{
    requireLibrary();
    QByteArray salt(saltBytes, Qt::Uninitialized);
    randombytes_buf(salt.data(), static_cast<std::size_t>(salt.size()));
    const Key key(passphrase, effort, salt);
    QByteArray stream(streamBytes, Qt::Uninitialized);
    crypto_secretstream_xchacha20poly1305_init_push(&m_state->stream, bytesOf(stream), key.bytes);
    QByteArray header = mark + number(effort.operations) + number(effort.memoryKiB) + salt + stream;
    header += seal({}, false);
    m_state->header = header + sumOf(header);
}

Sealer::~Sealer()
{
    sodium_memzero(&m_state->stream, sizeof m_state->stream);
}

QByteArray Sealer::header() const
{
    return m_state->header;
}

QByteArray Sealer::seal(const QByteArray &piece, bool last)
{
    QByteArray sealed(piece.size() + addedBytes, Qt::Uninitialized);
    crypto_secretstream_xchacha20poly1305_push(&m_state->stream, bytesOf(sealed), nullptr, bytesOf(piece),
                                               static_cast<unsigned long long>(piece.size()), nullptr, 0, last ? lastPiece : 0);
    return sealed;
}

struct Opener::State
{
    crypto_secretstream_xchacha20poly1305_state stream;
    QString file;

    ServerError damaged(const QString &detail) const
    {
        return {ServerError::Kind::BackupDamaged,
                u"پرونده پشتیبان %1 آسیب دیده یا ناقص است؛ پشتیبان دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(file)), detail};
    }

    // Nothing when it is not as it was sealed.
    bool open(const QByteArray &sealed, QByteArray &piece, bool &last)
    {
        unsigned char tag = 0;
        piece.resize(qMax<qsizetype>(0, sealed.size() - addedBytes));
        const bool opened = sealed.size() >= addedBytes
            && crypto_secretstream_xchacha20poly1305_pull(&stream, bytesOf(piece), nullptr, &tag, bytesOf(sealed),
                                                          static_cast<unsigned long long>(sealed.size()), nullptr, 0)
                == 0;
        last = tag == lastPiece;
        return opened;
    }
};

Opener::Opener(const QByteArray &header, const QString &passphrase, const QString &file)
    : m_state(std::make_unique<State>())
{
    requireLibrary();
    m_state->file = file;
    const QByteArray summed = header.left(header.size() - sumBytes);
    if (header.size() != headerBytes || !header.startsWith(mark) || sumOf(summed) != header.right(sumBytes))
        throw m_state->damaged(u"the header is altered or cut off"_s);
    const Effort effort{qFromLittleEndian<quint32>(header.constData() + mark.size()),
                        qFromLittleEndian<quint32>(header.constData() + mark.size() + 4)};
    if (effort.operations < crypto_pwhash_OPSLIMIT_MIN || effort.operations > mostOperations || effort.memoryKiB > mostMemoryKiB
        || effort.memoryKiB < crypto_pwhash_MEMLIMIT_MIN / 1024)
        throw m_state->damaged(u"the header asks for %1 operations in %2 KiB"_s.arg(effort.operations).arg(effort.memoryKiB));
    const QByteArray salt = header.mid(mark.size() + 8, saltBytes);
    const QByteArray stream = header.mid(mark.size() + 8 + saltBytes, streamBytes);
    const Key key(passphrase, effort, salt);
    QByteArray empty;
    bool last = false;
    if (crypto_secretstream_xchacha20poly1305_init_pull(&m_state->stream, bytesOf(stream), key.bytes) != 0
        || !m_state->open(header.mid(mark.size() + 8 + saltBytes + streamBytes, addedBytes), empty, last))
        throw ServerError(ServerError::Kind::WrongPassphrase,
                          u"پشتیبان %1 با این گذرواژه باز نمی‌شود."_s.arg(ServerError::shownPath(file)), u"wrong passphrase"_s);
}

Opener::~Opener()
{
    sodium_memzero(&m_state->stream, sizeof m_state->stream);
}

QByteArray Opener::open(const QByteArray &sealedPiece, bool isLast)
{
    QByteArray piece;
    bool last = false;
    if (!m_state->open(sealedPiece, piece, last))
        throw m_state->damaged(isLast ? u"the last piece is altered or cut off"_s : u"a piece is altered"_s);
    if (last != isLast)
        throw m_state->damaged(isLast ? u"the end is missing"_s : u"something follows the end"_s);
    return piece;
}

}
