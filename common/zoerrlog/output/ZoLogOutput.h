#ifndef ZOERRLOG_OUTPUT_ZOLOGOUTPUT_H
#define ZOERRLOG_OUTPUT_ZOLOGOUTPUT_H

#include <zoerrlog/base/ZoExport.h>

class CZoErrLogMessage;

/// What a channel of a logger writes to. Made by the factories of CZoLogger, or derived from by a
/// host.
///
/// The logger calls Open, Close, SetHeaders and EnableBuffering while it lets no line through, and
/// Log from many threads at once. An output that has been installed belongs to the logger, which
/// closes and destroys it; until then it belongs to its creator. No operation may throw.
class ZOERRLOG_EXPORT CZoLogOutput {
public:
    virtual ~CZoLogOutput();

    /// Makes the output ready for lines; false when that is not possible.
    virtual bool Open() = 0;
    /// Writes the text of `message`, which stays the caller's and is valid until the return.
    /// True when the line was taken.
    virtual bool Log(CZoErrLogMessage& message) = 0;
    /// True when everything taken so far has been handed on; so here, where nothing is held back.
    virtual bool Flush();
    /// Ends the output; false when it was not open and that matters to its kind.
    virtual bool Close() = 0;
    virtual void EnableBuffering(bool on);
    virtual bool IsBufferingEnabled();
    virtual bool IsBufferingSupported();
    /// Two lines that a file output repeats at the top of every new file; ignored here.
    virtual void SetHeaders(CZoErrLogMessage& first, CZoErrLogMessage& second);
    /// True for an output that hands its text to the host for later use.
    virtual bool IsAsync();

    /// The output's kind: 0 console, 1 file, 2 callback, 3 asynchronous callback, 4 parameterized
    /// callback, 5 asynchronous parameterized callback.
    int GetType() const { return m_iType; }

protected:
    CZoLogOutput();
    CZoLogOutput(const CZoLogOutput&) = default;
    CZoLogOutput& operator=(const CZoLogOutput&) = default;

    void SetType(int type) { m_iType = type; }

private:
    int m_iType;
};

#endif
