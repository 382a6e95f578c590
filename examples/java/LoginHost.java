import com.velmora.zoerrlog.ZoLogger;

/** Writes the error log and the trace log of a host that checks who logs in. */
final class LoginHost {
    private static final String SOURCE = "LoginHost.java";
    /** The component Login_Logout/Authentication. */
    private static final int AUTHENTICATION = 0x07010000;
    /** Message 1 of Login_Logout, an error; its arguments are user, address and port. */
    private static final int LOGIN_REFUSED = 0x0700C001;
    /** Message 1 of the component Log, an information; its argument is the whole text. */
    private static final int TEXT = 0x01004001;

    private static final String DEFAULT_LOGGER = null;
    private static final int APPEND = 1;
    private static final int NO_LIMIT = 0;
    private static final int DELIMITED = 2;
    private static final int ALL_BACKUPS = 0;
    private static final boolean LOCAL_TIME = false;

    private LoginHost() {}

    private static boolean start(String logs, String resources, String traceConfiguration) {
        return ZoLogger.SetResourcesDirectory(resources) == 1
                && ZoLogger.InitializeLog(
                                DEFAULT_LOGGER,
                                ZoLogger.FILE,
                                logs + "/error.log",
                                APPEND,
                                NO_LIMIT,
                                LOCAL_TIME,
                                ALL_BACKUPS)
                        == 1
                && ZoLogger.InitializeTrace(
                                DEFAULT_LOGGER,
                                ZoLogger.FILE,
                                logs + "/trace.log",
                                APPEND,
                                NO_LIMIT,
                                DELIMITED,
                                "|",
                                traceConfiguration,
                                LOCAL_TIME,
                                ALL_BACKUPS)
                        == 1;
    }

    private static void trace(String message, String... arguments) {
        ZoLogger.TraceMsg(DEFAULT_LOGGER, SOURCE, "login", AUTHENTICATION, "", message, arguments);
    }

    /** LoginHost LOG-DIRECTORY RESOURCE-DIRECTORY TRACE-CONFIGURATION */
    public static void main(String[] arguments) {
        if (arguments.length != 3 || !start(arguments[0], arguments[1], arguments[2])) {
            System.exit(1);
        }
        final String[] login = {"root", "192.0.2.7", "22"};
        ZoLogger.LogMsg(DEFAULT_LOGGER, SOURCE, LOGIN_REFUSED, login);
        ZoLogger.LogMsg(DEFAULT_LOGGER, SOURCE, TEXT, "no more logins");
        trace("user %s from %s", "root", "192.0.2.7");
        trace("user %s from %s accepted", "carol", "192.0.2.8"); // the configuration rejects it
    }
}
