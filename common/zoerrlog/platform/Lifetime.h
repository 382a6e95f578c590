#ifndef ZOERRLOG_PLATFORM_LIFETIME_H
#define ZOERRLOG_PLATFORM_LIFETIME_H

#include <new>

namespace zoerrlog::platform {

/// True once the library is being unloaded from a process that goes on; false while a process
/// exits. Meaningful in destructors of static objects.
bool IsBeingUnloaded() noexcept;

/// A static object that lasts as long as anybody can reach it: destroyed when the library is
/// unloaded from a running process, but left alone when the process exits, because other threads
/// may then still be using it. `Object` may do what is due at the end of the process in a member
/// `void CloseForExit()`.
template <typename Object>
class ProcessLasting {
public:
    template <typename... Arguments>
    explicit ProcessLasting(Arguments&&... arguments)
        : m_object(::new (m_storage) Object(static_cast<Arguments&&>(arguments)...)) {}

    ~ProcessLasting() {
        if (IsBeingUnloaded()) {
            m_object->~Object();
        } else if constexpr (requires(Object & object) { object.CloseForExit(); }) {
            m_object->CloseForExit();
        }
    }

    ProcessLasting(const ProcessLasting&) = delete;
    ProcessLasting& operator=(const ProcessLasting&) = delete;

    Object& Get() noexcept { return *m_object; }

private:
    alignas(Object) unsigned char m_storage[sizeof(Object)];
    Object* m_object;
};

}  // namespace zoerrlog::platform

#endif
