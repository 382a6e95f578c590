#ifndef ZOERRLOG_LOGGER_ZOSELECTIONCACHE_H
#define ZOERRLOG_LOGGER_ZOSELECTIONCACHE_H

#include <array>
#include <atomic>
#include <cstddef>

#include <zoerrlog/trace/ZoKnownInfo.h>

/// Which components and sub-components the installed trace configuration selects, as far as that
/// has been asked. Indexed by the upper 16 bits of a component identifier.
///
/// Answers may be read and stored by many threads at once, who all store the same; the cache is
/// reset while nobody stores. Whoever finds an answer sees everything that came before it was
/// stored.
class ZoSelectionCache {
public:
    enum Answer : signed char { kUnknown = 0, kSelected = 1, kNotSelected = -1 };

    Answer Find(unsigned int componentId) const noexcept {
        const std::size_t index = IndexOf(componentId);
        return index < kAnswers ? m_answers[index].load(std::memory_order_acquire) : kUnknown;
    }

    /// Does nothing for an identifier that names no component.
    void Store(unsigned int componentId, bool selected) noexcept {
        const std::size_t index = IndexOf(componentId);
        if (index != 0 && index < kAnswers) {
            m_answers[index].store(selected ? kSelected : kNotSelected, std::memory_order_release);
        }
    }

    void Reset() noexcept {
        for (std::atomic<Answer>& answer : m_answers) {
            answer.store(kUnknown, std::memory_order_release);
        }
    }

private:
    static constexpr std::size_t kSubComponents = 256;
    static constexpr std::size_t kAnswers = (kZoComponentCount + 1) * kSubComponents;

    static std::size_t IndexOf(unsigned int componentId) { return componentId >> 16; }

    std::array<std::atomic<Answer>, kAnswers> m_answers{};
};

#endif
