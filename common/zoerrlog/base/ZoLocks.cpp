#include <zoerrlog/base/ZoLocks.h>

#include <new>

#include <zoerrlog/platform/CriticalSection.h>

using zoerrlog::platform::CriticalSection;

CZoErrLogCriticalSection::CZoErrLogCriticalSection() {
    static_assert(sizeof(CriticalSection) <= kStorageSize);
    static_assert(alignof(CriticalSection) <= alignof(std::max_align_t));
    ::new (m_storage) CriticalSection;
}

CZoErrLogCriticalSection::~CZoErrLogCriticalSection() {
    Section().~CriticalSection();
}

void CZoErrLogCriticalSection::Enter() {
    Section().Enter();
}

void CZoErrLogCriticalSection::Leave() {
    Section().Leave();
}

CriticalSection& CZoErrLogCriticalSection::Section() {
    return *std::launder(reinterpret_cast<CriticalSection*>(m_storage));
}

CZoErrLogCS::CZoErrLogCS() : m_pSection(new (std::nothrow) CriticalSection) {
}

CZoErrLogCS::~CZoErrLogCS() {
    delete m_pSection;
    // Volatile, or the compiler drops the last store into a dying object.
    const_cast<CriticalSection* volatile&>(m_pSection) = nullptr;
}

void CZoErrLogCS::Enter() {
    if (m_pSection != nullptr) {
        m_pSection->Enter();
    }
}

void CZoErrLogCS::Leave() {
    if (m_pSection != nullptr) {
        m_pSection->Leave();
    }
}
