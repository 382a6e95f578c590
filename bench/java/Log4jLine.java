import java.nio.file.Path;
import java.util.regex.Pattern;
import org.apache.logging.log4j.Level;
import org.apache.logging.log4j.Logger;
import org.apache.logging.log4j.core.LoggerContext;
import org.apache.logging.log4j.core.config.Configurator;
import org.apache.logging.log4j.core.config.builder.api.ConfigurationBuilder;
import org.apache.logging.log4j.core.config.builder.api.ConfigurationBuilderFactory;
import org.apache.logging.log4j.core.config.builder.impl.BuiltConfiguration;

/** Log4j 2: a file appender that flushes each line. What zoerrlog is given as text is text here. */
abstract class Log4jLine implements Subject {
    private final String name;
    private final Level level;
    private final String layout;
    private final Pattern line;
    private LoggerContext context;
    private Logger logger;

    private Log4jLine(String name, Level level, String layout, Pattern line) {
        this.name = name;
        this.level = level;
        this.layout = layout;
        this.line = line;
    }

    static Log4jLine error() {
        return new Log4jLine(
                "java_error_line/log4j2",
                Level.ERROR,
                "[%pid/%tid][%d{" + Texts.LONG_DATE + "}{UTC}{en}][" + Texts.SOURCE + "][%level]["
                        + Texts.KEY + "] %m%n",
                Texts.ERROR_LINE) {
            @Override
            void call(Logger logger, int count) {
                for (int i = 0; i < count; ++i) {
                    logger.error(
                            "Failed password for {} from {} port {}",
                            Texts.USER, Texts.ADDRESS, Texts.PORT);
                }
            }
        };
    }

    static Log4jLine trace() {
        return new TraceLine("java_trace_line/log4j2", Level.DEBUG, Texts.TRACE_LINE);
    }

    static Log4jLine notSelected() {
        return new TraceLine("java_trace_not_selected/log4j2", Level.ERROR, null);
    }

    abstract void call(Logger to, int count);

    @Override
    public String name() {
        return name;
    }

    @Override
    public void open(Path file) {
        final ConfigurationBuilder<BuiltConfiguration> builder =
                ConfigurationBuilderFactory.newConfigurationBuilder();
        builder.setStatusLevel(Level.ERROR)
                .add(
                        builder.newAppender("file", "File")
                                .addAttribute("fileName", file.toString())
                                .addAttribute("append", true)
                                .addAttribute("immediateFlush", true)
                                .add(
                                        builder.newLayout("PatternLayout")
                                                .addAttribute("pattern", layout)))
                .add(
                        builder.newRootLogger(level)
                                .addAttribute("includeLocation", false)
                                .add(builder.newAppenderRef("file")));
        context = Configurator.initialize(builder.build());
        logger = context.getLogger("line");
    }

    @Override
    public void call(int count) {
        call(logger, count);
    }

    @Override
    public void close() {
        Configurator.shutdown(context);
    }

    @Override
    public Pattern line() {
        return line;
    }

    private static final class TraceLine extends Log4jLine {
        TraceLine(String name, Level level, Pattern line) {
            super(
                    name,
                    level,
                    "%d{" + Texts.DATE_AND_PRECISE_TIME + "}{UTC}|%tid|%m%n",
                    line);
        }

        @Override
        void call(Logger to, int count) {
            for (int i = 0; i < count; ++i) {
                to.debug(
                        "{}|{}|{}|attempt {} of {} on port {}",
                        Texts.FUNCTION, Texts.TRANSACTION, Texts.SOURCE,
                        Texts.ATTEMPT, Texts.USER, Texts.PORT);
            }
        }
    }
}
