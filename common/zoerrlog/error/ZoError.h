#ifndef ZOERRLOG_ERROR_ZOERROR_H
#define ZOERRLOG_ERROR_ZOERROR_H

#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/message/ZoErrLogMessage.h>

/// An error that was collected. Its maker fills it, and hands it to a CZoError.
class ZOERRLOG_EXPORT CZoErrData {
public:
    CZoErrData();
    virtual ~CZoErrData();
    CZoErrData(const CZoErrData&) = delete;
    CZoErrData& operator=(const CZoErrData&) = delete;

    CZoErrData* next;          ///< the record behind this one in its collection; set by that
    unsigned int code;         ///< the error's number, as GetLastError gives it; 0 at first
    bool logged;               ///< true once a collection has handed it to the error log
    CZoErrLogMessage message;  ///< the formatted message
};

/// Error records that are gathered during an operation and written to the error log of the default
/// logger afterwards, in the order in which they were added.
///
/// The collection owns its records. Copying or assigning a collection moves its records: the
/// source, though constant, is empty afterwards. A collection is used by one thread at a time.
class ZOERRLOG_EXPORT CZoError {
public:
    CZoError();
    /// Destroys the records.
    virtual ~CZoError();
    /// Takes over the records of `other`.
    CZoError(const CZoError& other);
    /// Destroys the own records and takes over those of `other`; nothing for itself.
    CZoError& operator=(const CZoError& other);

    /// A new record, which the caller owns until it is added; null without memory.
    static CZoErrData* NewErrData();

    /// Destroys the records.
    void Clear();
    /// Adds `record` at the end and takes it over. Null, and the record that is the last already,
    /// are ignored; a record must not be in a collection otherwise.
    void AddError(CZoErrData* record);
    /// Clear, then AddError; a record of this collection must not be given.
    void SetError(CZoErrData* record);

    /// Writes every record that is not marked as logged, in order, and marks it, also when the log
    /// refuses it. True when the log took all of them.
    bool LogMessages();
    /// Writes the last record, whether or not it is marked, and marks all. True always.
    bool LogLastMessage();
    /// The code of the last record; 0 when there is none.
    unsigned int GetLastError();

private:
    void TakeFrom(const CZoError& other);

    // Mutable, because a constant source gives its records away.
    mutable CZoErrData* head;
    mutable CZoErrData* tail;
};

#endif
