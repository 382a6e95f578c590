import com.velmora.zoerrlog.ZoLogger;
import java.io.IOException;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.Set;
import java.util.regex.Pattern;

/**
 * What a line from Java takes with several threads, through zoerrlog and through others; prints
 * JSON.
 *
 * <p>LineBench --directory=DIR --resources=DIR [--threads=1,2,4,8] [--repetitions=N]
 * [--repetition-ms=N] [--warm-up-ms=N] [--filter=REGEX]
 *
 * <p>The warm-up is that of a subject with all the numbers of threads together.
 *
 * <p>The exit status is 1 when a line was lost or torn, 2 for arguments that cannot be used.
 */
final class LineBench {
    private static final Set<String> OPTIONS =
            Set.of(
                    "--directory", "--resources", "--threads", "--repetitions", "--repetition-ms",
                    "--warm-up-ms", "--filter");

    private final Path directory;
    private final int[] threadCounts;
    private final int repetitions;
    private final long milliseconds;
    private final long warmUpMilliseconds;
    private final List<Subject> subjects = new ArrayList<>();
    private final List<String> records = new ArrayList<>();
    private boolean allWhole = true;

    private LineBench(Map<String, String> options) {
        if (!OPTIONS.containsAll(options.keySet())
                || !options.containsKey("--directory")
                || !options.containsKey("--resources")) {
            throw new IllegalArgumentException("the options are " + OPTIONS);
        }
        directory = Path.of(options.get("--directory")).toAbsolutePath();
        threadCounts =
                Arrays.stream(options.getOrDefault("--threads", "1,2,4,8").split(","))
                        .mapToInt(Integer::parseInt)
                        .toArray();
        repetitions = Integer.parseInt(options.getOrDefault("--repetitions", "10"));
        milliseconds = Long.parseLong(options.getOrDefault("--repetition-ms", "200"));
        warmUpMilliseconds = Long.parseLong(options.getOrDefault("--warm-up-ms", "4000"));
        final Pattern filter = Pattern.compile(options.getOrDefault("--filter", ""));
        for (Subject subject : allSubjects()) {
            if (filter.matcher(subject.name()).find()) {
                subjects.add(subject);
            }
        }
        if (ZoLogger.SetResourcesDirectory(options.get("--resources")) != 1) {
            throw new IllegalArgumentException("--resources names no directory");
        }
    }

    private static List<Subject> allSubjects() {
        return List.of(
                FileStreamLine.error(),
                new ZoErrorLine(),
                Log4jLine.error(),
                JulLine.error(),
                FileStreamLine.trace(),
                new ZoTraceLine(ZoTraceLine.SELECTED),
                Log4jLine.trace(),
                JulLine.trace(),
                new ZoTraceLine(ZoTraceLine.NOT_SELECTED),
                new ZoTraceQuestion(),
                Log4jLine.notSelected(),
                JulLine.notSelected());
    }

    private static Map<String, String> parse(String[] arguments) {
        final Map<String, String> options = new HashMap<>();
        for (String argument : arguments) {
            final String[] parts = argument.split("=", 2);
            options.put(parts[0], parts.length == 2 ? parts[1] : "");
        }
        return options;
    }

    private void record(Subject subject, int threads, int index, Repetition.Result result) {
        allWhole = allWhole && result.lines.lost == 0 && result.lines.torn == 0;
        records.add(
                String.format(
                        Locale.ROOT,
                        "{\"name\": \"%s/threads:%d\", \"run_type\": \"iteration\","
                                + " \"repetition_index\": %d, \"threads\": %d, \"iterations\": %d,"
                                + " \"real_time\": %.3f, \"time_unit\": \"ns\", \"lost\": %d,"
                                + " \"torn\": %d}",
                        subject.name(), threads, index, threads, result.calls,
                        result.nanosecondsPerCall, result.lines.lost, result.lines.torn));
    }

    private void measure() throws IOException, InterruptedException {
        for (int threads : threadCounts) {
            for (Subject subject : subjects) {
                Repetition.run(
                        subject, threads, warmUpMilliseconds / threadCounts.length, directory);
            }
        }
        for (int index = 0; index < repetitions; ++index) {
            for (int threads : threadCounts) {
                for (Subject subject : subjects) {
                    record(
                            subject, threads, index,
                            Repetition.run(subject, threads, milliseconds, directory));
                }
            }
        }
    }

    public static void main(String[] arguments) throws IOException, InterruptedException {
        final LineBench bench;
        try {
            bench = new LineBench(parse(arguments));
        } catch (IllegalArgumentException error) {
            System.err.println("LineBench: " + error.getMessage());
            System.exit(2);
            return;
        }
        bench.measure();
        System.out.println(
                "{\"benchmarks\": [\n" + String.join(",\n", bench.records) + "\n]}");
        System.exit(bench.allWhole ? 0 : 1);
    }
}
