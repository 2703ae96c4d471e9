// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

package io.tzauto.taxfile;

import com.healthmarketscience.jackcess.Column;
import com.healthmarketscience.jackcess.Cursor;
import com.healthmarketscience.jackcess.CursorBuilder;
import com.healthmarketscience.jackcess.Database;
import com.healthmarketscience.jackcess.DatabaseBuilder;
import com.healthmarketscience.jackcess.Table;

import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import java.util.function.IntConsumer;

/** Records into the tables of an existing file. */
final class RecordWriter implements Commands {
    /** Records that go into the file in one piece; also how often progress is told. */
    private static final int BATCH = 1000;
    /** And never more text than this, so that a few large records need no more memory than many small ones. */
    private static final int BATCH_CHARACTERS = 1 << 20;

    private final Database database;
    private final IntConsumer progress;
    private final List<Object[]> batch = new ArrayList<>(BATCH);
    private Table table;
    private Values[] values;
    private int[] positions;
    private Object[] emptyRow;
    private int record;
    private int batchCharacters;
    private int saved;

    RecordWriter(File file, IntConsumer progress) throws Refusal {
        this.progress = progress;
        try {
            database = new DatabaseBuilder(file).setAutoSync(false).open();
        } catch (IOException | RuntimeException e) {
            throw damaged(e);
        }
    }

    /** Of a file that cannot be read as one of its format. */
    private static Refusal damaged(Exception why) {
        return new Refusal(Refusal.FILE, "damaged", String.valueOf(why.getMessage()));
    }

    @Override
    public void run(List<String> words) throws IOException, Refusal {
        switch (String.valueOf(words.get(0))) {
            case "add": add(words); break;
            case "select": select(words); break;
            case "clear": clear(); break;
            case "change": change(words); break;
            default: throw new Refusal(Refusal.INPUT, "bad-input", "no such command here: " + words.get(0));
        }
    }

    private void select(List<String> words) throws IOException, Refusal {
        writeBatch();
        if (words.size() < 3 || words.contains(null)) {
            throw new Refusal(Refusal.INPUT, "bad-input", "a table and its fields are needed");
        }
        try {
            table = database.getTable(words.get(1));
        } catch (IOException | RuntimeException e) {
            throw damaged(e);
        }
        if (table == null) {
            throw new Refusal(Refusal.TABLE, "no-table", words.get(1));
        }
        values = new Values[words.size() - 2];
        positions = new int[values.length];
        Set<Integer> taken = new HashSet<>();
        for (int i = 0; i < values.length; ++i) {
            Column column = columnNamed(words.get(i + 2));
            values[i] = new Values(column);
            positions[i] = column.getColumnIndex();
            if (!taken.add(positions[i])) {
                throw new Refusal(Refusal.INPUT, "bad-input", "a field is named twice: " + column.getName());
            }
        }
        emptyRow = new Object[table.getColumnCount()];
        for (Column column : table.getColumns()) {
            if (column.isAutoNumber()) {
                emptyRow[column.getColumnIndex()] = Column.AUTO_NUMBER;
            }
        }
        record = 0;
    }

    private Column columnNamed(String name) throws Refusal {
        try {
            return table.getColumn(name);
        } catch (IllegalArgumentException e) {
            throw new Refusal(Refusal.TABLE, "no-field", table.getName(), name);
        }
    }

    private void clear() throws IOException, Refusal {
        needTable();
        writeBatch();
        Cursor cursor = CursorBuilder.createCursor(table);
        while (cursor.moveToNextRow()) {
            cursor.deleteCurrentRow();
        }
    }

    private void add(List<String> words) throws IOException, Refusal {
        batch.add(row(words, emptyRow));
        for (String word : words) {
            batchCharacters += word == null ? 0 : word.length();
        }
        if (batch.size() == BATCH || batchCharacters >= BATCH_CHARACTERS) {
            writeBatch();
        }
    }

    /** The table's first record, or a new one where there is none. A field without a value keeps what it holds. */
    private void change(List<String> words) throws IOException, Refusal {
        needTable();
        writeBatch();
        Cursor cursor = CursorBuilder.createCursor(table);
        if (!cursor.moveToNextRow()) {
            add(words);
            return;
        }
        Object[] kept = new Object[table.getColumnCount()];
        Arrays.fill(kept, Column.KEEP_VALUE);
        Object[] row = row(words, kept);
        for (int position : positions) {
            if (row[position] == null) {
                row[position] = Column.KEEP_VALUE;
            }
        }
        cursor.updateCurrentRow(row);
        ++saved;
    }

    private Object[] row(List<String> words, Object[] start) throws Refusal {
        needTable();
        if (words.size() != values.length + 1) {
            throw new Refusal(Refusal.INPUT, "bad-input", "a record has another number of values than its table has fields");
        }
        ++record;
        Object[] row = start.clone();
        for (int i = 0; i < values.length; ++i) {
            row[positions[i]] = values[i].of(words.get(i + 1), record);
        }
        return row;
    }

    private void needTable() throws Refusal {
        if (table == null) {
            throw new Refusal(Refusal.INPUT, "bad-input", "no table is selected");
        }
    }

    private void writeBatch() throws IOException {
        if (batch.isEmpty()) {
            return;
        }
        table.addRows(batch);
        saved += batch.size();
        batch.clear();
        batchCharacters = 0;
        progress.accept(saved);
    }

    @Override
    public int finish() throws IOException, Refusal {
        writeBatch();
        database.flush();
        return saved;
    }

    @Override
    public void close() throws IOException {
        database.close();
    }
}
