#include <zoxlate/bundle_loader.h>
#include <zoxlate/bundle_table.h>
#include <zoxlate/published_table.h>
#include <zoxlate/zoxlate.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

using zoxlate::Bundle;
using zoxlate::BundleEntry;
using zoxlate::BundleHandle;
using zoxlate::BundleKey;
using zoxlate::BundleTable;
using zoxlate::TablePin;

namespace {

constexpr char kDefaultDirectory[] = ZOXLATE_DEFAULT_DIRECTORY;

// No longer name fits the file systems, and the table does not remember what cannot exist.
constexpr std::size_t kMaximumNameSize = 255;

// Only names that could leave the directory or make a hidden file are refused; any other merely has
// no file.
bool IsPlainName(std::string_view name) noexcept {
    return name.size() <= kMaximumNameSize && !name.starts_with('.') &&
           name.find_first_of("/\\") == std::string_view::npos;
}

CZoXlate* TakeHandle(const Bundle::Owner& bundle, std::size_t stripe) noexcept {
    if (bundle == nullptr) {
        return nullptr;
    }
    BundleHandle& handle = bundle->HandleOf(stripe);
    handle.Take();
    return &handle;
}

CZoXlate* LoadAndTake(TablePin& pin, const BundleKey& key) {
    if (key.name.empty() || !IsPlainName(key.name) || !IsPlainName(key.locale)) {
        return nullptr;
    }
    if (pin.Table() == nullptr) {
        pin.PublishFirst(std::make_unique<BundleTable>(kDefaultDirectory));
        if (const BundleEntry* entry = pin.Table()->Find(key)) {
            return TakeHandle(entry->bundle, pin.Stripe());
        }
    }
    auto [bundle, final] = zoxlate::LoadBundle(pin.Table()->Directory(), key.name, key.locale);
    if (!final) {
        return TakeHandle(bundle, pin.Stripe());
    }
    auto entry = std::make_unique<BundleEntry>(key, std::move(bundle));
    if (const BundleEntry* standing = pin.Table()->Add(entry)) {
        return TakeHandle(standing->bundle, pin.Stripe());
    }
    return TakeHandle(entry->bundle, pin.Stripe());
}

}  // namespace

CZoXlate* CZoXlate::GetBundle(const char* bundleName, const char* locale) {
    if (bundleName == nullptr) {
        return nullptr;
    }
    const BundleKey key(bundleName, locale == nullptr ? "" : locale);
    TablePin pin;
    if (pin.Table() != nullptr) {
        if (const BundleEntry* entry = pin.Table()->Find(key)) {
            return TakeHandle(entry->bundle, pin.Stripe());
        }
    }
    return LoadAndTake(pin, key);
}

const char* CZoXlate::GetText(const char* key) {
    return key == nullptr ? nullptr : static_cast<const BundleHandle*>(this)->Find(key);
}

void CZoXlate::Release() {
    static_cast<BundleHandle*>(this)->Drop();
}

bool CZoXlate::SetResourceDirectory(const char* directory) {
    if (directory == nullptr || *directory == '\0') {
        return false;
    }
    std::string name(directory);
    std::replace(name.begin(), name.end(), '\\', '/');
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(name, error);
    if (error || !std::filesystem::is_directory(absolute, error)) {
        return false;
    }
    zoxlate::PublishTable(std::make_unique<BundleTable>(absolute.string()));
    return true;
}

unsigned int CZoXlate::GetGeneration() {
    return zoxlate::TableGeneration();
}
