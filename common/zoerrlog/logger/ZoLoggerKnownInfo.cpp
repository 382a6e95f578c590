#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <type_traits>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/message/ZoMessageId.h>

namespace {

using namespace zoerrlog::message;

constexpr std::size_t kFirstInfos = std::size_t{10} * kZoComponentCount;
constexpr std::size_t kInfoGrowth = 50;
constexpr int kMostSubComponents = kSubComponentMask;

constexpr std::string_view kBetweenComponents = " | ";
constexpr std::string_view kBeforeDescription = " ; ";
constexpr std::string_view kBeforeSubComponents = " : ";
constexpr char kBetweenSubComponents = '&';

std::string_view TextOf(const char* text) {
    return text != nullptr ? text : std::string_view();
}

// Component libraries are built apart from the logger: a name may lack its terminator.
std::string_view NameOf(const ZoSubComponentInfo& info) {
    return {info.name, strnlen(info.name, sizeof(info.name))};
}

std::unique_ptr<char[]> CompositeName(std::string_view component, std::string_view subComponent) {
    auto name = std::make_unique<char[]>(component.size() + subComponent.size() + 2);
    char* end = std::copy(component.begin(), component.end(), name.get());
    *end++ = '/';
    std::copy(subComponent.begin(), subComponent.end(), end);
    return name;
}

using DataFieldDescriptors = std::array<ZoTraceDataFieldInfo, kZoDataFieldCount>;

// The same for all loggers, which share it; without a destructor, as they outlast the end of the
// process.
const ZoTraceDataFieldInfo* DescribedDataFields() {
    static_assert(std::is_trivially_destructible_v<DataFieldDescriptors>);
    static const DataFieldDescriptors descriptors = [] {
        DataFieldDescriptors all{};
        const KNOWNDATAFIELDINFO* known = nullptr;
        int count = 0;
        GetKnownDataFields(&count, &known);
        for (unsigned int i = 0; i < all.size(); ++i) {
            all[i].id = i;
            all[i].name = known[i].name;
            all[i].width = known[i].width;
        }
        return all;
    }();
    return descriptors.data();
}

}  // namespace

bool CZoLogger::InitKnownInfo() {
    m_strAvailableComponents.clear();
    m_pComponentInfo = std::make_unique<ZoTraceComponentInfo[]>(kFirstInfos);
    m_iComponentInfoCount = 0;
    for (int i = 0; i < m_iComponentCount; ++i) {
        if (m_ppComponents[i] != nullptr) {
            DescribeComponent(*m_ppComponents[i]);
        }
    }
    if (m_iComponentCount != 0) {
        m_strAvailableComponents.resize(m_strAvailableComponents.size() -
                                        kBetweenComponents.size());
    }
    DescribeDataFields();
    return true;
}

void CZoLogger::DescribeComponent(CZoErrLogComponent& component) {
    std::string& text = m_strAvailableComponents;
    const std::string_view name = TextOf(component.GetName());
    text.append(name).append(kBeforeDescription).append(TextOf(component.GetDescription()));
    AddComponentInfo(component.GetId(), component.GetName() != nullptr ? component.GetName() : "");

    int count = 0;
    ZoSubComponentInfo* subComponents = nullptr;
    component.GetSubComponents(&count, &subComponents);
    count = subComponents != nullptr ? std::min(count, kMostSubComponents) : 0;
    for (int k = 1; k <= count; ++k) {
        const ZoSubComponentInfo& info = subComponents[k - 1];
        text.append(k == 1 ? kBeforeSubComponents : std::string_view(&kBetweenSubComponents, 1));
        text.append(NameOf(info)).append(kBeforeDescription).append(TextOf(info.description));
        m_compositeNames.push_back(CompositeName(name, NameOf(info)));
        AddComponentInfo(component.GetId() | static_cast<unsigned int>(k) << kSubComponentShift,
                         m_compositeNames.back().get());
    }
    text.append(kBetweenComponents);
}

void CZoLogger::AddComponentInfo(unsigned int id, const char* name) {
    const auto used = static_cast<std::size_t>(m_iComponentInfoCount);
    if (used >= kFirstInfos && (used - kFirstInfos) % kInfoGrowth == 0) {
        auto larger = std::make_unique<ZoTraceComponentInfo[]>(used + kInfoGrowth);
        std::copy_n(m_pComponentInfo.get(), used, larger.get());
        m_pComponentInfo = std::move(larger);
    }
    m_pComponentInfo[m_iComponentInfoCount++] = {false, id, name};
}

void CZoLogger::DescribeDataFields() {
    const KNOWNDATAFIELDINFO* fields = nullptr;
    GetKnownDataFields(&m_iDataFieldCount, &fields);
    m_strAvailableDataFields.clear();
    for (int i = 0; i < m_iDataFieldCount; ++i) {
        m_strAvailableDataFields.append(i == 0 ? "" : " ").append(fields[i].name);
    }
    m_pDataFieldInfo = DescribedDataFields();
}

bool CZoLogger::GetTraceComponents(int* count, const ZoTraceComponentInfo** components) const {
    if (!Inited()) {
        return false;
    }
    *count = m_iComponentInfoCount;
    *components = m_pComponentInfo.get();
    return true;
}
