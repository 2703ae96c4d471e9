// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryFolder.h"
#include "tests/support/OrdinaryRights.h"
#include "tests/support/RegisteredTest.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestGalleryFolder : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;

    QString target() const { return m_dir->filePath(u"web"_s); }

    static void put(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    static QByteArray content(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
    static QStringList in(const QString &folder) { return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name); }

    void write(const QByteArray &page)
    {
        GalleryFolder folder(target());
        folder.add(u"index.html"_s, page);
        folder.replace();
    }

private Q_SLOTS:
    void init() { m_dir = std::make_unique<QTemporaryDir>(); }

    void newOneTakesThePlaceOfTheOld()
    {
        {
            GalleryFolder folder(target());
            folder.add(u"index.html"_s, "first");
            folder.add(u"1.jpg"_s, "picture");
            QCOMPARE(folder.size(), 12);
            QVERIFY(!QFile::exists(target()));
            folder.replace();
        }
        write("second");
        QCOMPARE(content(target() + u"/index.html"_s), "second");
        QCOMPARE(in(target()), QStringList({GalleryFolder::listName(), u"index.html"_s}));
        QCOMPARE(in(m_dir->path()), QStringList({u"web"_s}));
    }

    void whatOthersPutThereStays()
    {
        write("first");
        put(target() + u"/map.png"_s, "map");
        QVERIFY(QDir(target()).mkdir(u"old"_s));
        put(target() + u"/old/price.txt"_s, "price");
        write("second");
        QCOMPARE(content(target() + u"/map.png"_s), "map");
        QCOMPARE(content(target() + u"/old/price.txt"_s), "price");
        QCOMPARE(content(target() + u"/index.html"_s), "second");
        QCOMPARE(in(m_dir->path()), QStringList({u"web"_s}));
    }

    void foldersOfOthersAreRefused()
    {
        QVERIFY(QDir(m_dir->path()).mkdir(u"web"_s));
        put(target() + u"/letter.odt"_s, "letter");
        QVERIFY_THROWS_EXCEPTION(GalleryFolder::Failure, write("mine"));
        QCOMPARE(in(target()), QStringList({u"letter.odt"_s}));
        QCOMPARE(in(m_dir->path()), QStringList({u"web"_s}));
    }

    void emptyFolderIsTaken()
    {
        QVERIFY(QDir(m_dir->path()).mkdir(u"web"_s));
        write("first");
        QCOMPARE(content(target() + u"/index.html"_s), "first");
    }

    void givenUpLeavesTheOld()
    {
        write("first");
        {
            GalleryFolder folder(target());
            folder.add(u"index.html"_s, "second");
        }
        QCOMPARE(content(target() + u"/index.html"_s), "first");
        QCOMPARE(in(m_dir->path()), QStringList({u"web"_s}));
    }

    void namesLeadNowhereElse_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("above") << u"../x"_s;
        QTest::newRow("absolute") << u"/tmp/x"_s;
        QTest::newRow("parent") << u".."_s;
        QTest::newRow("the list itself") << GalleryFolder::listName();
        QTest::newRow("none") << QString();
        QTest::newRow("two lines") << u"a\nb"_s;
    }
    void namesLeadNowhereElse()
    {
        QFETCH(QString, name);
        GalleryFolder folder(target());
        QVERIFY_THROWS_EXCEPTION(GalleryFolder::Failure, folder.add(name, "x"));
    }

    void forgedListDeletesNothingElsewhere()
    {
        put(m_dir->filePath(u"letter.odt"_s), "letter");
        write("first");
        put(target() + u'/' + GalleryFolder::listName(), "index.html\n../letter.odt\n" + m_dir->filePath(u"letter.odt"_s).toUtf8() + '\n');
        write("second");
        QCOMPARE(content(m_dir->filePath(u"letter.odt"_s)), "letter");
    }

    // The program dies half-way: the old one is whole, and the next one clears away what was left.
    void killedLeavesTheOldWhole()
    {
        write("first");
        const pid_t child = ::fork();
        if (child == 0) {
            GalleryFolder folder(target());
            folder.add(u"index.html"_s, "second");
            ::_exit(7);
        }
        int status = 0;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QVERIFY(WIFEXITED(status) && WEXITSTATUS(status) == 7);
        QCOMPARE(content(target() + u"/index.html"_s), "first");
        QCOMPARE(in(m_dir->path()), QStringList({u".web.lock"_s, u".web.new"_s, u"web"_s}));
        write("third");
        QCOMPARE(content(target() + u"/index.html"_s), "third");
        QCOMPARE(in(m_dir->path()), QStringList({u"web"_s}));
    }

    // Killed at whatever moment, the folder holds one whole gallery, what somebody else put there, and the next one goes through.
    void killedAtAnyMomentLeavesAWholeOne()
    {
        constexpr int files = 6;
        constexpr int rounds = 24;
        const auto writeAll = [&](const QByteArray &mark) {
            GalleryFolder folder(target());
            folder.add(u"index.html"_s, mark);
            for (int i = 0; i < files; ++i)
                folder.add(u"%1.jpg"_s.arg(i), mark);
            folder.replace();
        };
        QElapsedTimer whole;
        whole.start();
        writeAll("old");
        const double microseconds = double(whole.nsecsElapsed()) / 1000;
        put(target() + u"/map.png"_s, "map");
        int finished = 0;
        for (int round = 0; round < rounds; ++round) {
            const pid_t child = ::fork();
            if (child == 0) {
                for (;;)
                    writeAll("new");
            }
            ::usleep(useconds_t(microseconds * 3 * round / rounds)); // from its beginning to after a first replacement
            QCOMPARE(::kill(child, SIGKILL), 0);
            int status = 0;
            QCOMPARE(::waitpid(child, &status, 0), child);
            QVERIFY(WIFSIGNALED(status));
            // The exchange takes the other's file along for a moment; the next start brings it back.
            {
                GalleryFolder cleared(target());
            }
            QCOMPARE(content(target() + u"/map.png"_s), "map");
            const QByteArray mark = content(target() + u"/index.html"_s);
            QVERIFY(mark == "old" || mark == "new");
            for (int i = 0; i < files; ++i)
                QCOMPARE(content(target() + u"/%1.jpg"_s.arg(i)), mark);
            QCOMPARE(in(m_dir->path()), QStringList({u"web"_s}));
            finished += mark == "new" ? 1 : 0;
            writeAll("old");
        }
        qInfo("of %d kills %d came after a first replacement", rounds, finished);
        QVERIFY(finished > 0 && finished < rounds);
    }

    void oneAtATimeWrites()
    {
        write("first");
        {
            GalleryFolder folder(target());
            folder.add(u"index.html"_s, "second");
            QString told;
            try {
                GalleryFolder other(target());
            } catch (const GalleryFolder::Failure &failure) {
                told = QString::fromUtf8(failure.what());
            }
            QVERIFY(told.contains(u"همین حالا خروجی دیگری"_s));
            folder.replace();
        }
        QCOMPARE(content(target() + u"/index.html"_s), "second");
        write("third");
        QCOMPARE(in(m_dir->path()), QStringList({u"web"_s}));
    }

    void droppedFilesAreNotThere()
    {
        {
            GalleryFolder folder(target());
            folder.add(u"index.html"_s, "page");
            folder.add(u"1.jpg"_s, "picture");
            folder.drop(u"1.jpg"_s);
            QCOMPARE(folder.size(), 4);
            folder.replace();
        }
        QCOMPARE(in(target()), QStringList({GalleryFolder::listName(), u"index.html"_s}));
        write("second");
        QCOMPARE(content(target() + u"/index.html"_s), "second");
    }

    // No more may be written than a bound, as on a disk that is full.
    void fullDiskLeavesTheOldAndSaysSo()
    {
        write("first");
        ::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
        QString told;
        {
            rlimit bound = before;
            bound.rlim_cur = 4096;
            QCOMPARE(::setrlimit(RLIMIT_FSIZE, &bound), 0);
            try {
                write(QByteArray(100'000, 'x'));
            } catch (const GalleryFolder::Failure &failure) {
                told = QString::fromUtf8(failure.what());
            }
            QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);
        }
        QVERIFY2(told.contains(u"روی دیسک جا نیست"_s), qPrintable(told));
        QCOMPARE(content(target() + u"/index.html"_s), "first");
        QCOMPARE(in(m_dir->path()), QStringList({u"web"_s}));
    }

    void closedFolderIsToldInTheUsersWords()
    {
        QVERIFY(QFile::setPermissions(m_dir->path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
        QString told;
        {
            const OrdinaryRights ordinary;
            try {
                write("first");
            } catch (const GalleryFolder::Failure &failure) {
                told = QString::fromUtf8(failure.what());
            }
        }
        QVERIFY(QFile::setPermissions(m_dir->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QVERIFY2(told.contains(u"اجازه نوشتن"_s), qPrintable(told));
        QCOMPARE(in(m_dir->path()), QStringList());
    }

    // Of a file system that exchanges no folders: the kill came between its two steps.
    void retiredOneComesBack()
    {
        write("first");
        QVERIFY(QDir().rename(target(), m_dir->filePath(u".web.old"_s)));
        {
            GalleryFolder folder(target());
        }
        QCOMPARE(content(target() + u"/index.html"_s), "first");
    }

    void linkStaysALink()
    {
        QVERIFY(QDir(m_dir->path()).mkdir(u"real"_s));
        QVERIFY(QFile::link(m_dir->filePath(u"real"_s), target()));
        write("first");
        QVERIFY(QFileInfo(target()).isSymLink());
        QCOMPARE(content(m_dir->filePath(u"real/index.html"_s)), "first");
    }
};

static const RegisteredTest<TestGalleryFolder> registeredGalleryFolder;
#include "TestGalleryFolder.moc"
