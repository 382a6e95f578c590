import java.io.FileOutputStream;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.util.regex.Pattern;

/** The least that a line can cost: bytes that are there already, in one write. */
final class FileStreamLine implements Subject {
    private final String benchmark;
    private final Pattern line;
    private final byte[] bytes;
    private FileOutputStream stream;

    private FileStreamLine(String benchmark, Pattern line, String text) {
        this.benchmark = benchmark;
        this.line = line;
        this.bytes = text.getBytes(StandardCharsets.UTF_8);
    }

    static FileStreamLine error() {
        return new FileStreamLine(
                "java_error_line",
                Texts.ERROR_LINE,
                "[12345/12345][Mon Nov 16 2026 14:56:38][" + Texts.SOURCE + "][ERROR][" + Texts.KEY
                        + "] Failed password for " + Texts.USER + " from " + Texts.ADDRESS
                        + " port " + Texts.PORT + "\n");
    }

    static FileStreamLine trace() {
        return new FileStreamLine(
                "java_trace_line",
                Texts.TRACE_LINE,
                "11/16/2026|14:56:38.123|12345|" + Texts.FUNCTION + "|" + Texts.TRANSACTION + "|"
                        + Texts.SOURCE + "|attempt " + Texts.ATTEMPT + " of " + Texts.USER
                        + " on port " + Texts.PORT + "\n");
    }

    @Override
    public String name() {
        return benchmark + "/file_stream";
    }

    @Override
    public void open(Path file) throws IOException {
        stream = new FileOutputStream(file.toFile(), true);
    }

    @Override
    public void call(int count) throws IOException {
        for (int i = 0; i < count; ++i) {
            stream.write(bytes);
        }
    }

    @Override
    public void close() throws IOException {
        stream.close();
    }

    @Override
    public Pattern line() {
        return line;
    }
}
