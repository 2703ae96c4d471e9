// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryFolder.h"
#include "tests/support/RegisteredTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

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
        QCOMPARE(in(m_dir->path()), QStringList({u".web.new"_s, u"web"_s}));
        write("third");
        QCOMPARE(content(target() + u"/index.html"_s), "third");
        QCOMPARE(in(m_dir->path()), QStringList({u"web"_s}));
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
