#ifndef ZOI18N_RENAME_WITHOUT_REPLACING_H
#define ZOI18N_RENAME_WITHOUT_REPLACING_H

namespace zoi18n {

// The system calls a rename is made of; each gives 0, or -1 with errno set. A test puts a failing
// one in the place of the system's.
struct RenameSteps {
    int (*renameWithoutReplacing)(const char* from, const char* to);
    int (*link)(const char* from, const char* to);
    int (*unlink)(const char* name);
};

extern const RenameSteps kSystemRenameSteps;

// As ZoRename, for names that are already translated.
int RenameWithoutReplacing(const char* from, const char* to, const RenameSteps& steps) noexcept;

}  // namespace zoi18n

#endif
