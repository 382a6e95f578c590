#include <zoerrlog/error/ZoError.h>

#include <memory>
#include <new>
#include <utility>

#include <zoerrlog/logger/ZoLogger.h>

CZoErrData::CZoErrData() : next(nullptr), code(0), logged(false) {
}

CZoErrData::~CZoErrData() = default;

CZoError::CZoError() : head(nullptr), tail(nullptr) {
}

CZoError::~CZoError() {
    Clear();
}

CZoError::CZoError(const CZoError& other) : CZoError() {
    TakeFrom(other);
}

CZoError& CZoError::operator=(const CZoError& other) {
    if (this != &other) {
        Clear();
        TakeFrom(other);
    }
    return *this;
}

void CZoError::TakeFrom(const CZoError& other) {
    head = std::exchange(other.head, nullptr);
    tail = std::exchange(other.tail, nullptr);
}

CZoErrData* CZoError::NewErrData() {
    return std::unique_ptr<CZoErrData>(new (std::nothrow) CZoErrData).release();
}

void CZoError::Clear() {
    tail = nullptr;
    // One after another, not each from within the one before: a collection may be long.
    for (CZoErrData* record = std::exchange(head, nullptr); record != nullptr;) {
        const std::unique_ptr<CZoErrData> owned(record);
        record = owned->next;
    }
}

void CZoError::AddError(CZoErrData* record) {
    if (record == nullptr || record == tail) {
        return;
    }
    record->next = nullptr;
    (tail != nullptr ? tail->next : head) = record;
    tail = record;
}

void CZoError::SetError(CZoErrData* record) {
    Clear();
    AddError(record);
}

bool CZoError::LogMessages() {
    bool taken = true;
    for (CZoErrData* record = head; record != nullptr; record = record->next) {
        if (!record->logged) {
            taken = theLogger()->LogErrMsg(record->message) && taken;
            record->logged = true;
        }
    }
    return taken;
}

bool CZoError::LogLastMessage() {
    if (tail != nullptr) {
        // Whoever wants to know asks LogMessages.
        static_cast<void>(theLogger()->LogErrMsg(tail->message));
    }
    for (CZoErrData* record = head; record != nullptr; record = record->next) {
        record->logged = true;
    }
    return true;
}

unsigned int CZoError::GetLastError() {
    return tail != nullptr ? tail->code : 0;
}
