// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportSample.h"

#include <QFile>
#include <QUuid>

#include <xlsxwriter.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void fill(lxw_workbook *book, const ImportKind &kind)
{
    lxw_worksheet *sheet = workbook_add_worksheet(book, kind.title().toUtf8().constData());
    worksheet_right_to_left(sheet);
    worksheet_freeze_panes(sheet, 1, 0);
    lxw_format *title = workbook_add_format(book);
    format_set_bold(title);
    format_set_bg_color(title, 0xe9edf2);
    // A code keeps its noughts only as text, also when it is typed over.
    lxw_format *text = workbook_add_format(book);
    format_set_num_format(text, "@");
    lxw_col_t column = 0;
    for (const ImportField &field : kind.fields()) {
        worksheet_set_column(sheet, column, column, std::max<double>(static_cast<double>(std::max(field.title.size(), field.example.size())) + 4, 12), text);
        worksheet_write_string(sheet, 0, column, field.title.toUtf8().constData(), title);
        if (!field.example.isEmpty())
            worksheet_write_string(sheet, 1, column, field.example.toUtf8().constData(), text);
        ++column;
    }
}

}

bool ImportSample::write(const ImportKind &kind, const QString &path)
{
    const QString aside = path + u'.' + QUuid::createUuid().toString(QUuid::Id128) + u".part"_s;
    // Opened once here first: the library reports a folder that cannot be written to only at the very end.
    if (QFile probe(aside); !probe.open(QIODevice::WriteOnly))
        return false;
    lxw_workbook *book = workbook_new(QFile::encodeName(aside).constData());
    bool written = book != nullptr;
    if (book) {
        fill(book, kind);
        written = workbook_close(book) == LXW_NO_ERROR;
    }
    if (written)
        QFile::remove(path);
    if (written && QFile::rename(aside, path))
        return true;
    QFile::remove(aside);
    return false;
}
