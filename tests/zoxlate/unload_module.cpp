#include <zoxlate/zoxlate.h>

#include <string_view>

extern "C" __attribute__((visibility("default"))) bool UseBundle(const char* directory) {
    if (!CZoXlate::SetResourceDirectory(directory)) {
        return false;
    }
    CZoXlate* const bundle = CZoXlate::GetBundle("m", "fr");
    if (bundle == nullptr) {
        return false;
    }
    const bool good = std::string_view(bundle->GetText("k")) == "v";
    bundle->Release();
    return good && CZoXlate::SetResourceDirectory(directory) &&
           CZoXlate::GetBundle("n", "") == nullptr;
}
