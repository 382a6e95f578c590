#include <algorithm>
#include <iterator>
#include <string>

#include <zoerrlog/message/ZoMessageId.h>
#include <zoerrlog/trace/ZoTraceConfigReader.h>
#include <zoerrlog/trace/ZoTraceData.h>
#include <zoerrlog/trace/ZoTraceSettings.h>

using namespace zoerrlog::message;

bool CZoTraceData::SetConfiguration(int format, const char* separator, const char* fileName,
                                    int componentCount, const ZoTraceComponentInfo* components,
                                    const ZoTraceDataFieldInfo* fields, bool localTime,
                                    const ZoTraceConfigObserver* observer) {
    if (components == nullptr || fields == nullptr) {
        return false;
    }
    m_settings = std::make_shared<ZoTraceSettings>();
    m_settings->separator = separator != nullptr ? separator : "";
    m_settings->components.assign(components, components + componentCount);
    for (int i = 0; i < kZoDataFieldCount; ++i) {
        m_fields[i].id = fields[i].id;
        m_fields[i].name = fields[i].name;
        m_fields[i].width = fields[i].width;
    }
    m_bLocalTime = localTime;
    m_iFormat = format;
    m_bConfigured = true;
    return ReadConfigFile(fileName, observer);
}

bool CZoTraceData::ReadConfigFile(const char* fileName, const ZoTraceConfigObserver* observer) {
    return ZoTraceConfigReader(*this, observer).Read(fileName);
}

ZoTraceComponentInfo* CZoTraceData::GetComponentInfo(unsigned int id) const {
    return FindComponent([id](const ZoTraceComponentInfo& info) { return info.id == id; });
}

ZoTraceComponentInfo* CZoTraceData::GetComponentInfo(std::string_view name) const {
    return FindComponent([name](const ZoTraceComponentInfo& info) { return info.name == name; });
}

template <typename Condition>
ZoTraceComponentInfo* CZoTraceData::FindComponent(Condition condition) const {
    if (m_settings == nullptr) {
        return nullptr;
    }
    auto& components = m_settings->components;
    const auto found = std::find_if(components.begin(), components.end(), condition);
    return found != components.end() ? &*found : nullptr;
}

ZoTraceDataFieldInfo* CZoTraceData::GetDataFieldInfo(std::string_view name) {
    ZoTraceDataFieldInfo* const found =
        std::find_if(std::begin(m_fields), std::end(m_fields),
                     [name](const ZoTraceDataFieldInfo& info) { return info.name == name; });
    return found != std::end(m_fields) ? found : nullptr;
}

bool CZoTraceData::MarkComponentTraced(unsigned int id) {
    if (m_settings == nullptr) {
        return false;
    }
    const bool namesSubComponent = ComponentNumber(id) != 0 && SubComponentNumber(id) != 0;
    for (ZoTraceComponentInfo& info : m_settings->components) {
        if (info.id == id) {
            info.selected = true;
            if (namesSubComponent) {
                break;
            }
        } else if (ComponentNumber(info.id) << kComponentShift == id) {
            info.selected = true;
        }
    }
    return true;
}

bool CZoTraceData::MarkFieldTraced(ZoTraceDataFieldInfo& field) {
    if (field.traced) {
        return false;
    }
    // The last slot is taken only when all fields are traced: the list then has no end mark.
    *std::find(std::begin(m_fieldOrder), std::end(m_fieldOrder), 0U) = field.id + 1;
    field.traced = true;
    return true;
}

void CZoTraceData::SetFilter(ZoTraceDataFieldInfo& field, unsigned int filterOperator,
                             std::string_view value) {
    std::string& owned = m_settings->filterValues[field.id];
    owned = value;
    field.filterValue = owned.c_str();
    field.filterOperator = filterOperator;
    field.filtered = true;
}

bool CZoTraceData::ComponentSelected(unsigned int id) const {
    const ZoTraceComponentInfo* const info = GetComponentInfo(id);
    return info != nullptr && info->selected;
}
