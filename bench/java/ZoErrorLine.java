import com.velmora.zoerrlog.ZoLogger;
import java.io.IOException;
import java.nio.file.Path;
import java.util.regex.Pattern;

/** The error log of zoerrlog: a message of the catalogue with three arguments. */
final class ZoErrorLine implements Subject {
    private static final int LOGIN_REFUSED = 0x0700C001;
    private static final int APPEND = 1;

    @Override
    public String name() {
        return "java_error_line/zoerrlog";
    }

    @Override
    public void open(Path file) throws IOException {
        final String name = file.toString();
        if (ZoLogger.InitializeLog(null, ZoLogger.FILE, name, APPEND, 0, false, 0) != 1) {
            throw new IOException(file + " cannot be made the error log");
        }
    }

    @Override
    public void call(int count) {
        for (int i = 0; i < count; ++i) {
            ZoLogger.LogMsg(
                    null,
                    Texts.SOURCE,
                    LOGIN_REFUSED,
                    new String[] {Texts.USER, Texts.ADDRESS, Texts.PORT});
        }
    }

    /** Nothing is held back; the file stays open until the next one takes its place. */
    @Override
    public void close() {}

    @Override
    public Pattern line() {
        return Texts.ERROR_LINE;
    }
}
