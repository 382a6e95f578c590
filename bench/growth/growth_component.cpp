// A component library of the size that they have: three parts, some messages.
#include <iterator>

#include <zoerrlog/logger/ZoErrLogComponent.h>

namespace {

constexpr unsigned int kMessageNumberMask = 0x3FFF;
constexpr unsigned int kLastMessage = 3;

ZoSubComponentInfo g_parts[] = {
    {"Requests", "Requests", "Takes requests."},
    {"Answers", "Answers", "Sends answers."},
    {"Store", "Store", "Keeps what must last."},
};

class Component final : public CZoErrLogComponent {
public:
    Component()
        : CZoErrLogComponent(unsigned{COMPONENT_NUMBER} << 24, COMPONENT_NAME, COMPONENT_NAME,
                             "One of many components.") {}

    ZoSubComponentInfo* GetSubComponents(int* count, ZoSubComponentInfo** array) override {
        *count = static_cast<int>(std::size(g_parts));
        return *array = g_parts;
    }

    const char* GetMessage(unsigned int id) override {
        const unsigned int number = id & kMessageNumberMask;
        return number >= 1 && number <= kLastMessage ? "growth-00001" : nullptr;
    }
};

}  // namespace

CZoErrLogComponent* GetComponentPtr() {
    static Component component;
    return &component;
}
