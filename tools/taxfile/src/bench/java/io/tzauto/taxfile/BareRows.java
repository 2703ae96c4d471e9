// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

package io.tzauto.taxfile;

import com.healthmarketscience.jackcess.Database;
import com.healthmarketscience.jackcess.DatabaseBuilder;
import com.healthmarketscience.jackcess.Table;

import java.io.File;
import java.util.ArrayList;
import java.util.List;

/**
 * What the export is measured against: the rows of bench/ExportSeason.cpp, made here and given to the library by themselves.
 * Arguments: a copy of the template, the identifier of the head record, the number of rows.
 */
public final class BareRows {
    private BareRows() {}

    public static void main(String[] arguments) throws Exception {
        try (Database database = new DatabaseBuilder(new File(arguments[0])).setAutoSync(false).open()) {
            Table table = database.getTable("Foroush_Detail");
            int count = Integer.parseInt(arguments[2]);
            List<Object[]> rows = new ArrayList<>(count);
            for (int i = 1; i <= count; ++i) {
                rows.add(row(arguments[1], i));
            }
            table.addRows(rows);
        }
    }

    private static Object[] row(String head, int i) {
        return new Object[] {head, 12, "مبایعه نامه", i, i % 7 == 0, Integer.toString(1_000_000 + i * 13),
            Integer.toString(90_000 + i), "0", Integer.toString(i % 1000), 1, Integer.toString(1_000_000_000 + i), "021",
            Integer.toString(22_000_000 + i), "تهران، خیابان شماره " + i, "نام " + i % 500, "نام خانوادگی " + i % 700,
            "4111" + i, Integer.toString(1_200_000_000 + i), 5, 23, 8, Integer.toString(i), "1404/05/12", ""};
    }
}
