// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractPrinting.h"

#include "auto/platform/ModulePlatform.h"
#include "auto/contracts/instalments/PlanFollowing.h"
#include "auto/contracts/printing/ContractFilling.h"
#include "auto/contracts/printing/KeptTemplate.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/utility/documents/KMSWord.h"
#include "suite/utility/values/TemporaryFolders.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <array>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcPrinting, "tzauto.printing")

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
    const QString name = templateName(contract.m_iContractType);
    const QString path = name.isEmpty() ? QString() : QDir(m_places.templates).filePath(name);
    if (!path.isEmpty() && QFileInfo(path).isFile())
        return fillAndOpen(contract, path, false);
    m_dialogs.warn(Trouble::TemplateMissing);
    const QString chosen = m_dialogs.chooseTemplate();
    return !chosen.isEmpty() && fillAndOpen(contract, chosen, true);
}

bool ContractPrinting::fillAndOpen(CTblAutomobilContracts &contract, const QString &path, bool chosen)
{
    const QString name = templateName(contract.m_iContractType);
    KeptTemplate kept;
    if (chosen && !kept.stage(path, m_places.templates, name))
        return false;

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
    if (!kept.commit())
        return false;

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
