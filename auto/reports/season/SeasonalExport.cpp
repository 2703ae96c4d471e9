// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalExport.h"

#include "auto/platform/ModulePlatform.h"
#include "auto/reports/season/SeasonalExportRow.h"
#include "auto/reports/season/SeasonalRow.h"
#include "suite/accounting/taxfile/CForoush.h"
#include "suite/accounting/taxfile/CForoush_Detail.h"
#include "suite/accounting/taxfile/CKharid.h"
#include "suite/accounting/taxfile/CKharid_Detail.h"
#include "suite/accounting/taxfile/CMoshakhasat.h"
#include "suite/accounting/taxfile/KAccessDatabase.h"
#include "suite/accounting/taxfile/KAccessValueError.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/utility/values/Money.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QUuid>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

// Records before those of the list: the company's details and the head.
constexpr int leadingRecords = 2;

void setDetail(SeasonalDetail &detail, const SeasonalExportRow &row, const QString &guid)
{
    detail.m_sGuid = guid;
    detail.m_iGoodsKind = row.goodsKind;
    detail.m_sDescription = row.description;
    detail.m_iSequence = row.sequence;
    detail.m_bReturned = row.isReturned;
    detail.m_sAmount = row.amount;
    detail.m_sTax = row.tax;
    detail.m_sDuties = row.duties;
    detail.m_sDiscount = row.discount;
    detail.m_iPersonKind = row.personKind;
    detail.m_sPostalCode = row.postalCode;
    detail.m_sAreaCode = row.areaCode;
    detail.m_sTel = row.telephone;
    detail.m_sAddress = row.address;
    detail.m_sName = row.name;
    detail.m_sFamily = row.family;
    detail.m_sEconomicCode = row.economicCode;
    detail.m_sNationalCode = row.nationalCode;
    detail.m_iPartyKind = row.partyKind;
    detail.m_iProvinceCode = row.provinceCode;
    detail.m_iCityCode = row.cityCode;
    detail.m_sContractCode = row.contractCode;
    detail.m_sContractDate = row.contractDate;
    detail.m_sDocumentDate = row.documentDate;
}

void writeHead(SeasonalHead &head, const SeasonalExport::Report &report, const QString &guid, const QString &path)
{
    double year = 0;
    head.SetFilePath(path);
    head.Open();
    head.DeleteAllRecords();
    head.AddNew();
    head.m_sGuid = guid;
    head.m_iSeason = report.season + 1;
    head.m_iYear = parseMoney(report.year, &year) ? static_cast<int>(year) : 0;
    head.Update();
    head.Close();
}

void writeDetails(SeasonalDetail &detail, const SeasonalExport::Report &report, const QString &guid, const QString &path)
{
    detail.SetFilePath(path);
    detail.Open();
    detail.DeleteAllRecords();
    for (int row = 0; row < report.rowCount; ++row) {
        detail.AddNew();
        setDetail(detail, SeasonalExportRow::fromCells(report.cells(row)), guid);
        detail.Update();
    }
    detail.Close();
}

QString detailRole(SeasonalExport::Kind kind)
{
    return kind == SeasonalExport::Kind::Sales ? u"Foroush_Detail"_s : u"Kharid_Detail"_s;
}

bool isFull(const QString &folder, qint64 neededBytes)
{
    std::error_code error;
    const std::filesystem::space_info space = std::filesystem::space(QFileInfo(folder).filesystemAbsoluteFilePath(), error);
    return !error && space.available < static_cast<std::uintmax_t>(neededBytes);
}

// Takes the place of an earlier file in one step.
bool moveOver(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemAbsoluteFilePath(), QFileInfo(to).filesystemAbsoluteFilePath(), error);
    return !error;
}

}

SeasonalExport::SeasonalExport(Report report, const QString &moduleFolder)
    : m_report(std::move(report))
    , m_folder(moduleFolder.isEmpty() ? ModulePlatform::moduleFolder() : moduleFolder)
{
}

QString SeasonalExport::fileName(Kind kind, const QString &year, int season)
{
    const QString prefix = kind == Kind::Sales ? u"Foroosh_Fasly_"_s : u"Kharid_Fasly_"_s;
    return prefix + year + u'_' + IToStr(season + 1) + u".mdb"_s;
}

SeasonalExport::Outcome SeasonalExport::check() const
{
    if (!QFileInfo(QDir(m_folder).filePath(KAccessDatabase::templateFileName())).isFile())
        return Outcome::TemplateMissing;
    return CompanyDetails::read().isEmpty() ? Outcome::CompanyEmpty : Outcome::Done;
}

SeasonalExport::Outcome SeasonalExport::run(const QString &folder, const ReportProgress &progress) const
{
    if (const Outcome ready = check(); ready != Outcome::Done)
        return ready;
    const QString name = fileName(m_report.kind, m_report.year, m_report.season);
    const QString target = QDir(folder).filePath(name);
    // A year that would lead out of the folder, and a folder of that name, are detected here and not after all the work.
    if (QFileInfo(name).fileName() != name || name.contains(u'\\') || QFileInfo(target).isDir())
        return Outcome::CopyFailed;
    const QTemporaryDir aside(QDir(folder).filePath(u".TTMS-XXXXXX"_s));
    const QString copy = aside.filePath(name);
    const QString source = QDir(m_folder).filePath(KAccessDatabase::templateFileName());
    if (!aside.isValid() || !QFile::copy(source, copy))
        return isFull(folder, QFileInfo(source).size()) ? Outcome::DiskFull : Outcome::CopyFailed;
    // An installed template may be read-only, and its copy then too.
    if (!QFile::setPermissions(copy, QFile::permissions(copy) | QFile::ReadOwner | QFile::WriteOwner))
        return Outcome::CopyFailed;
    try {
        write(copy, progress);
    } catch (const KAccessCancelled &) {
        return Outcome::Cancelled;
    }
    return moveOver(copy, target) ? Outcome::Done : Outcome::CopyFailed;
}

// The user knows the row and the column of the list, not those of the file.
void SeasonalExport::refuse(const KAccessValueError &error, const QString &value) const
{
    const int row = error.record() - 1;
    const QString title = m_report.titles.value(SeasonalExportRow::columnOf(value));
    if (title.isEmpty() || row < 0 || row >= m_report.rowCount)
        throw error;
    const QString number = u"ردیف "_s + m_report.cells(row).value(SeasonalRow::RowNumber);
    throw error.retold(m_report.subject ? number + u" (%1)"_s.arg(m_report.subject(row)) : number, title.trimmed());
}

void SeasonalExport::write(const QString &path, const ReportProgress &progress) const
{
    KAccessDatabase database(m_folder);
    if (progress) {
        database.setProgress([&](int written) {
            return progress(std::clamp(written - leadingRecords, 0, m_report.rowCount), m_report.rowCount);
        });
    }
    database.Open(path);
    try {
        writeRecords(database, path);
        database.Close();
    } catch (const KAccessValueError &error) {
        refuse(error, database.mapping().valueIn(detailRole(m_report.kind), error.table(), error.column()));
    }
}

void SeasonalExport::writeRecords(KAccessDatabase &database, const QString &path) const
{
    const QString guid = QUuid::createUuid().toString(QUuid::WithoutBraces);
    CMoshakhasat company(&database);
    company.Open();
    company.FillFromProperties();
    company.Close();
    if (m_report.kind == Kind::Sales) {
        CForoush head(&database);
        writeHead(head, m_report, guid, path);
        CForoush_Detail detail(&database);
        writeDetails(detail, m_report, guid, path);
    } else {
        CKharid head(&database);
        writeHead(head, m_report, guid, path);
        CKharid_Detail detail(&database);
        writeDetails(detail, m_report, guid, path);
    }
}
