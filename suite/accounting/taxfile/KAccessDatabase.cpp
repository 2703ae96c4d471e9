// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/KAccessDatabase.h"

#include "suite/accounting/taxfile/AccessLine.h"
#include "suite/accounting/taxfile/KAccessValueError.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcAccess, "tz.access")

constexpr qint64 pieceOfInput = 1 << 16;
// What may wait for a helper that is slower than this program.
constexpr qint64 largestBacklog = 4 * pieceOfInput;
constexpr int waitMilliseconds = 20;
constexpr int millisecondsBetween = 50;
constexpr qsizetype longestAnswer = 1 << 16;

QString javaProgram()
{
    const QString name = u"java"_s;
    const QString found = QStandardPaths::findExecutable(name);
    if (!found.isEmpty())
        return found;
    const QString home = qEnvironmentVariable("JAVA_HOME");
    return home.isEmpty() ? QString() : QStandardPaths::findExecutable(name, {QDir(home).filePath(u"bin"_s)});
}

[[noreturn]] void failWithoutJava()
{
    throw KAccountingError(u"تهیه این فایل به جاوا نیاز دارد که روی این رایانه پیدا نشد. لطفا بسته default-jre-headless را نصب نمایید."_s);
}

// The helper reads file names as the environment's locale says, so that must know all letters. It lives shortly and holds
// little at a time: the simple collector starts soonest.
void prepare(QProcess &helper, const QString &java, const QString &jar)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    helper.setProcessEnvironment(environment);
    helper.setProgram(java);
    helper.setArguments({u"-XX:+UseSerialGC"_s, u"-Xshare:auto"_s, u"-Xmx96m"_s,
                         u"-jar"_s, jar});
}

struct Trouble
{
    const char *code;
    const char16_t *text; // %1, %2 ...: the details in the helper's order
};

// Messages of the helper that the user can do something about.
constexpr Trouble troubles[] = {
    {"no-table", u"فایل مالیات جدول «%1» را ندارد. لطفا نام جدول را در TTMS.mapping.json بررسی نمایید."},
    {"no-field", u"جدول «%1» از فایل مالیات ستون «%2» را ندارد. لطفا نام ستون را در TTMS.mapping.json بررسی نمایید."},
    {"unsupported-field", u"در ستون «%2» از جدول «%1» فایل مالیات نمی توان نوشت."},
    {"damaged", u"فایل اکسس مالیات خراب است و خوانده نمی شود. لطفا TTMS.mdb را با نسخه سالم آن جایگزین نمایید."},
    {"disk-full", u"فضای دیسک این پوشه پر است. لطفا فضا آزاد نمایید یا پوشه دیگری انتخاب کنید."},
    {"memory", u"حافظه رایانه برای نوشتن فایل مالیات کافی نبود."},
};

// Of a helper that ends and says nothing, which it never does.
QString brokenHelperText()
{
    return u"برنامه نوشتن فایل مالیات (%1) خراب است یا اجرا نمی شود. لطفا بسته tzauto را دوباره نصب نمایید."_s.arg(
        KAccessDatabase::helperFileName());
}

}

KAccessCancelled::KAccessCancelled()
    : KAccountingError(u"نوشتن فایل به درخواست شما متوقف شد."_s)
{
}

KAccessCancelled::~KAccessCancelled() = default;

KAccessDatabase::KAccessDatabase(const QString &moduleFolder)
    : m_folder(moduleFolder)
{
}

KAccessDatabase::~KAccessDatabase()
{
    stop();
}

QString KAccessDatabase::helperFileName()
{
    return u"taxfile/tztaxfile.jar"_s;
}

QString KAccessDatabase::mappingFileName()
{
    return u"TTMS.mapping.json"_s;
}

QString KAccessDatabase::templateFileName()
{
    return u"TTMS.mdb"_s;
}

void KAccessDatabase::setProgress(Progress progress)
{
    m_progress = std::move(progress);
}

void KAccessDatabase::Open(const QString &path)
{
    stop();
    m_mapping = AccessMapping::read(QDir(m_folder).filePath(mappingFileName()));
    const QString jar = QDir(m_folder).filePath(helperFileName());
    if (!QFileInfo(jar).isFile())
        throw KAccountingError(
            u"برنامه نوشتن فایل مالیات (%1) پیدا نشد. لطفا بسته tzauto را دوباره نصب نمایید."_s.arg(helperFileName()));
    const QString java = javaProgram();
    if (java.isEmpty())
        failWithoutJava();
    m_path = path;
    m_outgoing.clear();
    m_answers.clear();
    m_error.clear();
    m_selected = nullptr;
    m_saved = m_written = 0;
    m_done = -1;
    m_helper = std::make_unique<QProcess>();
    prepare(*m_helper, java, jar);
    m_helper->start();
    if (!m_helper->waitForStarted()) {
        m_helper.reset();
        failWithoutJava();
    }
    m_sinceProgress.start();
    AccessLine line("open");
    line.append(QFileInfo(path).absoluteFilePath());
    send(line.finished());
}

bool KAccessDatabase::IsOpen() const
{
    return m_helper != nullptr;
}

void KAccessDatabase::Close()
{
    if (!m_helper)
        return;
    send(AccessLine("end").finished());
    drainTo(0);
    m_helper->closeWriteChannel();
    while (m_helper->state() != QProcess::NotRunning)
        wait(waitMilliseconds);
    readAnswers();
    if (m_helper->exitStatus() != QProcess::NormalExit || m_helper->exitCode() != 0 || m_done != m_saved)
        failAsTheHelperSaid();
    stop();
}

qint64 KAccessDatabase::helperProcess() const
{
    return m_helper ? m_helper->processId() : 0;
}

void KAccessDatabase::send(const QByteArray &line)
{
    if (!m_helper)
        throw KAccountingError(u"فایل مالیات باز نیست."_s);
    m_outgoing.append(line);
    if (m_outgoing.size() >= pieceOfInput)
        drainTo(largestBacklog);
}

void KAccessDatabase::drainTo(qint64 bytes)
{
    m_helper->write(m_outgoing);
    m_outgoing.clear();
    wait(0);
    while (m_helper->bytesToWrite() > bytes) {
        if (m_helper->state() == QProcess::NotRunning)
            failAsTheHelperSaid();
        wait(waitMilliseconds);
    }
}

void KAccessDatabase::wait(int milliseconds)
{
    if (m_helper->bytesToWrite() > 0)
        m_helper->waitForBytesWritten(milliseconds);
    else
        m_helper->waitForFinished(milliseconds);
    readAnswers();
    if (!m_progress || m_sinceProgress.elapsed() < millisecondsBetween)
        return;
    m_sinceProgress.restart();
    if (m_progress(m_written))
        return;
    stop();
    throw KAccessCancelled();
}

void KAccessDatabase::readAnswers()
{
    m_answers.append(m_helper->readAllStandardOutput());
    for (qsizetype end = m_answers.indexOf('\n'); end >= 0; end = m_answers.indexOf('\n')) {
        const QByteArray line = m_answers.left(end);
        m_answers.remove(0, end + 1);
        const qsizetype word = line.indexOf('\t');
        const QByteArray rest = line.mid(word + 1);
        if (line.startsWith("written\t"))
            m_written = rest.toInt();
        else if (line.startsWith("done\t"))
            m_done = rest.toInt();
        else if (line.startsWith("error\t"))
            m_error = rest;
    }
    if (m_answers.size() > longestAnswer)
        failAsTheHelperSaid();
}

void KAccessDatabase::stop()
{
    if (!m_helper)
        return;
    if (m_helper->state() != QProcess::NotRunning) {
        m_helper->kill();
        m_helper->waitForFinished();
    }
    m_helper.reset();
    m_selected = nullptr;
}

void KAccessDatabase::failAsTheHelperSaid()
{
    if (m_helper->state() == QProcess::Running && m_error.isEmpty())
        m_helper->kill();
    m_helper->waitForFinished();
    m_answers.append(m_helper->readAllStandardOutput().left(longestAnswer));
    const qsizetype last = m_answers.lastIndexOf("error\t");
    if (m_error.isEmpty() && last >= 0)
        m_error = m_answers.mid(last + 6).split('\n').first();
    const QStringList words = AccessLine::words(m_error);
    qCWarning(lcAccess).noquote() << "the helper ended with" << m_helper->exitCode() << words
                                  << m_helper->readAllStandardError().left(longestAnswer);
    const bool endedByItself = m_helper->exitStatus() == QProcess::NormalExit;
    stop();
    if (m_error.isEmpty() && endedByItself)
        throw KAccountingError(brokenHelperText());
    if (KAccessValueError::isAbout(words.first()))
        throw KAccessValueError(words);
    for (const Trouble &trouble : troubles) {
        if (words.first() != QLatin1StringView(trouble.code))
            continue;
        QString text = QString::fromUtf16(trouble.text);
        for (qsizetype i = 1; i < words.size(); ++i)
            text.replace(u'%' + QString::number(i), words.at(i));
        throw KAccountingError(text);
    }
    throw KAccountingError(u"نوشتن فایل مالیات ممکن نشد. لطفا پوشه و فضای خالی دیسک را بررسی نمایید."_s);
}
