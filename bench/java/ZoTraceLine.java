import com.velmora.zoerrlog.ZoLogger;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.regex.Pattern;

/** The trace log of zoerrlog: a line with every field that Java can set, past a filter. */
class ZoTraceLine implements Subject {
    /** Components: the one that the configuration selects, and another. */
    static final int SELECTED = 0x07010000;
    static final int NOT_SELECTED = 0x01010000;

    private static final int OVERWRITE = 0;
    private static final int DELIMITED = 2;
    private static final String CONFIGURATION =
            "version: 1.1\n"
                    + "components: Login_Logout\n"
                    + "data: Date PreciseTime Tid Function TransactionID SrcFile Message\n"
                    + "TransactionID !=nobody\n";

    private final int component;

    ZoTraceLine(int component) {
        this.component = component;
    }

    @Override
    public String name() {
        return component == SELECTED
                ? "java_trace_line/zoerrlog"
                : "java_trace_not_selected/zoerrlog";
    }

    @Override
    public void open(Path file) throws IOException {
        final Path configuration = Files.createTempFile(file.getParent(), "trace", ".conf");
        try {
            Files.writeString(configuration, CONFIGURATION);
            if (ZoLogger.InitializeTrace(
                            null, ZoLogger.FILE, file.toString(), OVERWRITE, 0, DELIMITED, "|",
                            configuration.toString(), false, 0)
                    != 1) {
                throw new IOException(file + " cannot be made the trace log");
            }
        } finally {
            Files.delete(configuration);
        }
    }

    @Override
    public void call(int count) {
        for (int i = 0; i < count; ++i) {
            ZoLogger.TraceMsg(
                    null, Texts.SOURCE, Texts.FUNCTION, component, Texts.TRANSACTION,
                    "attempt %s of %s on port %s",
                    new String[] {Texts.ATTEMPT, Texts.USER, Texts.PORT});
        }
    }

    @Override
    public void close() {}

    @Override
    public Pattern line() {
        return component == SELECTED ? Texts.TRACE_LINE : null;
    }

    /** Names and underline. */
    @Override
    public int headerLines() {
        return 2;
    }
}
