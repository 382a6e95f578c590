#ifndef TESTS_ZOXLATE_TEXT_OF_H
#define TESTS_ZOXLATE_TEXT_OF_H

#include <zoxlate/zoxlate.h>

#include <optional>
#include <string>

namespace zotest {

// The text of a key; nothing when there is no such bundle or key.
inline std::optional<std::string> TextOf(const char* bundleName, const char* locale,
                                         const char* key) {
    std::optional<std::string> copy;
    if (CZoXlate* const bundle = CZoXlate::GetBundle(bundleName, locale)) {
        if (const char* const text = bundle->GetText(key)) {
            copy = text;
        }
        bundle->Release();
    }
    return copy;
}

}  // namespace zotest

#endif
