#include <zoerrlog/message/ZoArgList.h>

const int CpaArgList::MAX_ARGC;

CpaArgList& CpaArgList::clear() {
    args.clear();
    argc = 0;
    return *this;
}

CpaArgList& CpaArgList::operator<<(const CpaStream& value) {
    const auto limit = static_cast<unsigned long long>(MAX_ARGC);
    const std::string_view text = value.view();
    if (argc < limit) {
        args.append(text);
        args.push_back('\0');
        ++argc;
    }
    for (std::size_t zero = text.find('\0'); zero != std::string_view::npos && argc < limit;
         zero = text.find('\0', zero + 1)) {
        ++argc;
    }
    return *this;
}

unsigned long long CpaArgList::toArgv(const char** argv) const {
    const char* next = args.data();
    for (unsigned long long i = 0; i < argc; ++i) {
        argv[i] = next;
        next += std::strlen(next) + 1;
    }
    return argc;
}
