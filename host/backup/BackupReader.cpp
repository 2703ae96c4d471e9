// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupReader.h"

#include "host/backup/BackupCipher.h"
#include "host/server/ServerError.h"

#include <QFile>

#include <sodium.h>
#include <zstd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype readAtOnce = 256 * 1024;
constexpr int largestWindowLog = 27; // 128 MiB of memory
// Without a manifest: statements of an office are packed to a fifth or a tenth.
constexpr qint64 largestRatio = 200;
constexpr qint64 alwaysAllowed = 1024LL * 1024 * 1024;
constexpr qsizetype lastWordsBytes = 512;
constexpr std::size_t digestSizeOfFiles = 32;

}

struct BackupReader::Input
{
    BackupFile backup;
    QFile file;
    std::unique_ptr<BackupCipher::Opener> opener;
    std::unique_ptr<ZSTD_DStream, decltype(&ZSTD_freeDStream)> unpacker{ZSTD_createDStream(), ZSTD_freeDStream};
    QByteArray packed; // read and not unpacked yet, from position on
    std::size_t position = 0;
    bool inFrame = false;
    bool ended = false;
    qint64 plain = 0;
    qint64 mostPlain = 0;
    QByteArray lastWords;
    crypto_generichash_state digest;

    ServerError damaged(const QString &detail) const
    {
        return {ServerError::Kind::BackupDamaged,
                u"پرونده پشتیبان %1 آسیب دیده یا ناقص است؛ پشتیبان دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(backup.path())), detail};
    }

    QByteArray read(qsizetype bytes)
    {
        QByteArray chunk = file.read(bytes);
        if (file.error() != QFile::NoError)
            throw ServerError(ServerError::Kind::DumpFailed, u"پرونده %1 خوانده نشد."_s.arg(ServerError::shownPath(backup.path())),
                              file.errorString());
        crypto_generichash_update(&digest, reinterpret_cast<const unsigned char *>(chunk.constData()),
                                  static_cast<unsigned long long>(chunk.size()));
        return chunk;
    }

    // At the end: the file is that of its manifest, to the last byte.
    void requireDigest()
    {
        if (!backup.manifest() || backup.manifest()->digest.isEmpty())
            return;
        QByteArray found(backup.manifest()->digest.size(), Qt::Uninitialized);
        crypto_generichash_final(&digest, reinterpret_cast<unsigned char *>(found.data()), static_cast<std::size_t>(found.size()));
        if (found != backup.manifest()->digest)
            throw damaged(u"it is not the file of its manifest"_s);
    }

    // Empty: the end of a whole file.
    QByteArray nextPacked()
    {
        if (!opener)
            return read(readAtOnce);
        if (file.atEnd()) {
            if (!ended)
                throw damaged(u"the end is missing"_s);
            return {};
        }
        const QByteArray sealed = read(BackupCipher::pieceBytes + BackupCipher::addedBytes);
        ended = file.atEnd();
        QByteArray piece = opener->open(sealed, ended);
        // The last piece may be empty, and only that.
        return piece;
    }

    QByteArray unpack()
    {
        QByteArray plainPart(static_cast<qsizetype>(ZSTD_DStreamOutSize()), Qt::Uninitialized);
        for (;;) {
            if (position == static_cast<std::size_t>(packed.size())) {
                packed = nextPacked();
                position = 0;
                if (packed.isEmpty()) {
                    if (inFrame || plain == 0)
                        throw damaged(u"the compressed part is cut off"_s);
                    return {};
                }
            }
            ZSTD_inBuffer in{packed.constData(), static_cast<std::size_t>(packed.size()), position};
            ZSTD_outBuffer out{plainPart.data(), static_cast<std::size_t>(plainPart.size()), 0};
            const std::size_t result = ZSTD_decompressStream(unpacker.get(), &out, &in);
            if (ZSTD_isError(result))
                throw damaged(QString::fromLatin1(ZSTD_getErrorName(result)));
            position = in.pos;
            inFrame = result != 0;
            if (out.pos > 0)
                return plainPart.left(static_cast<qsizetype>(out.pos));
        }
    }
};

BackupReader::BackupReader(const BackupFile &file, const QString &passphrase)
    : m_input(std::make_unique<Input>())
{
    Input &input = *m_input;
    input.backup = file;
    input.file.setFileName(file.path());
    crypto_generichash_init(&input.digest, nullptr, 0, digestSizeOfFiles);
    if (!file.exists() || !input.file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw ServerError(ServerError::Kind::DumpFailed,
                          u"پرونده %1 خوانده نشد؛ پرونده دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(file.path())),
                          file.exists() ? input.file.errorString() : u"it is no file"_s);
    ZSTD_DCtx_setParameter(input.unpacker.get(), ZSTD_d_windowLogMax, largestWindowLog);
    input.mostPlain = file.manifest() ? file.manifest()->plainSize : qMax(alwaysAllowed, file.size() * largestRatio);
    if (file.isEncrypted())
        input.opener = std::make_unique<BackupCipher::Opener>(input.read(BackupCipher::headerBytes), passphrase, file.path());
}

BackupReader::~BackupReader() = default;

QByteArray BackupReader::next()
{
    Input &input = *m_input;
    QByteArray part = input.backup.format() == BackupFile::Format::Plain ? input.read(readAtOnce) : input.unpack();
    if (part.isEmpty()) {
        if (!input.lastWords.contains("\n-- Dump completed"))
            throw input.damaged(u"the dump does not end as a whole one does"_s);
        input.requireDigest();
        return {};
    }
    input.plain += part.size();
    if (input.plain > input.mostPlain && input.backup.format() != BackupFile::Format::Plain)
        throw input.damaged(u"it holds more than %1 bytes"_s.arg(input.mostPlain));
    input.lastWords = (input.lastWords + part.right(lastWordsBytes)).right(lastWordsBytes);
    return part;
}

QByteArray BackupReader::nextPacked()
{
    return m_input->nextPacked();
}

bool BackupReader::opensWith(const BackupFile &file, const QString &passphrase)
{
    try {
        const BackupReader reader(file, passphrase);
        return true;
    } catch (const ServerError &error) {
        if (error.kind() != ServerError::Kind::WrongPassphrase)
            throw;
        return false;
    }
}

qint64 BackupReader::done() const
{
    return m_input->file.pos();
}
