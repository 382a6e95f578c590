#include <algorithm>
#include <string>

#include <zoerrlog/message/ZoMessageId.h>
#include <zoerrlog/message/ZoTraceLayout.h>
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
    std::copy_n(fields, kZoDataFieldCount, m_settings->fields.begin());
    m_traced.Clear();
    m_filtered.Clear();
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

ZoTraceDataFieldInfo* CZoTraceData::GetDataFieldInfo(std::string_view name) const {
    auto& fields = m_settings->fields;
    const auto found =
        std::find_if(fields.begin(), fields.end(),
                     [name](const ZoTraceDataFieldInfo& info) { return info.name == name; });
    return found != fields.end() ? &*found : nullptr;
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
    ZoTraceSettings& settings = *m_settings;
    settings.columns.push_back({field.id, field.width, field.name});
    settings.widestColumn = std::max({settings.widestColumn, static_cast<std::size_t>(field.width),
                                      settings.columns.back().name.size()});
    settings.roomBesideValues += RoomBesideValue(m_iFormat, settings.columns.back().name.size(),
                                                 field.width, settings.separator.size());
    field.traced = true;
    m_traced.Add(field.id);
    return true;
}

void CZoTraceData::SetFilter(ZoTraceDataFieldInfo& field, unsigned int filterOperator,
                             std::string_view value) {
    ZoTraceSettings::Filter& filter = m_settings->filters[field.id];
    filter = {filterOperator, std::string(value)};
    field.filterValue = filter.value.c_str();
    field.filterOperator = filterOperator;
    field.filtered = true;
    m_filtered.Add(field.id);
}

bool CZoTraceData::ComponentSelected(unsigned int id) const {
    const ZoTraceComponentInfo* const info = GetComponentInfo(id);
    return info != nullptr && info->selected;
}
