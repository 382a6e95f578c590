#include "TestComponent.h"

#include <string>
#include <vector>

namespace {

const char* g_entry = "entry";

class TestComponent final : public CZoErrLogComponent {
public:
    TestComponent()
        : CZoErrLogComponent(unsigned{COMPONENT_NUMBER} << 24, COMPONENT_BUNDLE, "Test",
                             "A test.") {
        for (std::size_t i = 0; i < m_parts.size(); ++i) {
            // A name that fills its field runs straight into the pointer behind it.
            std::string name = std::to_string(i);
            name.resize(sizeof m_parts[i].name, 'n');
            name.copy(m_parts[i].name, name.size());
            m_parts[i].description = "A part.";
        }
    }

    ZoSubComponentInfo* GetSubComponents(int* count, ZoSubComponentInfo** array) override {
        *count = static_cast<int>(m_parts.size());
        return *array = m_parts.data();
    }

    const char* GetMessage(unsigned int id) override {
        return (id & 0x3FFF) != 0 ? g_entry : nullptr;
    }

private:
    std::vector<ZoSubComponentInfo> m_parts{COMPONENT_PARTS};
};

}  // namespace

CZoErrLogComponent* GetComponentPtr() {
    static TestComponent component;
    return &component;
}

void SetControlledEntry(const char* entry) {
    g_entry = entry;
}
