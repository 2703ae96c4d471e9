// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupWriter.h"

#include "host/backup/BackupCipher.h"
#include "host/backup/BackupFile.h"
#include "host/server/DataFolder.h"
#include "host/server/Platform.h"
#include "host/server/ServerError.h"

#include <QFile>
#include <QFileInfo>

#include <sodium.h>
#include <zstd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int compressionLevel = 3;
constexpr std::size_t digestSize = 32;

}

struct BackupWriter::Output
{
    QString path;
    QFile file;
    std::unique_ptr<platform::FileLock> lock; // says that its writer lives
    std::unique_ptr<ZSTD_CStream, decltype(&ZSTD_freeCStream)> packer{nullptr, ZSTD_freeCStream};
    std::unique_ptr<BackupCipher::Sealer> sealer;
    QByteArray unsealed;
    QByteArray packed{static_cast<qsizetype>(ZSTD_CStreamOutSize()), Qt::Uninitialized};
    crypto_generichash_state digest;
    qint64 plain = 0;
    qint64 written = 0;
    bool finished = false;

    QString folder() const { return QFileInfo(path).path(); }

    ServerError failed(bool isFull, const QString &detail) const
    {
        if (isFull)
            return {ServerError::Kind::DiskFull,
                    u"دیسکی که پوشه %1 در آن است پر شده است و پشتیبان ساخته نشد؛ فضا آزاد نمایید و دوباره تلاش کنید."_s.arg(ServerError::shownPath(folder())),
                    detail};
        return {ServerError::Kind::FolderNotWritable,
                u"در پوشه %1 نمی‌توان چیزی نوشت؛ اجازه نوشتن در آن را بگیرید یا پوشه دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(folder())),
                detail};
    }

    void put(const QByteArray &bytes)
    {
        if (file.write(bytes) != bytes.size())
            throw failed(file.error() == QFile::ResourceError, file.fileName() + u": "_s + file.errorString());
        crypto_generichash_update(&digest, reinterpret_cast<const unsigned char *>(bytes.constData()),
                                  static_cast<unsigned long long>(bytes.size()));
        written += bytes.size();
    }

    void putPacked(const QByteArray &bytes, bool last)
    {
        if (!sealer)
            return put(bytes);
        unsealed += bytes;
        // The last piece is marked, so one is always kept back.
        while (unsealed.size() > BackupCipher::pieceBytes) {
            put(sealer->seal(unsealed.left(BackupCipher::pieceBytes), false));
            unsealed.remove(0, BackupCipher::pieceBytes);
        }
        if (last)
            put(sealer->seal(unsealed, true));
    }

    void pack(const QByteArray &statements, bool last)
    {
        ZSTD_inBuffer in{statements.constData(), static_cast<std::size_t>(statements.size()), 0};
        for (;;) {
            ZSTD_outBuffer out{packed.data(), static_cast<std::size_t>(packed.size()), 0};
            const std::size_t left = ZSTD_compressStream2(packer.get(), &out, &in, last ? ZSTD_e_end : ZSTD_e_continue);
            if (ZSTD_isError(left))
                throw failed(false, QString::fromLatin1(ZSTD_getErrorName(left)));
            const bool ends = last ? left == 0 : in.pos == in.size;
            putPacked(packed.left(static_cast<qsizetype>(out.pos)), last && ends);
            if (ends)
                return;
        }
    }
};

BackupWriter::BackupWriter(const QString &path, const QString &passphrase)
    : m_output(std::make_unique<Output>())
{
    Output &output = *m_output;
    output.path = path;
    output.file.setFileName(path + unfinished());
    QString reason;
    // Made here first, so that only the user can read it from its first byte on.
    const platform::WriteResult made = platform::writePrivateFile(output.file.fileName(), {}, &reason);
    if (made != platform::WriteResult::Written)
        throw output.failed(made == platform::WriteResult::NoRoom, output.file.fileName() + u": "_s + reason);
    output.lock = std::make_unique<platform::FileLock>(output.file.fileName());
    (void)output.lock->tryLock();
    if (!output.file.open(QIODevice::WriteOnly | QIODevice::Unbuffered | QIODevice::ExistingOnly)) {
        QFile::remove(output.file.fileName());
        throw output.failed(false, output.file.errorString());
    }
    crypto_generichash_init(&output.digest, nullptr, 0, digestSize);
    output.packer.reset(ZSTD_createCStream());
    ZSTD_CCtx_setParameter(output.packer.get(), ZSTD_c_compressionLevel, compressionLevel);
    ZSTD_CCtx_setParameter(output.packer.get(), ZSTD_c_checksumFlag, 1);
    if (passphrase.isEmpty())
        return;
    try {
        output.sealer = std::make_unique<BackupCipher::Sealer>(passphrase);
        output.put(output.sealer->header());
    } catch (...) {
        QFile::remove(output.file.fileName());
        throw;
    }
}

BackupWriter::~BackupWriter()
{
    if (!m_output->finished)
        QFile::remove(m_output->file.fileName());
}

void BackupWriter::write(const QByteArray &statements)
{
    m_output->plain += statements.size();
    m_output->pack(statements, false);
}

void BackupWriter::writeAsIs(const QByteArray &bytes)
{
    m_output->put(bytes);
}

void BackupWriter::close()
{
    m_output->pack({}, true);
}

void BackupWriter::finish(const std::optional<BackupManifest> &manifest)
{
    Output &output = *m_output;
    output.file.close();
    QString reason;
    if (!platform::flushToDisk(output.file.fileName(), &reason))
        throw output.failed(false, output.file.fileName() + u": "_s + reason);
    if (QFileInfo::exists(output.path))
        throw ServerError(ServerError::Kind::DumpFailed, u"پرونده %1 از پیش هست؛ نام دیگری برای پشتیبان بدهید."_s.arg(ServerError::shownPath(output.path)),
                          u"the file exists"_s);
    // Before the file itself, so that a file of its own name has its manifest from the first moment on.
    BackupFile backup(output.path);
    if (manifest)
        backup.setManifest(*manifest);
    // It replaces nothing: QFile::rename refuses where there is a file.
    if (!output.file.rename(output.path)) {
        QFile::remove(backup.manifestPath());
        throw output.failed(false, u"cannot rename %1: %2"_s.arg(output.file.fileName(), output.file.errorString()));
    }
    output.finished = true;
    platform::flushToDisk(output.folder());
}

qint64 BackupWriter::plainBytes() const
{
    return m_output->plain;
}

qint64 BackupWriter::fileBytes() const
{
    return m_output->written;
}

QByteArray BackupWriter::digest() const
{
    crypto_generichash_state state = m_output->digest;
    QByteArray bytes(digestSize, Qt::Uninitialized);
    crypto_generichash_final(&state, reinterpret_cast<unsigned char *>(bytes.data()), digestSize);
    return bytes;
}
