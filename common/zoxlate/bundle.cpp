#include <zoxlate/bundle.h>

namespace zoxlate {

Bundle::Bundle(const TextMap& texts) : m_texts(texts) {
    for (BundleHandle& handle : m_handles) {
        handle.m_bundle = this;
    }
}

Bundle::Owner Bundle::Create(const TextMap& texts) {
    return Owner(new Bundle(texts));
}

void Bundle::GiveUp::operator()(Bundle* bundle) const noexcept {
    for (BundleHandle& handle : bundle->m_handles) {
        handle.Drop();
    }
}

void BundleHandle::Drop() noexcept {
    if (m_users.fetch_sub(1, std::memory_order_acq_rel) == 1 &&
        m_bundle->m_liveHandles.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        const std::default_delete<Bundle> destroy;
        destroy(m_bundle);
    }
}

}  // namespace zoxlate
