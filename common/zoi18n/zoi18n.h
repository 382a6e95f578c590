#ifndef ZOI18N_ZOI18N_H
#define ZOI18N_ZOI18N_H

/**
 * File, library and locale functions that behave alike on every platform of the product.
 *
 * Names. Every file name is a NUL-terminated string that the function only reads during the call.
 * A backslash separates directories exactly as a forward slash does. A null name fails with
 * EINVAL, an empty one with ENOENT, one of PATH_MAX bytes or more with ENAMETOOLONG.
 *
 * Results. Unless stated otherwise a function gives 0 (ZoOpen: a descriptor) on success and -1 on
 * failure, with the reason in errno: one named here, or what the system call of the same purpose
 * reports. A call that a signal interrupts is repeated, so EINTR is never seen.
 *
 * Threads. Every function may be called from any thread at any time, also in a forked child of a
 * process with threads. None throws.
 */

#if defined(__GNUC__)
#define ZOI18N_EXPORT __attribute__((visibility("default")))
#else
#define ZOI18N_EXPORT
#endif

/** Flags of ZoOpen, combined with |. Without kZoOpenWriteOnly the file is opened for reading. */
enum ZoOpenFlag : int {
    kZoOpenReadOnly = 0x0000,
    kZoOpenWriteOnly = 0x0001,
    kZoOpenAppend = 0x0008,   /**< every write goes to the end of the file */
    kZoOpenCreate = 0x0100,   /**< create the file when there is none */
    kZoOpenTruncate = 0x0200, /**< empty the file; needs kZoOpenWriteOnly */
};

/** Permission bits of ZoOpen, combined with |. */
enum ZoOpenPermission : int {
    kZoPermissionOwnerWrite = 0x0080,
    kZoPermissionOwnerRead = 0x0100,
};

/** Modes of ZoAccess, combined with |. */
enum ZoAccessMode : int {
    kZoAccessExists = 0,
    kZoAccessWrite = 2,
    kZoAccessRead = 4,
};

/**
 * Opens a file; the descriptor is closed in a program that the process executes.
 *
 * @param flags       ZoOpenFlag values
 * @param permission  ZoOpenPermission values, used when the file is created and subject to the
 *                    process's creation mask; other bits have no effect
 * @return the descriptor, which the caller closes; -1 with EINVAL for any other flag and for
 *         kZoOpenTruncate without kZoOpenWriteOnly, or with the reason as of open(2)
 */
ZOI18N_EXPORT int ZoOpen(const char* name, int flags, int permission);

/**
 * Renames a file within its file system and never replaces one.
 *
 * On a file system that cannot do this in one step the file has both names for a moment.
 *
 * @return 0; -1 with EEXIST when @p to exists (also when it is the same file), EACCES when the
 *         system refuses the change, otherwise with the reason as of rename(2). Both files are
 *         as before a failed call.
 */
ZOI18N_EXPORT int ZoRename(const char* from, const char* to);

/** Removes a file, not a directory. @return 0, or -1 with the reason as of unlink(2) */
ZOI18N_EXPORT int ZoUnlink(const char* name);

/**
 * Tells whether a file exists and may be used by the process's real user.
 *
 * @param mode  ZoAccessMode values
 * @return 0 when it exists and everything asked for is granted; -1 with EINVAL for any other mode,
 *         or with the reason as of access(2)
 */
ZOI18N_EXPORT int ZoAccess(const char* name, int mode);

/**
 * Loads the library "lib<name>.so": by the system's search path, else from the directory that this
 * library lies in. Its symbols are resolved at once and are not offered to other libraries.
 *
 * @param name  bare name, without a forward slash or backslash
 * @return a handle for dlsym and dlclose, one dlclose per successful call; null when the library is
 *         not found or cannot be loaded (dlerror describes the last attempt) and for a null, empty,
 *         overlong or qualified name. errno has no meaning.
 */
ZOI18N_EXPORT void* ZoLoadLibrary(const char* name);

/**
 * The locale of the texts meant for the administrator, "en" unless ZoSetAdminLocale chose another.
 * Wait-free.
 *
 * @return never null; valid and unchanged as long as this library is loaded, whatever is set later
 */
ZOI18N_EXPORT const char* ZoGetAdminLocale();

/**
 * Chooses the locale that ZoGetAdminLocale gives from now on, in all threads.
 *
 * A process can have at most 64 locales besides "en" in its life; threads that name the same new
 * one at the same moment may each use up one. Choosing a known one again costs none.
 *
 * @param locale  1 to 31 characters out of letters, digits, '_', '-', '.' and '@'; copied
 * @return false, with nothing changed, for anything else and when there is no room for a new one
 */
ZOI18N_EXPORT bool ZoSetAdminLocale(const char* locale);

#endif
