import java.io.IOException;
import java.nio.file.Path;
import java.util.regex.Pattern;

/** One way to write a line, or not to write it. */
interface Subject {
    /** "benchmark/way". */
    String name();

    /** Lines go to {@code file} from now on. */
    void open(Path file) throws IOException;

    /**
     * Makes {@code count} calls; several threads do so at once. The loop is each subject's own, so
     * that the virtual machine compiles each for what it calls.
     */
    void call(int count) throws IOException;

    /** All lines are in the file, and it may be removed. */
    void close() throws IOException;

    /** What a whole line looks like; null when none may be written. */
    Pattern line();

    /** Lines that come before those of the calls. */
    default int headerLines() {
        return 0;
    }
}
