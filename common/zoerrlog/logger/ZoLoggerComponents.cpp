#include <algorithm>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/logger/ZoModuleHolder.h>
#include <zoerrlog/message/ZoMessageId.h>
#include <zoerrlog/platform/Module.h>
#include <zoi18n/zoi18n.h>

using zoerrlog::message::ComponentNumber;

namespace {

using EntryPoint = CZoErrLogComponent* (*)();

const char* NullWhenEmpty(const std::string& text) {
    return text.empty() ? nullptr : text.c_str();
}

}  // namespace

CZoErrLogComponent* CZoLogger::LoadComponent(unsigned long id, const char* libraryName) {
    void* const module = ZoLoadLibrary(libraryName);
    if (module == nullptr) {
        return nullptr;
    }
    auto holder = std::make_unique<ZoModuleHolder>(ZoModuleHolder{module});
    const auto entryPoint =
        reinterpret_cast<EntryPoint>(zoerrlog::platform::FindSymbol(module, "GetComponentPtr"));
    CZoErrLogComponent* const component = entryPoint != nullptr ? entryPoint() : nullptr;
    if (component == nullptr) {
        zoerrlog::platform::FreeModule(module);
        return nullptr;
    }
    component->m_pModule = holder.get();
    m_modules[id - 1] = std::move(holder);
    return component;
}

void CZoLogger::UnloadComponent(CZoErrLogComponent* component) {
    // The component object is shared by all loggers of the process and knows only the holder of
    // the last one; each logger gives back the load that it made itself.
    CZoErrLogComponent** const end = m_ppComponents.get() + m_iComponentCount;
    CZoErrLogComponent** const slot = std::find(m_ppComponents.get(), end, component);
    if (component == nullptr || slot == end) {
        return;
    }
    const auto holder = std::move(m_modules[static_cast<std::size_t>(slot - m_ppComponents.get())]);
    *slot = nullptr;
    if (holder != nullptr) {
        zoerrlog::platform::FreeModule(holder->module);
    }
}

void CZoLogger::UnloadComponents() {
    if (!m_bUnloadedComponents.exchange(true)) {
        for (int i = 1; i < m_iComponentCount; ++i) {
            UnloadComponent(m_ppComponents[i]);
        }
    }
    m_modules.clear();
    m_iComponentCount = 0;
}

CZoErrLogComponent* CZoLogger::FindComponent(unsigned int id) const {
    const unsigned int number = ComponentNumber(id);
    if (!Inited() || number < 1 || number > kZoComponentCount) {
        return nullptr;
    }
    return m_ppComponents[number - 1];
}

const char* CZoLogger::FetchMsg(unsigned int id) const {
    CZoErrLogComponent* const component = FindComponent(id);
    return component != nullptr ? component->GetMessage(id) : nullptr;
}

const char* CZoLogger::GetMsgBundle(unsigned int id) const {
    const CZoErrLogComponent* const component = FindComponent(id);
    return component != nullptr ? component->GetBundleName() : nullptr;
}

CZoLogger::MessageEntry CZoLogger::FindMessage(unsigned int id) const {
    CZoErrLogComponent* const component = FindComponent(id);
    if (component == nullptr) {
        return {nullptr, nullptr};
    }
    return {component->GetMessage(id), component->GetBundleName()};
}

const char* CZoLogger::GetAvailableComponents() const {
    return NullWhenEmpty(m_strAvailableComponents);
}

const char* CZoLogger::GetAvailableDataFields() const {
    return NullWhenEmpty(m_strAvailableDataFields);
}
