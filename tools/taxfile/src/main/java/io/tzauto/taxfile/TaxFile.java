// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

package io.tzauto.taxfile;

import java.io.File;
import java.io.FileDescriptor;
import java.io.FileInputStream;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.List;
import java.util.logging.LogManager;

/**
 * Writes Access files for a program that has no library for them. Works on what stands in its standard input (see
 * {@link Line}) and nothing else:
 *
 * <pre>
 * create PATH                   a new file in the format of Access 2000; then
 *   table NAME                    a new table with the fields of the lines after it
 *   field NAME TYPE LENGTH        text (1 to 255 characters), memo, byte, short, long, double, money, boolean; the length
 *                                 counts for text only
 * open PATH                     an existing file; then
 *   select TABLE FIELD...         the table that the next lines are about, and the order of their values
 *   clear                         takes every record out of it
 *   add VALUE...                  one more record; numbers with a point, truth as 1 or 0
 *   change VALUE...               its first record, or a new one when it has none
 * end                           the last line of either; without it the file must not be used
 * </pre>
 *
 * <p>Standard output: {@code written COUNT}, the records saved so far, now and then; at the end either {@code done COUNT} with
 * exit status 0, or {@code error CODE DETAIL...} with another one. An error is final: the file is then not whole.
 */
public final class TaxFile {
    private static final PrintStream OUT =
            new PrintStream(new FileOutputStream(FileDescriptor.out), false, StandardCharsets.UTF_8);

    private TaxFile() {}

    public static void main(String[] arguments) {
        // Standard error is for what was not foreseen; the library's remarks about old files are not.
        LogManager.getLogManager().reset();
        System.exit(run(new FileInputStream(FileDescriptor.in)));
    }

    private static int run(InputStream input) {
        try {
            work(new LineReader(input));
            return 0;
        } catch (Refusal e) {
            String[] words = new String[e.details().length + 2];
            words[0] = "error";
            words[1] = e.code;
            System.arraycopy(e.details(), 0, words, 2, e.details().length);
            say(words);
            return e.status;
        } catch (IOException | RuntimeException e) {
            say("error", isDiskFull(e) ? "disk-full" : "file", String.valueOf(e.getMessage()));
            return Refusal.FILE;
        } catch (OutOfMemoryError e) {
            say("error", "memory");
            return Refusal.FILE;
        }
    }

    /** The operating systems' own words; there is no type for it. */
    private static boolean isDiskFull(Exception e) {
        String message = String.valueOf(e.getMessage());
        return message.contains("No space left on device") || message.contains("not enough space on the disk");
    }

    private static void work(LineReader lines) throws IOException, Refusal {
        int saved;
        try (Commands commands = start(lines)) {
            saved = runAll(commands, lines);
        }
        // Not before the file is closed: whoever reads this may take it.
        say("done", Integer.toString(saved));
    }

    private static int runAll(Commands commands, LineReader lines) throws IOException, Refusal {
        for (String line = lines.next(); line != null; line = lines.next()) {
            if (line.equals("end")) {
                return commands.finish();
            }
            commands.run(Line.parse(line));
        }
        throw new Refusal(Refusal.INPUT, "bad-input", "the input ends before its end");
    }

    private static Commands start(LineReader lines) throws IOException, Refusal {
        String line = lines.next();
        List<String> words = line == null ? List.of() : Line.parse(line);
        if (words.size() != 2 || words.get(1) == null || words.get(1).isEmpty()) {
            throw new Refusal(Refusal.INPUT, "bad-input", "the first line names no file");
        }
        File file = new File(words.get(1));
        if ("create".equals(words.get(0))) {
            return new TemplateMaker(file);
        }
        if (!"open".equals(words.get(0))) {
            throw new Refusal(Refusal.INPUT, "bad-input", "no such command here: " + words.get(0));
        }
        if (!file.isFile()) {
            throw new Refusal(Refusal.FILE, "no-file", words.get(1));
        }
        return new RecordWriter(file, count -> say("written", Integer.toString(count)));
    }

    private static void say(String... words) {
        OUT.print(Line.join(words) + "\n");
        OUT.flush();
    }
}
