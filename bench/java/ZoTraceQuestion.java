import com.velmora.zoerrlog.ZoLogger;

/** A host that asks zoerrlog before it makes a line, and is told no. */
final class ZoTraceQuestion extends ZoTraceLine {
    ZoTraceQuestion() {
        super(NOT_SELECTED);
    }

    @Override
    public String name() {
        return super.name() + "_question";
    }

    @Override
    public void call(int count) {
        for (int i = 0; i < count; ++i) {
            if (ZoLogger.TraceEnabledComponent(null, NOT_SELECTED)) {
                super.call(1);
            }
        }
    }
}
