// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/today/TodayReader.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/today/TodaySettings.h"
#include "suite/db/connection/CMySQLException.h"

#include <QLoggingCategory>
#include <QThread>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcToday, "tz.today")

// What is to be read, chosen on the windows' thread, where the rights are.
struct Task
{
    QList<TodaySource> sources;
    TodayCards::Figures figures;
    qint32 userID = 0;
    bool tellsIncome = false;
    int database = 0;
};

bool mayBeTold(const TodaySource &source)
{
    const auto isReadable = [](const QString &form) { return KSecurity::IsGranted(form, KSecurity::Read); };
    return (source.form.isEmpty() || KSecurity::IsGranted(source.form, source.right)) && std::ranges::all_of(source.alsoRead, isReadable);
}

Task taskOfUser(int database)
{
    Task task;
    const QList<TodaySource> sources = TodayCards::sources();
    for (const TodaySource &source : sources) {
        if (mayBeTold(source))
            task.sources.append(source);
    }
    if (TodayCards::figures() && KSecurity::IsGranted(TodayCards::figuresForm(), KSecurity::Read))
        task.figures = TodayCards::figures();
    task.userID = GetDBSetting()->GetUserID();
    task.tellsIncome = KSecurity::IsGranted(TodayCards::incomeForm(), KSecurity::Access);
    task.database = database;
    return task;
}

TodayFrame frameOf(const Task &task)
{
    QStringList sections{TodaySettings::section()};
    for (const TodaySource &source : task.sources) {
        if (!source.settingsSection.isEmpty())
            sections.append(source.settingsSection);
    }
    const auto read = std::make_shared<const OfficeSettings>(OfficeSettings::read(sections, task.database));
    const OfficeSettings &settings = *read;
    return {.today = settings.serverTime().date(),
            .userID = task.userID,
            .decimals = settings.moneyDecimals(),
            .unsettledDays = TodaySettings::unsettledDays(settings),
            .standingDays = TodaySettings::standingDays(settings),
            .tellsIncome = task.tellsIncome,
            .database = task.database,
            .settings = read};
}

TodayState run(const Task &task)
{
    TodayState state;
    try {
        state.frame = frameOf(task);
        for (const TodaySource &source : task.sources) {
            const QList<TodayContent> contents = source.read(state.frame);
            for (qsizetype card = 0; card < source.cards.size(); ++card)
                state.cards.insert(source.cards.at(card).id, contents.value(card));
        }
        if (task.figures)
            state.figures = task.figures(state.frame);
    } catch (const CMySQLException &error) {
        state.trouble = error.GetErrorMessage();
        qCWarning(lcToday).noquote() << "the day was not read:" << state.trouble;
    }
    return state;
}

}

TodayReader::TodayReader(const Done &done)
    : m_done(done)
{
}

TodayReader::~TodayReader()
{
    if (m_thread)
        m_thread->wait();
}

void TodayReader::read()
{
    if (!GetDBSetting()->IsLoggedIn())
        return;
    if (m_thread) {
        m_isAskedAgain = true;
        return;
    }
    const auto state = std::make_shared<TodayState>();
    m_thread.reset(QThread::create([task = taskOfUser(0), state] { *state = run(task); }));
    QObject::connect(m_thread.get(), &QThread::finished, &m_here, [this, state] {
        // The thread object tells of its own end.
        m_thread.release()->deleteLater();
        m_done(*state);
        if (std::exchange(m_isAskedAgain, false))
            read();
    });
    m_thread->start(QThread::LowPriority);
}

TodayState TodayReader::readNow(int database)
{
    return run(taskOfUser(database));
}

TodayFrame TodayReader::frame(int database)
{
    return frameOf(taskOfUser(database));
}
