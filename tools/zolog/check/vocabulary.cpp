#include <zolog/check/vocabulary.h>

#include <algorithm>
#include <cstddef>
#include <iomanip>
#include <ostream>
#include <sstream>

#include <zoerrlog/zoerrlog.h>

#include <zolog/command.h>

namespace zolog {

namespace {

constexpr unsigned int kComponentShift = 24;
constexpr unsigned int kSubComponentBits = 0x00FF0000;
constexpr unsigned int kBuiltInComponent = 1;
constexpr int kIdDigits = 8;

}  // namespace

KnownComponents GetKnownComponents() {
    int count = 0;
    const ZoTraceComponentInfo* components = nullptr;
    if (!theLogger()->GetTraceComponents(&count, &components)) {
        throw CommandError("cannot ask for the components: the logger did not start");
    }
    return {components, static_cast<std::size_t>(count)};
}

KnownFields GetKnownFields() {
    int count = 0;
    const KNOWNDATAFIELDINFO* fields = nullptr;
    static_cast<void>(GetKnownDataFields(&count, &fields));
    return {fields, static_cast<std::size_t>(count)};
}

unsigned int ComponentOf(unsigned int id) {
    return id >> kComponentShift;
}

bool IsWholeComponent(unsigned int id) {
    return (id & kSubComponentBits) == 0;
}

bool OnlyBuiltIn(KnownComponents components) {
    return std::all_of(components.begin(), components.end(), [](const ZoTraceComponentInfo& known) {
        return ComponentOf(known.id) == kBuiltInComponent;
    });
}

std::string IdText(unsigned int id) {
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << std::setfill('0') << std::setw(kIdDigits) << id;
    return text.str();
}

void WriteComponents(std::ostream& stream, KnownComponents components) {
    for (const ZoTraceComponentInfo& component : components) {
        stream << IdText(component.id) << ' ' << component.name << '\n';
    }
}

void WriteFields(std::ostream& stream, KnownFields fields) {
    for (std::size_t number = 0; number < fields.size(); ++number) {
        stream << number << ' ' << fields[number].name << ' ' << fields[number].width << '\n';
    }
}

}  // namespace zolog
