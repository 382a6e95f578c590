#ifndef ZOERRLOG_LOGGER_ZOCALLBACKOUTPUTS_H
#define ZOERRLOG_LOGGER_ZOCALLBACKOUTPUTS_H

#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/output/ZoLogOutput.h>

// Host callbacks. Each receives the text of a message and its length in bytes without the
// terminator. The text belongs to the message and is valid until the callback returns; a host that
// needs it later copies it. Calling the release function of the asynchronous kinds is optional and
// changes nothing.
//
// A callback runs on the thread that logs, possibly on several threads at once, and must not
// install or remove outputs of the channel that called it.

typedef void (*ZoLogCallback)(const char* text, int length);
typedef void (*ZoLogParameterizedCallback)(const char* text, int length, void* param);
typedef void (*ZoLogAsyncCallback)(const char* text, int length, void (*release)(char*));
typedef void (*ZoLogAsyncParameterizedCallback)(const char* text, int length,
                                                void (*release)(char*), void* param);

/// Hands each message to a callback. Type code 2.
class ZOERRLOG_EXPORT CZoSyncCallbackOutput : public CZoLogOutput {
public:
    CZoSyncCallbackOutput();
    bool Open() override;
    bool Log(CZoErrLogMessage& message) override;
    /// Forgets the callback; no message may follow.
    bool Close() override;
    /// Sets the callback, which must not be null when a message comes; true.
    virtual bool SetParams(ZoLogCallback callback);

private:
    ZoLogCallback m_pfnCallback;
};

/// Hands each message to a callback together with a parameter of the host's. Type code 4.
class ZOERRLOG_EXPORT CZoSyncParameterizedCallbackOutput : public CZoLogOutput {
public:
    CZoSyncParameterizedCallbackOutput();
    /// False unless both callback and parameter are set.
    bool Open() override;
    /// False, without a call, when the parameter is null.
    bool Log(CZoErrLogMessage& message) override;
    /// Forgets callback and parameter.
    bool Close() override;
    /// Sets callback and parameter; the parameter stays the host's. True.
    virtual bool SetParams(ZoLogParameterizedCallback callback, void* param);

private:
    ZoLogParameterizedCallback m_pfnCallback;
    void* m_pParam;
};

/// Hands each message to an asynchronous callback. Type code 3.
class ZOERRLOG_EXPORT CZoAsyncCallbackOutput : public CZoLogOutput {
public:
    CZoAsyncCallbackOutput();
    bool Open() override;
    bool Log(CZoErrLogMessage& message) override;
    bool Close() override;
    bool IsAsync() override;
    /// Sets the callback, which must not be null when a message comes; true.
    virtual bool SetParams(ZoLogAsyncCallback callback);

private:
    ZoLogAsyncCallback m_pfnCallback;
};

/// Hands each message to an asynchronous callback together with a parameter. Type code 5.
class ZOERRLOG_EXPORT CZoAsyncParameterizedCallbackOutput : public CZoLogOutput {
public:
    CZoAsyncParameterizedCallbackOutput();
    /// False unless both callback and parameter are set.
    bool Open() override;
    /// False, without a call, when the parameter is null.
    bool Log(CZoErrLogMessage& message) override;
    bool Close() override;
    bool IsAsync() override;
    /// Sets callback and parameter; the parameter stays the host's. True.
    virtual bool SetParams(ZoLogAsyncParameterizedCallback callback, void* param);

private:
    ZoLogAsyncParameterizedCallback m_pfnCallback;
    void* m_pParam;
};

#endif
