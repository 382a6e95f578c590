#ifndef ZOERRLOG_LOGGER_ZOERRLOGCOMPONENT_H
#define ZOERRLOG_LOGGER_ZOERRLOGCOMPONENT_H

#include <zoerrlog/base/ZoExport.h>

struct ZoModuleHolder;

/// One sub-component. Component libraries and the logger exchange these records, so their layout
/// never changes.
struct ZoSubComponentInfo {
    char key[24];             ///< not read by the logger
    char name[32];            ///< zero-terminated
    const char* description;  ///< one line, zero-terminated
};

/// A component of the product: its names, its sub-components and its message entries.
///
/// A component library derives from it and exports GetComponentPtr, which returns its one object.
/// The class is complete in this header: a component library needs no code of libzoerrlog. The
/// object and all it hands out belong to the component library and live as long as it is loaded.
/// Any thread may call any operation at any time; none may throw.
class CZoErrLogComponent {
public:
    virtual ~CZoErrLogComponent() = default;
    CZoErrLogComponent(const CZoErrLogComponent&) = delete;
    CZoErrLogComponent& operator=(const CZoErrLogComponent&) = delete;

    /// Stores the number of sub-components (0 to 255) and their array; returns the array, which
    /// may be null when there are none.
    virtual ZoSubComponentInfo* GetSubComponents(int* count, ZoSubComponentInfo** array) = 0;

    /// The entry of message `id`, or null when the component has none: the message's key in the
    /// component's bundle, or a printf pattern for hosts that format without a catalogue.
    virtual const char* GetMessage(unsigned int id) = 0;

    /// The component number (1 to 27) in bits 24 to 31, zero below.
    unsigned int GetId() const { return m_dwId; }
    /// The name of the component's message bundle, or null when it has none.
    const char* GetBundleName() const { return m_pszBundleName; }
    /// The name used in trace configurations.
    const char* GetName() const { return m_pszName; }
    /// One line for administrators.
    const char* GetDescription() const { return m_pszDescription; }

protected:
    /// The texts are not copied and must live as long as the component.
    CZoErrLogComponent(unsigned int id, const char* bundleName, const char* name,
                       const char* description)
        : m_pModule(nullptr),
          m_dwId(id),
          m_pszBundleName(bundleName),
          m_pszName(name),
          m_pszDescription(description) {}

private:
    friend class CZoLogger;

    // Set by the logger that loaded the component; owned by that logger.
    ZoModuleHolder* m_pModule;
    unsigned int m_dwId;
    const char* m_pszBundleName;
    const char* m_pszName;
    const char* m_pszDescription;
};

/// The component that is built into the library: number 1, messages 1 to 3, each of them its first
/// argument.
class ZOERRLOG_EXPORT CZoLogComponent : public CZoErrLogComponent {
public:
    CZoLogComponent();
    ~CZoLogComponent() override;
    ZoSubComponentInfo* GetSubComponents(int* count, ZoSubComponentInfo** array) override;
    const char* GetMessage(unsigned int id) override;
};

/// The entry point that every component library exports: its component object, which stays the
/// library's. In this library it gives a CZoLogComponent.
extern "C" ZOERRLOG_EXPORT CZoErrLogComponent* GetComponentPtr();

#endif
