// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/SampleReporter.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

void SampleReporter::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.error_occurred)
            m_hasFailed = true;
        else if (run.run_type == Run::RT_Iteration && run.iterations > 0)
            add(run.run_name.function_name, run.real_accumulated_time / static_cast<double>(run.iterations) * 1000);
    }
    ConsoleReporter::ReportRuns(runs);
}

void SampleReporter::add(const std::string &name, double value)
{
    m_samples[name].push_back(value);
}

bool SampleReporter::finish() const
{
    const QString path = qEnvironmentVariable("TZ_BENCH_SAMPLES");
    if (path.isEmpty())
        return !m_hasFailed;
    QJsonObject samples;
    for (const auto &[name, values] : m_samples) {
        QJsonArray all;
        for (const double value : values)
            all.append(value);
        samples.insert(QString::fromStdString(name), all);
    }
    QFile file(path);
    const QByteArray text = QJsonDocument(samples).toJson();
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush() && !m_hasFailed;
}
