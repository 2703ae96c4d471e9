// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// One contract printed: the template with its marks, a plan of twelve rows and every field of the three batches (87 values) filled and saved, and by the bare
// library the same template unpacked and packed again, which is the least that any program would have to do. Both come to
// the disk the same way, as waiting for it takes longer than either. A mail merge by python-docx, which keeps every part and
// makes no plan, stands beside them.

#include "bench/SampleReporter.h"
#include "bench/Trial.h"
#include "bench/WorkProcess.h"

#include "auto/contracts/printing/ContractMergeFields.h"
#include "auto/contracts/printing/PlanMergeFields.h"
#include "suite/utility/documents/KMSWord.h"

#include <QCoreApplication>
#include <QDate>
#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>

#include <zip.h>

#include <deque>

using namespace Qt::StringLiterals;

namespace {

constexpr int fieldCount = 87;

const QString templatePath = u"" TZ_BENCH_TEMPLATES "/AutoInstallment.docx"_s;

QString outputPath(const QTemporaryDir &folder)
{
    return folder.filePath(u"contract.docx"_s);
}

// The office's own list of fields with a value of ordinary length in each.
ContractMergeBatches batches()
{
    const RecordValues nobody = [](QStringView) { return QVariant(); };
    ContractMergeBatches made = contractMergeFields({nobody, nobody, nobody, 0});
    for (MergeBatch &batch : made)
        for (MergeField &field : batch)
            field.value = u"تهران، خیابان آزادی، 12,500,000"_s;
    return made;
}

// Every part stays, and a plan of a year.
DocumentParts parts()
{
    DocumentParts parts;
    parts.tables = {planTable(QList<InstalmentForPrinting>(12, {1, QDate(2026, 12, 1), 610'000'000, QString(), QString()}), 0, u"ریال"_s)};
    return parts;
}

void fill(benchmark::State &state)
{
    const QTemporaryDir folder;
    const ContractMergeBatches values = batches();
    for (auto _ : state) {
        KMSWord word;
        int given = 0, filled = 0;
        bool done = word.Init() && word.OpenDocument(templatePath, 1) && word.SetParts(parts());
        for (const MergeBatch &batch : values) {
            QStringList names, texts;
            for (const MergeField &field : batch) {
                names.append(field.name);
                texts.append(field.value);
            }
            given += static_cast<int>(names.size());
            filled += word.SetFieldsValue(names, texts, static_cast<int>(names.size()));
        }
        // What belongs to no batch.
        const QStringList rest = word.GetFields().GetNames();
        static_cast<void>(word.SetFieldsValue(rest, QStringList(rest.size(), u"نمایشگاه آریا"_s), static_cast<int>(rest.size())));
        done = done && word.GetFields().GetCount() == 0 && word.SaveAs(outputPath(folder));
        if (!done || given != fieldCount || filled == 0)
            state.SkipWithError("the contract was not filled");
        word.Quit();
    }
}

void zipAgain(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QByteArray from = QFile::encodeName(templatePath);
    for (auto _ : state) {
        zip_t *source = zip_open(from.constData(), ZIP_RDONLY, nullptr);
        zip_source_t *packed = zip_source_buffer_create(nullptr, 0, 0, nullptr);
        zip_source_keep(packed);
        zip_t *target = zip_open_from_source(packed, ZIP_TRUNCATE, nullptr);
        std::deque<QByteArray> contents;
        const zip_int64_t count = zip_get_num_entries(source, 0);
        for (zip_int64_t i = 0; i < count; ++i) {
            zip_stat_t stat;
            zip_stat_index(source, static_cast<zip_uint64_t>(i), 0, &stat);
            QByteArray &content = contents.emplace_back(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
            zip_file_t *file = zip_fopen_index(source, static_cast<zip_uint64_t>(i), 0);
            zip_fread(file, content.data(), stat.size);
            zip_fclose(file);
            zip_file_add(target, stat.name, zip_source_buffer(target, content.constData(), stat.size, 0), 0);
        }
        bool done = count > 0 && zip_close(target) == 0;
        zip_discard(source);
        zip_stat_t size;
        done = done && zip_source_stat(packed, &size) == 0 && zip_source_open(packed) == 0;
        QByteArray bytes(done ? static_cast<qsizetype>(size.size) : 0, Qt::Uninitialized);
        done = done && zip_source_read(packed, bytes.data(), size.size) == static_cast<zip_int64_t>(size.size);
        zip_source_free(packed);
        QSaveFile file(outputPath(folder));
        if (!done || !file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
            state.SkipWithError("the template was not packed");
    }
}

void mailMerge(benchmark::State &state)
{
    const QTemporaryDir folder;
    const auto peer = WorkProcess::peer(u"mail_merge.py"_s, {templatePath, outputPath(folder), u"تهران، خیابان آزادی، 12,500,000"_s});
    for (auto _ : state) {
        if (!peer->work())
            state.SkipWithError("the contract was not merged");
    }
}

}

BENCHMARK(mailMerge)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(zipAgain)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(fill)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.finish() ? 0 : 1;
}
