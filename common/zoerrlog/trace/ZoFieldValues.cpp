#include <zoerrlog/trace/ZoFieldValues.h>

void ZoFieldValues::Set(unsigned int field, std::string_view text) {
    Place& place = m_places[field];
    if (place.line == m_line) {
        m_replaced += place.length;
        place.length = 0;
    }
    if (text.size() > m_texts.room() && m_replaced > 0) {
        DropReplacedTexts();
    }
    const std::size_t offset = m_texts.size();
    m_texts.append(text);
    place = {offset, text.size(), m_line};
}

void ZoFieldValues::DropReplacedTexts() {
    ZoByteString kept;
    std::size_t offsets[kZoDataFieldCount];
    for (unsigned int field = 0; field < kZoDataFieldCount; ++field) {
        offsets[field] = kept.size();
        kept.append(Get(field));
    }
    for (unsigned int field = 0; field < kZoDataFieldCount; ++field) {
        m_places[field].offset = offsets[field];
    }
    m_texts.assign(kept);
    m_replaced = 0;
}

void ZoFieldValues::Clear() noexcept {
    ++m_line;
    m_replaced = 0;
    m_texts.clear_and_shrink();
}
