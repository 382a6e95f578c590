#ifndef ZOERRLOG_PLATFORM_BLOCKLIST_H
#define ZOERRLOG_PLATFORM_BLOCKLIST_H

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>

namespace zoerrlog::platform {

/// A list that grows by blocks of `Size` elements and never moves one. A new block is complete
/// before a single store makes it part of the list: whoever forks while another thread adds one
/// finds a whole list in the child.
///
/// Growing and clearing are for one thread at a time; the caller sees to that.
template <typename Element, std::size_t Size>
class BlockList {
public:
    BlockList() = default;
    ~BlockList() { Clear(); }
    BlockList(const BlockList&) = delete;
    BlockList& operator=(const BlockList&) = delete;

    /// The first element, in the order of the list, for which `condition` holds; null for none.
    template <typename Condition>
    Element* FindIf(Condition condition) noexcept {
        for (Block* block = m_first.load(std::memory_order_acquire); block != nullptr;
             block = block->next.load(std::memory_order_acquire)) {
            for (Element& element : block->elements) {
                if (condition(element)) {
                    return &element;
                }
            }
        }
        return nullptr;
    }

    template <typename Action>
    void ForEach(Action action) noexcept {
        FindIf([&action](Element& element) {
            action(element);
            return false;
        });
    }

    /// Adds a block of elements made by their default constructor and returns the first of them.
    Element& Grow() {
        auto block = std::make_unique<Block>();
        std::atomic<Block*>* end = &m_first;
        while (Block* const next = end->load(std::memory_order_relaxed)) {
            end = &next->next;
        }
        Element& first = block->elements.front();
        end->store(block.release(), std::memory_order_release);
        return first;
    }

    void Clear() noexcept {
        Block* block = m_first.exchange(nullptr);
        while (block != nullptr) {
            const std::unique_ptr<Block> owned(block);
            block = owned->next.load(std::memory_order_relaxed);
        }
    }

private:
    struct Block {
        std::array<Element, Size> elements{};
        std::atomic<Block*> next{nullptr};
    };

    std::atomic<Block*> m_first{nullptr};
};

}  // namespace zoerrlog::platform

#endif
