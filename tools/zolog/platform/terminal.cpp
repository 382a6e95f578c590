#include <zolog/platform/terminal.h>

#include <unistd.h>

namespace zolog {

bool StandardErrorIsTerminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

}  // namespace zolog
