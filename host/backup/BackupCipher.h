// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

// Encrypts a stream of bytes under a passphrase, and decrypts it: XChaCha20-Poly1305 in pieces, whose key comes from the passphrase by
// Argon2id. The stream begins with a header, which says with what effort, and ends with a piece that is marked as the last one, so
// that neither an altered byte nor a missing end goes unnoticed.
//
//   8 bytes  "TzAutoE1"
//   4        operations of Argon2id      4  memory of it in KiB      (least byte first)
//  16        salt
//  24        header of the cipher's stream
//  17        an empty piece: opens only with the right passphrase
//  32        BLAKE2b of all that, so that a damaged header is no wrong passphrase
//  then pieces of 65536 bytes and 17 more; the last one, marked, may be shorter
namespace BackupCipher {

inline constexpr qsizetype pieceBytes = 65536;
inline constexpr qsizetype addedBytes = 17;
inline constexpr qsizetype headerBytes = 8 + 4 + 4 + 16 + 24 + addedBytes + 32;

// How much work a guess at the passphrase costs.
struct Effort
{
    quint32 operations = 3;
    quint32 memoryKiB = 256 * 1024;
};

// For tests: of what is sealed from now on where no other is asked for.
void setUsualEffort(Effort effort);
Effort usualEffort();

class Sealer
{
public:
    explicit Sealer(const QString &passphrase, Effort effort = usualEffort());
    ~Sealer();
    // To be written before all pieces.
    QByteArray header() const;
    // Every piece but the last one has pieceBytes.
    QByteArray seal(const QByteArray &piece, bool last);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

class Opener
{
public:
    // Throws ServerError WrongPassphrase or BackupDamaged; file is for the message.
    Opener(const QByteArray &header, const QString &passphrase, const QString &file);
    ~Opener();
    // A piece as it was sealed; isLast: no byte follows it in the file. Throws ServerError BackupDamaged.
    QByteArray open(const QByteArray &sealedPiece, bool isLast);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

}
