#include <zoerrlog/logger/ZoErrLogComponent.h>

CZoErrLogComponent* GetComponentPtr() {
    return nullptr;
}
