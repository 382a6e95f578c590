import java.util.regex.Pattern;

/** What all lines say. */
final class Texts {
    static final String SOURCE = "LineBench.java";
    static final String KEY = "zo-login-00001";
    static final String USER = "webmaster";
    static final String ADDRESS = "192.0.2.17";
    static final String PORT = "38926";

    static final String FUNCTION = "CheckPassword";
    static final String TRANSACTION = "4c1d-77";
    static final String ATTEMPT = "3";

    /** Dates of error lines, for those that take patterns of this kind. */
    static final String LONG_DATE = "EEE MMM dd yyyy HH:mm:ss";
    /** Two fields of trace lines. */
    static final String DATE_AND_PRECISE_TIME = "MM/dd/yyyy'|'HH:mm:ss.SSS";

    static final Pattern ERROR_LINE =
            Pattern.compile(
                    "\\[\\d+/\\d+\\]\\[\\w{3} \\w{3} \\d\\d \\d{4} \\d\\d:\\d\\d:\\d\\d\\]\\["
                            + SOURCE + "\\]\\[ERROR\\]\\[" + KEY + "\\] Failed password for "
                            + USER + " from " + ADDRESS + " port " + PORT);
    static final Pattern TRACE_LINE =
            Pattern.compile(
                    "\\d\\d/\\d\\d/\\d{4}\\|\\d\\d:\\d\\d:\\d\\d\\.\\d{3}\\|\\d+\\|" + FUNCTION
                            + "\\|" + TRANSACTION + "\\|" + SOURCE + "\\|attempt " + ATTEMPT
                            + " of " + USER + " on port " + PORT);

    private Texts() {}
}
