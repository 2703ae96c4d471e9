// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

package io.tzauto.taxfile;

import com.healthmarketscience.jackcess.Column;
import com.healthmarketscience.jackcess.DataType;
import com.healthmarketscience.jackcess.PropertyMap;

import java.io.IOException;
import java.math.BigDecimal;
import java.math.RoundingMode;
import java.util.EnumSet;
import java.util.Set;

/** Turns the texts of the input into what a column of the file takes; what it would cut or change is refused. */
final class Values {
    private static final Set<DataType> WRITABLE = EnumSet.of(DataType.TEXT, DataType.MEMO, DataType.GUID, DataType.BOOLEAN,
            DataType.BYTE, DataType.INT, DataType.LONG, DataType.FLOAT, DataType.DOUBLE, DataType.MONEY, DataType.NUMERIC);
    private static final int LONGEST_MEMO = 65535;

    private final Column column;
    private final DataType type;
    private final int longest;
    private final boolean takesEmptyText;

    Values(Column column) throws IOException, Refusal {
        this.column = column;
        type = column.getType();
        if (!WRITABLE.contains(type) || column.isCalculated()) {
            throw new Refusal(Refusal.TABLE, "unsupported-field", column.getTable().getName(), column.getName());
        }
        longest = type == DataType.TEXT ? column.getLengthInUnits() : LONGEST_MEMO;
        takesEmptyText = !Boolean.FALSE.equals(column.getProperties().getValue(PropertyMap.ALLOW_ZERO_LEN_PROP));
    }

    Object of(String text, int record) throws Refusal {
        if (text == null) {
            return null;
        }
        switch (type) {
            case TEXT:
            case MEMO:
                if (text.length() > longest) {
                    throw refused("too-long", record, Integer.toString(longest));
                }
                return text.isEmpty() && !takesEmptyText ? null : text;
            case BOOLEAN:
                if (text.equals("1") || text.equals("0")) {
                    return text.equals("1");
                }
                throw refused("bad-value", record, text);
            default:
                break;
        }
        if (text.isEmpty()) {
            return null;
        }
        try {
            return type == DataType.GUID ? guid(text) : number(text);
        } catch (ArithmeticException | IllegalArgumentException e) {
            throw refused("bad-value", record, text);
        }
    }

    static int wholeNumber(String text, int lowest, int highest) throws Refusal {
        try {
            int number = Integer.parseInt(String.valueOf(text));
            if (number >= lowest && number <= highest) {
                return number;
            }
        } catch (NumberFormatException e) {
            // Refused below.
        }
        throw new Refusal(Refusal.INPUT, "bad-input", "no number from " + lowest + " to " + highest + ": " + text);
    }

    private Object number(String text) {
        if (text.length() > 64) {
            throw new NumberFormatException("a number of that length");
        }
        if (type == DataType.LONG) {
            return Integer.valueOf(text);
        }
        BigDecimal number = new BigDecimal(text);
        // An exponent could ask for more digits than there is memory.
        if (number.signum() != 0 && Math.abs((long) number.precision() - number.scale()) > 64) {
            throw new NumberFormatException("a number of that size");
        }
        switch (type) {
            case BYTE: {
                int value = number.intValueExact();
                if (value < 0 || value > 255) {
                    throw new NumberFormatException("out of range");
                }
                return (byte) value;
            }
            case INT: return number.shortValueExact();
            case FLOAT: return number.floatValue();
            case DOUBLE: return number.doubleValue();
            case MONEY: return number.setScale(4, RoundingMode.UNNECESSARY);
            default: return number.setScale(column.getScale(), RoundingMode.UNNECESSARY);
        }
    }

    private static String guid(String text) {
        return "{" + java.util.UUID.fromString(text.replaceAll("^\\{|\\}$", "")) + "}";
    }

    private Refusal refused(String code, int record, String what) {
        return new Refusal(Refusal.VALUE, code, column.getTable().getName(), column.getName(), Integer.toString(record), what);
    }
}
