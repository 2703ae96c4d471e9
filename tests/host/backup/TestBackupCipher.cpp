// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupCipher.h"
#include "host/server/ServerError.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr BackupCipher::Effort quick{1, 8192};
const QString rightPassphrase = u"گذرواژه خوب ۱۲۳"_s;

QByteArray sealedOf(const QByteArray &plain, const QString &passphrase = rightPassphrase)
{
    BackupCipher::Sealer sealer(passphrase, quick);
    QByteArray sealed = sealer.header();
    qsizetype at = 0;
    for (; plain.size() - at > BackupCipher::pieceBytes; at += BackupCipher::pieceBytes)
        sealed += sealer.seal(plain.mid(at, BackupCipher::pieceBytes), false);
    return sealed + sealer.seal(plain.mid(at), true);
}

QByteArray openedOf(const QByteArray &sealed, const QString &passphrase = rightPassphrase)
{
    constexpr qsizetype piece = BackupCipher::pieceBytes + BackupCipher::addedBytes;
    BackupCipher::Opener opener(sealed.left(BackupCipher::headerBytes), passphrase, u"file"_s);
    QByteArray plain;
    qsizetype at = BackupCipher::headerBytes;
    do {
        plain += opener.open(sealed.mid(at, piece), at + piece >= sealed.size());
        at += piece;
    } while (at < sealed.size());
    return plain;
}

// The kind of error, or nothing.
std::optional<ServerError::Kind> failureOf(const QByteArray &sealed, const QString &passphrase = rightPassphrase)
{
    try {
        static_cast<void>(openedOf(sealed, passphrase));
    } catch (const ServerError &error) {
        return error.kind();
    }
    return std::nullopt;
}

}

class TestBackupCipher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsSealedOpens_data()
    {
        QTest::addColumn<int>("bytes");
        for (const int bytes : {0, 1, 65535, 65536, 65537, 131072, 200000})
            QTest::addRow("%d bytes", bytes) << bytes;
    }

    void whatIsSealedOpens()
    {
        QFETCH(int, bytes);
        QByteArray plain(bytes, Qt::Uninitialized);
        for (int index = 0; index < bytes; ++index)
            plain[index] = static_cast<char>(index * 31);
        const QByteArray sealed = sealedOf(plain);
        QCOMPARE(openedOf(sealed), plain);
        QVERIFY(bytes < 100 || !sealed.contains(plain.left(16)));
    }

    void twoFilesOfOnePassphraseHaveNothingInCommon() { QVERIFY(sealedOf("same") != sealedOf("same")); }

    void wrongPassphraseIsTold()
    {
        QCOMPARE(failureOf(sealedOf("rows"), u"other"_s), ServerError::Kind::WrongPassphrase);
        QCOMPARE(failureOf(sealedOf("rows"), QString()), ServerError::Kind::WrongPassphrase);
    }

    // One code point or two.
    void passphraseMayBeTypedEitherWay() { QCOMPARE(openedOf(sealedOf("rows", u"caf\u00e9"_s), u"cafe\u0301"_s), QByteArray("rows")); }

    void everyAlteredByteIsNoticed()
    {
        const QByteArray sealed = sealedOf("rows");
        for (qsizetype at = 0; at < sealed.size(); ++at) {
            QByteArray altered = sealed;
            altered[at] = static_cast<char>(altered[at] ^ 1);
            QVERIFY2(failureOf(altered) == ServerError::Kind::BackupDamaged, qPrintable(QString::number(at)));
        }
    }

    void cutOffIsNoticed()
    {
        const QByteArray sealed = sealedOf(QByteArray(200000, 'x'));
        constexpr qsizetype piece = BackupCipher::pieceBytes + BackupCipher::addedBytes;
        for (const qsizetype bytes : {qsizetype(0), qsizetype(10), BackupCipher::headerBytes, BackupCipher::headerBytes + piece, BackupCipher::headerBytes + 2 * piece, sealed.size() - 1})
            QVERIFY2(failureOf(sealed.left(bytes)) == ServerError::Kind::BackupDamaged, qPrintable(QString::number(bytes)));
        QCOMPARE(failureOf(sealed + 'x'), ServerError::Kind::BackupDamaged);
    }

    // A header that asks for a gigabyte of memory a thousand times.
    void unreasonableEffortIsRefused()
    {
        QByteArray sealed = sealedOf("rows");
        sealed.replace(12, 4, QByteArray(4, '\xff'));
        QCOMPARE(failureOf(sealed), ServerError::Kind::BackupDamaged);
    }
};

static const RegisteredTest<TestBackupCipher> registeredBackupCipher;
#include "TestBackupCipher.moc"
