import java.io.BufferedReader;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** What became of the lines of a repetition. */
final class LineCheck {
    /** Calls without a whole line; less than 0 when there are more lines than calls. */
    final long lost;
    /** Lines that are not whole. */
    final long torn;

    private LineCheck(long lost, long torn) {
        this.lost = lost;
        this.torn = torn;
    }

    static LineCheck of(Subject subject, Path file, long calls) throws IOException {
        final Pattern expected = subject.line();
        final Matcher matcher = expected != null ? expected.matcher("") : null;
        long whole = 0;
        long torn = 0;
        try (BufferedReader reader = Files.newBufferedReader(file, StandardCharsets.ISO_8859_1)) {
            for (int i = 0; i < subject.headerLines(); ++i) {
                reader.readLine();
            }
            for (String line = reader.readLine(); line != null; line = reader.readLine()) {
                if (matcher != null && matcher.reset(line).matches()) {
                    ++whole;
                } else {
                    ++torn;
                }
            }
        }
        return new LineCheck(expected != null ? calls - whole : 0, torn);
    }
}
