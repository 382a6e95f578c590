import java.io.IOException;
import java.nio.file.Path;
import java.time.Instant;
import java.time.ZoneOffset;
import java.time.format.DateTimeFormatter;
import java.time.temporal.ChronoUnit;
import java.util.Locale;
import java.util.logging.FileHandler;
import java.util.logging.Formatter;
import java.util.logging.Level;
import java.util.logging.LogRecord;
import java.util.logging.Logger;
import java.util.regex.Pattern;

/** java.util.logging: a file handler, which flushes each record. */
final class JulLine implements Subject {
    private static final String ERROR_TEXT = "Failed password for {0} from {1} port {2}";
    private static final String TRACE_TEXT = "{0}|{1}|{2}|attempt {3} of {4} on port {5}";

    private final String name;
    private final Level level;
    private final Pattern line;
    private final boolean isError;
    private final Logger logger = Logger.getAnonymousLogger();
    private FileHandler handler;

    private JulLine(String name, Level level, Pattern line, boolean isError) {
        this.name = name;
        this.level = level;
        this.line = line;
        this.isError = isError;
        logger.setUseParentHandlers(false);
        logger.setLevel(level);
    }

    static JulLine error() {
        return new JulLine("java_error_line/jul", Level.SEVERE, Texts.ERROR_LINE, true);
    }

    static JulLine trace() {
        return new JulLine("java_trace_line/jul", Level.FINE, Texts.TRACE_LINE, false);
    }

    static JulLine notSelected() {
        return new JulLine("java_trace_not_selected/jul", Level.SEVERE, null, false);
    }

    @Override
    public String name() {
        return name;
    }

    @Override
    public void open(Path file) throws IOException {
        handler = new FileHandler(file.toString(), true);
        handler.setLevel(level);
        handler.setFormatter(new LineFormatter(isError));
        logger.addHandler(handler);
    }

    @Override
    public void call(int count) {
        for (int i = 0; i < count; ++i) {
            if (isError) {
                logger.log(
                        Level.SEVERE,
                        ERROR_TEXT,
                        new Object[] {Texts.USER, Texts.ADDRESS, Texts.PORT});
            } else {
                logger.log(
                        Level.FINE,
                        TRACE_TEXT,
                        new Object[] {
                            Texts.FUNCTION, Texts.TRANSACTION, Texts.SOURCE,
                            Texts.ATTEMPT, Texts.USER, Texts.PORT
                        });
            }
        }
    }

    @Override
    public void close() {
        logger.removeHandler(handler);
        handler.close();
    }

    @Override
    public Pattern line() {
        return line;
    }

    /** Keeps the last date, as a careful host would; a handler formats one record at a time. */
    private static final class LineFormatter extends Formatter {
        private final boolean isError;
        private final ChronoUnit resolution;
        private final DateTimeFormatter dateFormatter;
        private final long process = ProcessHandle.current().pid();
        private Instant last = Instant.MIN;
        private String date = "";

        LineFormatter(boolean isError) {
            this.isError = isError;
            resolution = isError ? ChronoUnit.SECONDS : ChronoUnit.MILLIS;
            dateFormatter =
                    DateTimeFormatter.ofPattern(
                                    isError ? Texts.LONG_DATE : Texts.DATE_AND_PRECISE_TIME,
                                    Locale.US)
                            .withZone(ZoneOffset.UTC);
        }

        @Override
        public String format(LogRecord entry) {
            final Instant instant = entry.getInstant().truncatedTo(resolution);
            if (!instant.equals(last)) {
                date = dateFormatter.format(instant);
                last = instant;
            }
            if (!isError) {
                return date + "|" + entry.getThreadID() + "|" + formatMessage(entry) + "\n";
            }
            final String severity = entry.getLevel() == Level.SEVERE ? "ERROR" : "INFO";
            return "[" + process + "/" + entry.getThreadID() + "][" + date + "][" + Texts.SOURCE
                    + "][" + severity + "][" + Texts.KEY + "] " + formatMessage(entry) + "\n";
        }
    }
}
