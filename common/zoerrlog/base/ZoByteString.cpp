#include <zoerrlog/base/ZoByteString.h>

#include <algorithm>
#include <memory>
#include <new>

void ZoByteString::Grow(std::size_t length) {
    constexpr std::size_t kLargest = static_cast<std::size_t>(-1) / 4;
    if (length > kLargest || m_size > kLargest) {
        throw std::bad_alloc();
    }
    const std::size_t capacity = std::max(m_size + length, 2 * m_capacity);
    auto larger = std::make_unique<char[]>(capacity + 1);
    std::memcpy(larger.get(), m_data, m_size + 1);
    if (m_data != m_inline) {
        FreeHeap();
    }
    m_data = larger.release();
    m_capacity = capacity;
}

void ZoByteString::FreeHeap() noexcept {
    std::unique_ptr<char[]> owned(m_data);
}
