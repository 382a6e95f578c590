package com.velmora.zoerrlog;

import java.io.File;

/**
 * The loggers of this process, for its Java side: error messages from the message catalogue, and
 * trace lines.
 *
 * <p>A logger is known by its name and made by the first call that names it; {@code null} and the
 * empty name stand for the default logger, which native code of the process shares. Any thread may
 * call any method at any time. No method throws; an error of the logging shows in its result, or not
 * at all. Texts are taken over before a method returns; a {@code null} text counts as empty unless
 * the method says otherwise.
 *
 * <p>The native library is loaded with this class: from the path in the system property {@value
 * #LIBRARY_PROPERTY} if that is set, otherwise as {@code zoerrlog} from {@code java.library.path}.
 * Without it, the first use of this class ends in an {@link UnsatisfiedLinkError} that says what was
 * looked for and where.
 */
public final class ZoLogger {
    /** The system property with the path of the native library. */
    public static final String LIBRARY_PROPERTY = "com.velmora.zoerrlog.library";

    /** Output kind: the console of the process. Any other kind is a file. */
    public static final int CONSOLE = 0;
    /** Output kind: a file. */
    public static final int FILE = 1;

    private static final String LIBRARY_NAME = "zoerrlog";

    static {
        load();
    }

    private ZoLogger() {}

    private static void load() {
        final String path = System.getProperty(LIBRARY_PROPERTY);
        try {
            if (path != null && !path.isEmpty()) {
                System.load(new File(path).getAbsolutePath());
            } else {
                System.loadLibrary(LIBRARY_NAME);
            }
        } catch (UnsatisfiedLinkError error) {
            throw explained(path, error);
        }
    }

    private static UnsatisfiedLinkError explained(String path, UnsatisfiedLinkError cause) {
        final String looked =
                path != null && !path.isEmpty()
                        ? "as '" + path + "', named by the system property " + LIBRARY_PROPERTY
                        : "as '" + System.mapLibraryName(LIBRARY_NAME) + "' in java.library.path '"
                                + System.getProperty("java.library.path")
                                + "' (the system property " + LIBRARY_PROPERTY + " is not set)";
        final UnsatisfiedLinkError error =
                new UnsatisfiedLinkError(
                        "the native library of ZoLogger was looked for " + looked + ": "
                                + cause.getMessage());
        error.initCause(cause);
        return error;
    }

    /**
     * Installs the output of a logger's error log in place of the earlier one.
     *
     * @param loggerName the logger; {@code null} or empty for the default one
     * @param outputKind {@link #CONSOLE} or {@link #FILE}
     * @param fileName the log file; not read for the console
     * @param mode what becomes of an existing file: 0 overwritten, 1 appended to, 2 rolled over now,
     *     3 rolled over at the size limit, 4 both
     * @param maxSizeMB the size limit of modes 3 and 4, in megabytes of 2^20 bytes; 0 or more
     * @param useLocalTime true for dates in local time; false leaves the logger's choice, which is
     *     UTC at first
     * @param maxBackups backups to keep; 0 keeps all
     * @return 1 when it is installed; 0 when it is not: with arguments that cannot be used the
     *     earlier output stays, with a file that cannot be opened it is gone; -1 without a logger
     */
    public static native int InitializeLog(
            String loggerName,
            int outputKind,
            String fileName,
            int mode,
            int maxSizeMB,
            boolean useLocalTime,
            int maxBackups);

    /**
     * Names the directory of the message bundles, for all loggers of the process.
     *
     * @param directory an existing directory
     * @return 1 when it is used from now on; 0, with the earlier one kept, when it is null, empty or
     *     no directory
     */
    public static native int SetResourcesDirectory(String directory);

    /**
     * Starts tracing of a logger by a trace configuration file, in place of earlier tracing.
     *
     * @param loggerName the logger; {@code null} or empty for the default one
     * @param outputKind {@link #CONSOLE} or {@link #FILE}
     * @param fileName the trace file; not read for the console
     * @param mode as of {@link #InitializeLog}
     * @param maxSizeMB as of {@link #InitializeLog}
     * @param format layout of the lines: 0 bracketed, 1 columns, 2 delimited, 3 XML
     * @param separator what stands between the fields in layout 2; {@code null} for nothing
     * @param configFile the trace configuration file
     * @param useLocalTime true for local time, false for UTC
     * @param maxBackups backups to keep; 0 keeps all
     * @return 1 when tracing is on; 0 when it is not: with a configuration that cannot be read
     *     earlier tracing goes on, with a file that cannot be opened it has ended
     */
    public static native int InitializeTrace(
            String loggerName,
            int outputKind,
            String fileName,
            int mode,
            int maxSizeMB,
            int format,
            String separator,
            String configFile,
            boolean useLocalTime,
            int maxBackups);

    /**
     * Writes an error message with one insertion argument.
     *
     * @param loggerName the logger; {@code null} or empty for the default one
     * @param sourceFile what the line names as its source
     * @param messageId component in bits 24 to 31, severity in bits 14 and 15 (1 information,
     *     2 warning, 3 error), number in bits 0 to 13
     * @param argument what the text's {0} becomes
     * @return always 1
     */
    public static native int LogMsg(
            String loggerName, String sourceFile, int messageId, String argument);

    /**
     * Writes an error message with up to five insertion arguments; missing ones and null elements
     * are empty. Nothing is written for a null or empty array, nor for one of six or more elements:
     * that is traced by the default logger as a warning.
     *
     * @param loggerName the logger; {@code null} or empty for the default one
     * @param sourceFile what the line names as its source
     * @param messageId as of the other form
     * @param arguments what the text's {0} to {4} become
     * @return always 1
     */
    public static native int LogMsg(
            String loggerName, String sourceFile, int messageId, String[] arguments);

    /**
     * Writes a trace line if the component is traced and no filter rejects it.
     *
     * @param loggerName the logger; {@code null} or empty for the default one
     * @param sourceFile the field SrcFile: what follows the last backslash
     * @param function the field Function
     * @param componentId component in bits 24 to 31, sub-component in bits 16 to 23
     * @param transactionId the field TransactionID
     * @param message the field Message
     * @return always 1
     */
    public static native int TraceMsg(
            String loggerName,
            String sourceFile,
            String function,
            int componentId,
            String transactionId,
            String message);

    /**
     * Writes a trace line as the other form does; each {@code %s} of the message becomes the next of
     * up to five arguments, or nothing, and {@code %%} one percent sign. Null elements are empty.
     * With a null or empty array, or one of six or more elements (which is traced by the default
     * logger as a warning first), the message is written as it stands.
     *
     * @param loggerName as of the other form
     * @param sourceFile as of the other form
     * @param function as of the other form
     * @param componentId as of the other form
     * @param transactionId as of the other form
     * @param message the pattern of the field Message
     * @param arguments what its placeholders become
     * @return always 1
     */
    public static native int TraceMsg(
            String loggerName,
            String sourceFile,
            String function,
            int componentId,
            String transactionId,
            String message,
            String[] arguments);

    /**
     * Tells whether a logger traces at all.
     *
     * @param loggerName the logger; {@code null} or empty for the default one
     * @return true when it has a trace configuration and an output
     */
    public static native boolean TraceEnabled(String loggerName);

    /**
     * Tells whether a logger traces a component, so that a costly text need not be made in vain.
     *
     * @param loggerName the logger; {@code null} or empty for the default one
     * @param componentId as of {@link #TraceMsg}; 0 asks whether it traces at all
     * @return true when the component is selected
     */
    public static native boolean TraceEnabledComponent(String loggerName, int componentId);
}
