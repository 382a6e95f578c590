package com.velmora.zoerrlog;

import static com.velmora.zoerrlog.ZoLogger.*;
import static java.nio.charset.StandardCharsets.ISO_8859_1;
import static org.junit.jupiter.api.Assertions.*;

import java.io.*;
import java.nio.file.*;
import java.time.*;
import java.util.*;
import org.junit.jupiter.api.*;
import org.junit.jupiter.api.io.TempDir;

/** Each test has a directory, and a logger of that name which writes two files in it. */
class ZoLoggerTest {
    private static final int LEGACY = 0x01010000;
    private static final int LEGACY_MESSAGE = 0x0100C001;
    private static final int LOGIN_REFUSED = 0x0700C001;
    private static final String ERROR = "[s][ERROR][zo-log-00000] ";
    private static final String HEADING = "Function|TransactionID|SrcFile|Message";
    private static final String LONG = "long ".repeat(2000);
    private static final String TEXT = "Gro\u00df \ud83d\ude00";

    @TempDir Path directory;
    private String logger;

    @BeforeEach
    void begin() throws IOException {
        logger = directory.toString();
        assertEquals(1, SetResourcesDirectory(System.getProperty("zoerrlog.resources")));
        start(logger, "log", "trace");
    }

    private String config(String text) throws IOException {
        return Files.writeString(Files.createTempFile(directory, "", ".conf"), text).toString();
    }

    private void start(String name, String log, String trace) throws IOException {
        final String data = HEADING.replace('|', ' ');
        final String config = config("components Log\ndata " + data + "\nFunction !=rejected");
        assertEquals(1, InitializeLog(name, 1, directory.resolve(log) + "", 1, 0, false, 0));
        assertEquals(1, InitializeTrace(
                name, FILE, directory.resolve(trace) + "", 1, 0, 2, "|", config, false, 0));
    }

    /** The lines of files without prologs and headings; each character is a byte. */
    private List<String> lines(String... files) throws IOException {
        final List<String> lines = new ArrayList<>();
        for (String file : files) {
            lines.addAll(Files.readAllLines(directory.resolve(file), ISO_8859_1));
        }
        lines.removeAll(List.of(HEADING, HEADING.replaceAll("[^|]", "=")));
        final String prolog = "^\\[" + ProcessHandle.current().pid() + "/\\d+]\\[[\\w :]{24}]";
        lines.replaceAll(line -> line.replaceFirst(prolog, ""));
        return lines;
    }

    private static String modifiedUtf8(String text) throws IOException {
        final ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        new DataOutputStream(bytes).writeUTF(text);
        return bytes.toString(ISO_8859_1).substring(Short.BYTES);
    }

    @Test
    void errorMessagesTakeTheirArguments() throws IOException {
        final String refused = "[s][ERROR][zo-login-00001] Failed password for ";
        final String[][][] argumentsLine = {
            {null, {}}, {{}, {}}, {new String[6], {}}, {{null}, {refused + " from  port "}},
            {{"", TEXT, "%s"}, {refused + " from " + modifiedUtf8(TEXT) + " port %s"}},
            {{"\0", "{0}", null, "4", "5"}, {refused + modifiedUtf8("\0") + " from {0} port "}},
        };
        final List<String> expected = new ArrayList<>();
        for (String[][] row : argumentsLine) {
            assertEquals(1, LogMsg(logger, "C:\\a/b\\s", LOGIN_REFUSED, row[0]));
            expected.addAll(List.of(row[1]));
        }
        LogMsg(logger, "s", LEGACY_MESSAGE, "%s{1}" + TEXT);
        LogMsg(logger, null, LEGACY_MESSAGE, (String) null);
        expected.addAll(List.of(ERROR + "%s{1}" + modifiedUtf8(TEXT), "[][ERROR][zo-log-00000] "));
        assertEquals(expected, lines("log"));
    }

    @Test
    void traceLinesHoldFieldsAsTheyStandAndFillPlaceholders() throws IOException {
        final String[][] sourceMessageLineArguments = {
            {"", "", "f|t||"}, {"", "", "f|t||", "unused"},
            {"C:\\a/b\\s/" + TEXT, LONG + "%s%%", "f|t|s/" + TEXT + "|" + LONG + "%s%%"},
            {"s", "user %s from %s", "f|t|s|user bob from " + TEXT, "bob", TEXT},
            {"s", "user %s from %s.", "f|t|s|user  from .", null},
            {"s", "%n%s%d%5$s%%%", "f|t|s|%n1%d%5$s%%", "1", "2"},
            {"s", "%s%s%s%s%s%s %", "f|t|s|12345 %", "1", "2", "3", "4", "5"},
            {"s", TEXT + "%s, %s", "f|t|s|" + TEXT + "%s, %n%%" + LONG, "%s", "%n%%" + LONG},
        };
        final List<String> expected = new ArrayList<>();
        for (String[] row : sourceMessageLineArguments) {
            final String[] texts = Arrays.copyOfRange(row, 3, row.length);
            assertEquals(1, TraceMsg(logger, row[0], "f", LEGACY, "t", row[1], texts));
            expected.add(modifiedUtf8(row[2]));
        }
        TraceMsg(logger, "s", "rejected", LEGACY, "t", "raw %s%%");
        TraceMsg(logger, "s", "f", LOGIN_REFUSED, "t", "raw %s%%");
        assertEquals(1, TraceMsg(logger, "\\s", TEXT, LEGACY, TEXT + "\0", LONG + "%s%%"));
        TraceMsg(logger, null, null, LEGACY, null, null);
        TraceMsg(logger, null, null, LEGACY, null, "raw %s%%", null);
        final String raw = modifiedUtf8(TEXT + "|" + TEXT + "\0|s|" + LONG + "%s%%");
        expected.addAll(List.of(raw, "|||", "|||raw %s%%"));
        assertEquals(expected, lines("trace"));
    }

    @Test
    void noNameIsTheDefaultLoggerWhichWarnsOfTooManyArguments() throws IOException {
        start(null, "default.log", "default");
        assertTrue(TraceEnabled("") && TraceEnabledComponent(null, LEGACY));
        assertFalse(TraceEnabled(TEXT) || TraceEnabledComponent(null, LOGIN_REFUSED));
        LogMsg("", "s", LEGACY_MESSAGE, "default");
        LogMsg(logger, "s", LEGACY_MESSAGE, new String[6]);
        LogMsg(logger, "s", LOGIN_REFUSED, new String[6]); // not traced
        TraceMsg(logger, "s", "f", LEGACY, "t", "%s.", new String[6]);
        TraceMsg("", "s", "f", LEGACY, "t", "%s.", new String[6]);
        final String at = "ZoJNIEntryPoint::LogMsg||ZoJNIEntryPoint:";
        final String six = "|WARNING!!! Too many arguments in message";
        final String log = at + 376 + six + ".  Message not logged.  Message ID is: 16826369";
        final String trace = at + 601 + six + " - Message not logged.  Unformatted message is: %s.";
        assertEquals(List.of(log, trace, trace, "f|t|s|%s.", "f|t|s|%s.", ERROR + "default"),
                lines("default", "trace", "default.log", "log"));
        // A directory cannot be opened as a file: that ends the tracing.
        final String some = config("components\ndata");
        assertEquals(0, InitializeTrace("", FILE, logger, 1, 0, 0, "", some, false, 0));
        assertFalse(TraceEnabled("") || TraceEnabledComponent(null, LEGACY));
        assertEquals(1, InitializeLog(null, CONSOLE, null, 0, 0, false, 0));
    }

    @Test
    void whatCannotBeUsedLeavesWhatWas() throws IOException {
        final String[][] directoryFileConfig = {
            {null, null, config("components Log\ndata Message")}, {"", "new", null},
            {"missing", "new", ""}, {"missing", "new", logger}, {"", "new", config("data Pid")},
        };
        for (String[] row : directoryFileConfig) {
            assertEquals(0, SetResourcesDirectory(row[0]));
            assertEquals(0, InitializeLog(logger, FILE, null, 1, 0, false, 0));
            assertEquals(0, InitializeTrace(logger, 1, row[1], 1, 0, 0, "", row[2], false, 0));
            LogMsg(logger, "s", LOGIN_REFUSED, "bob");
            TraceMsg(logger, "s", "f", LEGACY, "t", "kept");
        }
        final String kept = "[s][ERROR][zo-login-00001] Failed password for bob from {1} port {2}";
        assertEquals(Collections.nCopies(5, kept), lines("log"));
        assertEquals(Collections.nCopies(5, "f|t|s|kept"), lines("trace"));
    }

    /** Whether the first time in a file is local: half a day lies between that and UTC. */
    private static boolean isLocal(Path file) throws IOException {
        final String time = Files.readString(file).replaceFirst("(?s).*?(\\d+:\\d+:\\d+).*", "$1");
        final Duration off = Duration.between(LocalTime.now(ZoneOffset.UTC), LocalTime.parse(time));
        return Math.abs(off.abs().toHours() - 12) < 6;
    }

    private void check(int mode, int size, int backups, int layout, String with, boolean local,
            boolean localErrors, int files, String last) throws IOException {
        final Path log = Files.createTempDirectory(directory, "").resolve("log");
        final Path trace = log.resolveSibling("trace");
        final String config = config("components Log\ndata Function Time");
        for (int i = 0; i < 3; ++i) {
            InitializeLog(logger, 1, log + "", mode, size, local, backups);
            InitializeTrace(TEXT, 1, trace + "", mode, size, layout, with, config, local, backups);
            LogMsg(logger, "s", LEGACY_MESSAGE, "m");
            TraceMsg(TEXT, "s", "f", LEGACY, "t", "m");
        }
        assertEquals(2 * files, log.getParent().toFile().list().length);
        assertEquals(List.of(local, localErrors), List.of(isLocal(trace), isLocal(log)));
        assertLinesMatch(List.of(">> before >>", last), Files.readAllLines(trace));
    }

    @Test
    void settingsReachTheFilesAndErrorsStayInLocalTime() throws IOException {
        check(0, 0, 0, 0, "|", false, false, 1, "\\[f]\\[[\\d:]{8}]");
        check(2, 9, 1, 2, " - ", true, true, 2, "f - [\\d:]{8}");
        check(2, 9, 0, 2, null, false, true, 3, "f[\\d:]{8}");
        check(3, 0, 1, 3, "|", false, true, 2, "</TraceMessage>");
    }

    private void write(int times, String... arguments) {
        for (int i = 0; i < times; ++i) {
            LogMsg(logger, "s", LEGACY_MESSAGE, arguments);
            TraceMsg(logger, "s", "f", LEGACY, "t", "%s %s", arguments);
        }
    }

    @Test
    void noLineIsTornOrLostWhileOutputsAreReplaced() throws Exception {
        final List<Thread> threads = new ArrayList<>();
        final List<String> expected = new ArrayList<>();
        for (String name : "A B C D E F G H".split(" ")) {
            threads.add(new Thread(() -> write(500, name, LONG)));
            expected.addAll(Collections.nCopies(500, ERROR + name));
            expected.addAll(Collections.nCopies(500, "f|t|s|" + name + " " + LONG));
        }
        threads.forEach(Thread::start);
        int replaced = 0;
        for (; threads.stream().anyMatch(Thread::isAlive); ++replaced) {
            start(logger, "log" + replaced % 2, "trace" + replaced % 2);
        }
        assertTrue(replaced > 10, "replaced " + replaced + " times");
        final List<String> all = lines("log", "log0", "log1", "trace", "trace0", "trace1");
        Collections.sort(all);
        Collections.sort(expected);
        assertIterableEquals(expected, all);
    }

    @Test
    void callsWithArraysLeaveNothingBehind() throws IOException {
        start(logger, "/dev/null", "/dev/null");
        final List<Integer> kilobytes = new ArrayList<>();
        for (int times : new int[] {10_000, 100_000}) {
            write(times, TEXT, null, TEXT, TEXT);
            final String status = Files.readString(Path.of("/proc/self/status"));
            kilobytes.add(Integer.valueOf(status.replaceFirst("(?s).*VmRSS:\\s+(\\d+).*", "$1")));
        }
        assertTrue(kilobytes.get(1) - kilobytes.get(0) < 4096, "resident KB: " + kilobytes);
    }
}
