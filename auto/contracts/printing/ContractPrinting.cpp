// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractPrinting.h"

#include "auto/platform/ModulePlatform.h"
#include "auto/contracts/instalments/PlanFollowing.h"
#include "auto/contracts/printing/ContractFilling.h"
#include "auto/contracts/printing/ContractTemplates.h"
#include "auto/contracts/printing/FiledContract.h"
#include "auto/contracts/printing/KeptTemplate.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/utility/documents/KMSWord.h"
#include "suite/utility/values/TemporaryFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcPrinting, "tzauto.printing")

// A template out of the database as the file that it is read from, for as long as it is needed.
class PrivateCopy
{
public:
    PrivateCopy(const QString &temporary, const QString &name, const QByteArray &content)
        : m_folder(TemporaryFolders::make(TemporaryFolders::Purpose::Contract, temporary))
    {
        QFile file(QDir(m_folder).filePath(CTblFileDocs::safeFileName(name)));
        if (!m_folder.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush())
            m_path = file.fileName();
    }
    ~PrivateCopy()
    {
        if (!m_folder.isEmpty())
            TemporaryFolders::remove(m_folder);
    }
    PrivateCopy(const PrivateCopy &) = delete;
    PrivateCopy &operator=(const PrivateCopy &) = delete;

    // Empty where nothing could be written.
    QString path() const { return m_path; }

private:
    QString m_folder;
    QString m_path;
};

}

ContractPrinting::ContractPrinting(Dialogs dialogs, Places places)
    : m_dialogs(std::move(dialogs))
    , m_places(std::move(places))
{
    if (m_places.templates.isEmpty())
        m_places.templates = defaultTemplateFolder();
    if (m_places.temporary.isEmpty())
        m_places.temporary = QDir::tempPath();
}

QString ContractPrinting::templateName(int contractType)
{
    static const std::array names = {u"AutoMbayh.docx"_s, u"AutoRent.docx"_s,
                                     u"AutoInstallment.docx"_s};
    const auto position = static_cast<std::size_t>(contractType);
    return contractType >= 0 && position < names.size() ? names[position] : QString();
}

QString ContractPrinting::letterName()
{
    return u"AutoLetter.docx"_s;
}

QString ContractPrinting::defaultTemplateFolder()
{
    return QDir(ModulePlatform::moduleFolder()).filePath(u"AutomobileDocx"_s);
}

bool ContractPrinting::print(int contractID)
{
    CTblAutomobilContracts contract;
    if (contractID <= 0 || !contract.IsRecordExist(u"iID"_s, contractID))
        return false;
    const QStringList disagreement = m_dialogs.goOn ? PlanFollowing::disagreement(contract) : QStringList();
    if (!disagreement.isEmpty() && !m_dialogs.goOn(disagreement.join(u'\n')))
        return false;
    if (const QString notice = m_dialogs.tell ? FiledContract::notice(contract) : QString(); !notice.isEmpty())
        m_dialogs.tell(notice);
    const int type = contract.m_iContractType;
    const QString name = templateName(type);
    if (name.isEmpty())
        return printChosen(contract);
    const ContractTemplates::Held own = ContractTemplates::inUse(type, contract.database());
    if (own.id > 0) {
        const PrivateCopy copy(m_places.temporary, name, own.file);
        if (!copy.path().isEmpty())
            return fillAndOpen(contract, copy.path(), false);
        m_dialogs.warn(Trouble::NotSaved);
        return false;
    }
    const QString path = QDir(m_places.templates).filePath(name);
    return QFileInfo(path).isFile() ? fillAndOpen(contract, path, false) : printChosen(contract);
}

bool ContractPrinting::printChosen(CTblAutomobilContracts &contract)
{
    m_dialogs.warn(Trouble::TemplateMissing);
    QString proposed;
    std::optional<PrivateCopy> own;
    if (templateName(contract.m_iContractType).isEmpty() && m_dialogs.chooseLetter) {
        const ContractTemplates::Held held = ContractTemplates::inUse(ContractTemplates::letter, contract.database());
        const QString supplied = QDir(m_places.templates).filePath(letterName());
        if (held.id > 0)
            proposed = own.emplace(m_places.temporary, held.name, held.file).path();
        else if (QFileInfo(supplied).isFile())
            proposed = supplied;
    }
    const QString chosen = proposed.isEmpty() ? m_dialogs.chooseTemplate() : m_dialogs.chooseLetter(proposed);
    if (chosen.isEmpty())
        return false;
    // What was proposed is kept already.
    const bool isNew = proposed.isEmpty() || QFileInfo(chosen) != QFileInfo(proposed);
    return fillAndOpen(contract, chosen, isNew);
}

// The office's own from now on. What keeps it from being so keeps nobody from printing.
void ContractPrinting::keep(const CTblAutomobilContracts &contract, const QString &path)
{
    const int type = contract.m_iContractType;
    const bool isKnown = type >= 0 && type < ContractTemplates::types;
    if (!isKnown)
        return;
    try {
        const qint32 before = ContractTemplates::keyInUse(type, contract.database());
        // Where the type has a template, it is asked for only because there is none; one that stands there by now is another desk's.
        const qint32 seen = type == ContractTemplates::letter ? before : 0;
        ContractTemplates::use(type, QFileInfo(path).fileName(), ContractTemplates::read(path), u"هنگام چاپ انتخاب شد"_s, seen, contract.database());
    } catch (const KAccountingError &error) {
        qCWarning(lcPrinting) << "the chosen template is not kept:" << error.what();
    }
}

bool ContractPrinting::fillAndOpen(CTblAutomobilContracts &contract, const QString &path, bool chosen)
{
    const QString name = templateName(contract.m_iContractType);
    KeptTemplate kept;
    if (!QFile(path).open(QIODevice::ReadOnly) && chosen)
        return false;
    const bool isStaged = chosen && kept.stage(path, m_places.templates, name);

    KMSWord word;
    word.SetVisible(0);
    if (!word.Init()) {
        qCWarning(lcPrinting) << word.Failure();
        m_dialogs.warn(Trouble::ProcessorMissing);
        return false;
    }
    if (!word.OpenDocument(path, 1)) {
        qCWarning(lcPrinting) << path << word.Failure();
        m_dialogs.warn(Trouble::TemplateUnreadable);
        return false;
    }
    if (chosen)
        keep(contract, path);
    if (chosen && !(isStaged && kept.commit()))
        qCInfo(lcPrinting) << "no copy of the template in" << m_places.templates;

    ContractFilling::fill(word, contract);
    // It stays when the program ends, as the document may still be open, until the next start.
    const QString folder = TemporaryFolders::make(TemporaryFolders::Purpose::Contract, m_places.temporary);
    // A letter is saved into the folder as such and so gets the name of the file it was made from.
    if (folder.isEmpty() || !word.SaveAs(name.isEmpty() ? folder : QDir(folder).filePath(name))) {
        qCWarning(lcPrinting) << "cannot save into" << m_places.temporary << word.Failure();
        m_dialogs.warn(Trouble::NotSaved);
        return false;
    }
    const QString saved = word.FullName();
    word.Close();
    word.Quit();
    if (m_dialogs.open(saved))
        return true;
    m_dialogs.warn(Trouble::NotOpened);
    return false;
}
