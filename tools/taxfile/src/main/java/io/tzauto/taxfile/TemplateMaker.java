// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

package io.tzauto.taxfile;

import com.healthmarketscience.jackcess.ColumnBuilder;
import com.healthmarketscience.jackcess.DataType;
import com.healthmarketscience.jackcess.Database;
import com.healthmarketscience.jackcess.DatabaseBuilder;
import com.healthmarketscience.jackcess.TableBuilder;

import java.io.File;
import java.io.IOException;
import java.util.List;

/** A new file in the format of Access 2000, with empty tables. */
final class TemplateMaker implements Commands {
    private final Database database;
    private TableBuilder table;

    TemplateMaker(File file) throws IOException {
        database = new DatabaseBuilder(file).setFileFormat(Database.FileFormat.V2000).setAutoSync(false).create();
    }

    @Override
    public void run(List<String> words) throws IOException, Refusal {
        String command = words.get(0);
        if ("table".equals(command) && words.size() == 2) {
            finishTable();
            table = new TableBuilder(words.get(1));
        } else if ("field".equals(command) && words.size() == 4 && table != null) {
            table.addColumn(column(words.get(1), words.get(2), words.get(3)));
        } else {
            throw new Refusal(Refusal.INPUT, "bad-input", "no such command here: " + command);
        }
    }

    private static ColumnBuilder column(String name, String type, String length) throws Refusal {
        switch (String.valueOf(type)) {
            case "text": {
                int characters = Values.wholeNumber(length, 1, DataType.TEXT.getMaxSize() / DataType.TEXT.getUnitSize());
                return new ColumnBuilder(name, DataType.TEXT).setLengthInUnits(characters);
            }
            case "memo": return new ColumnBuilder(name, DataType.MEMO);
            case "byte": return new ColumnBuilder(name, DataType.BYTE);
            case "short": return new ColumnBuilder(name, DataType.INT);
            case "long": return new ColumnBuilder(name, DataType.LONG);
            case "double": return new ColumnBuilder(name, DataType.DOUBLE);
            case "money": return new ColumnBuilder(name, DataType.MONEY);
            case "boolean": return new ColumnBuilder(name, DataType.BOOLEAN);
            default: throw new Refusal(Refusal.INPUT, "bad-input", "no such type: " + type);
        }
    }

    private void finishTable() throws IOException, Refusal {
        if (table == null) {
            return;
        }
        try {
            table.toTable(database);
        } catch (IllegalArgumentException e) {
            throw new Refusal(Refusal.TABLE, "bad-table", e.getMessage());
        }
        table = null;
    }

    @Override
    public int finish() throws IOException, Refusal {
        finishTable();
        database.flush();
        return 0;
    }

    @Override
    public void close() throws IOException {
        database.close();
    }
}
