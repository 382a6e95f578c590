import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.CountDownLatch;

/** Threads that make calls for a fixed time. */
final class Repetition {
    /** Calls between two looks at whether the time is over. */
    private static final int BATCH = 32;

    private final Subject subject;
    private final CountDownLatch start = new CountDownLatch(1);
    private volatile boolean stop;
    private volatile IOException failure;
    private long calls;

    private Repetition(Subject subject) {
        this.subject = subject;
    }

    /** What one repetition gave. */
    static final class Result {
        final long calls;
        final double nanosecondsPerCall;
        final LineCheck lines;

        Result(long calls, double nanosecondsPerCall, LineCheck lines) {
            this.calls = calls;
            this.nanosecondsPerCall = nanosecondsPerCall;
            this.lines = lines;
        }
    }

    static Result run(Subject subject, int threads, long milliseconds, Path directory)
            throws IOException, InterruptedException {
        final Path file = directory.resolve("line-bench.log");
        final Repetition repetition = new Repetition(subject);
        subject.open(file);
        try {
            final long time;
            try {
                time = repetition.time(threads, milliseconds);
            } finally {
                subject.close();
            }
            final LineCheck lines = LineCheck.of(subject, file, repetition.calls);
            return new Result(repetition.calls, (double) time / repetition.calls, lines);
        } finally {
            Files.deleteIfExists(file);
        }
    }

    private long time(int count, long milliseconds) throws IOException, InterruptedException {
        final List<Thread> threads = new ArrayList<>();
        for (int i = 0; i < count; ++i) {
            final Thread thread = new Thread(this::work);
            thread.start();
            threads.add(thread);
        }
        final long begin = System.nanoTime();
        start.countDown();
        Thread.sleep(milliseconds);
        stop = true;
        for (Thread thread : threads) {
            thread.join();
        }
        final long end = System.nanoTime();
        if (failure != null) {
            throw failure;
        }
        return end - begin;
    }

    private void work() {
        long made = 0;
        try {
            start.await();
            do {
                subject.call(BATCH);
                made += BATCH;
            } while (!stop);
        } catch (IOException error) {
            failure = error;
        } catch (InterruptedException error) {
            failure = new IOException(error);
        }
        synchronized (this) {
            calls += made;
        }
    }
}
