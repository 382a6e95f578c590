#ifndef ZOERRLOG_LOGGER_ZOCONFIGVERSION_H
#define ZOERRLOG_LOGGER_ZOCONFIGVERSION_H

namespace zoerrlog::logger {

/// A version for a trace configuration: higher than any that a logger of this process has given
/// out, or has noted as dropped. Never 0, which stands for a record without a configuration.
int NextConfigVersion() noexcept;

/// Notes that the configuration of this version is gone.
void NoteDroppedVersion(int version) noexcept;

}  // namespace zoerrlog::logger

#endif
