#ifndef ZOERRLOG_OUTPUT_ZOCONSOLEOUTPUT_H
#define ZOERRLOG_OUTPUT_ZOCONSOLEOUTPUT_H

#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/base/ZoLocks.h>
#include <zoerrlog/output/ZoLogOutput.h>

/// Writes each message to the console of the process: its standard output, when that is a
/// terminal. Several console outputs share the one console.
class ZOERRLOG_EXPORT CZoConsoleOutput : public CZoLogOutput {
public:
    CZoConsoleOutput();
    /// Does not give the console back: an output is closed before it is destroyed.
    ~CZoConsoleOutput() override;

    /// Takes a reference to the console. False when the output is open already or the process has
    /// no standard output.
    bool Open() override;
    /// Writes the whole text, zero bytes included. False when the output is not open, standard
    /// output is not a terminal, or not all of the text could be written.
    bool Log(CZoErrLogMessage& message) override;
    /// Gives the reference back. False when the output is not open.
    bool Close() override;

    /// There is nothing to set; true.
    virtual bool SetParams();

private:
    void* consoleHandle;
};

/// Owns the console of the process on behalf of all console outputs: the first to open allocates
/// it, the last to close frees it. One object in the process; any thread may use it.
class ZOERRLOG_EXPORT CZoConsoleManager {
public:
    virtual ~CZoConsoleManager();
    CZoConsoleManager(const CZoConsoleManager&) = delete;
    CZoConsoleManager& operator=(const CZoConsoleManager&) = delete;

    /// The manager, created by the first call.
    static CZoConsoleManager& Instance();

    /// Takes a reference and returns the console's handle, or null, with nothing taken, when there
    /// is no console to be had.
    void* AcquireConsole();
    /// Gives one reference back; the last one frees the console.
    void ReleaseConsole();

private:
    friend struct ZoConsoleManagerAccess;
    CZoConsoleManager();

    CZoErrLogCS lock;
    int refCount;
    void* consoleHandle;
};

#endif
