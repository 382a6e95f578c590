#include <zoerrlog/logger/ZoErrLogComponent.h>
#include <zoerrlog/message/ZoMessageId.h>
#include <zoerrlog/platform/Lifetime.h>

namespace {

using namespace zoerrlog::message;

constexpr unsigned int kLastMessage = 3;

ZoSubComponentInfo g_legacy = {"Legacy", "Legacy", "Legacy Description."};

}  // namespace

CZoLogComponent::CZoLogComponent()
    : CZoErrLogComponent(kBuiltInComponent << kComponentShift, "Log", "Log", "Log description") {
}

CZoLogComponent::~CZoLogComponent() = default;

ZoSubComponentInfo* CZoLogComponent::GetSubComponents(int* count, ZoSubComponentInfo** array) {
    *count = 1;
    *array = &g_legacy;
    return &g_legacy;
}

const char* CZoLogComponent::GetMessage(unsigned int id) {
    const unsigned int number = id & kMessageNumberMask;
    return number >= 1 && number <= kLastMessage ? "%1s" : nullptr;
}

CZoErrLogComponent* GetComponentPtr() {
    static zoerrlog::platform::ProcessLasting<CZoLogComponent> component;
    return &component.Get();
}
