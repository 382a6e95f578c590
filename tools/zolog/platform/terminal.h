#ifndef ZOLOG_PLATFORM_TERMINAL_H
#define ZOLOG_PLATFORM_TERMINAL_H

namespace zolog {

/// True when standard error is a terminal.
bool StandardErrorIsTerminal();

}  // namespace zolog

#endif
