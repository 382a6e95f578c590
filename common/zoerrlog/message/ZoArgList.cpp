#include <zoerrlog/message/ZoArgList.h>

const int CpaArgList::MAX_ARGC;

CpaArgList& CpaArgList::clear() {
    args.clear();
    argc = 0;
    return *this;
}

CpaArgList& CpaArgList::operator<<(const CpaStream& value) {
    if (argc == MAX_ARGC) {
        return *this;
    }
    const std::string_view text = value.view();
    const std::size_t start = args.size();
    *ZoCopyShort(args.prepare(text.size() + 1), text) = '\0';
    args.commit(text.size() + 1);
    m_places[argc++] = {start, text.size()};
    if (value.may_hold_zeros()) {
        SplitAtZeros(text);
    }
    return *this;
}

// The last argument so far becomes one for each part of `text`, as far as there is room.
void CpaArgList::SplitAtZeros(std::string_view text) {
    std::size_t start = m_places[argc - 1].start;
    for (std::size_t zero = text.find('\0'); zero != std::string_view::npos;
         zero = text.find('\0')) {
        m_places[argc - 1].length = zero;
        if (argc == MAX_ARGC) {
            return;
        }
        text.remove_prefix(zero + 1);
        start += zero + 1;
        m_places[argc++] = {start, text.size()};
    }
}

unsigned long long CpaArgList::toArgv(const char** argv) const {
    for (unsigned long long i = 0; i < argc; ++i) {
        argv[i] = args.data() + m_places[i].start;
    }
    return argc;
}
