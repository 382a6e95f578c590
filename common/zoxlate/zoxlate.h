#ifndef ZOXLATE_ZOXLATE_H
#define ZOXLATE_ZOXLATE_H

#include <cstddef>

#if defined(__GNUC__)
#define ZOXLATE_EXPORT __attribute__((visibility("default")))
#else
#define ZOXLATE_EXPORT
#endif

namespace zoxlate {
class BundleHandle;
}

/**
 * A message bundle: the texts of a component in one locale, by key.
 *
 * A bundle is read from Java property files in UTF-8. "messages" in the locale "fr_CA" is looked
 * up, key by key, in "messages_fr_CA.properties", "messages_fr.properties" and
 * "messages.properties" of the resource directory. A '-' in a locale counts as '_'; '.' and '@'
 * separate parts of it too. Files that are not regular or larger than 16 MiB count as absent.
 *
 * Files are read at the first use of a bundle and not again until SetResourceDirectory, whether
 * they were there or not. A failure that will pass (no descriptor left, a read error) is not
 * remembered, nor is anything beyond 4096 pairs of bundle name and locale: then the files are read
 * every time.
 *
 * Threads: every operation may be called from any thread at any time, on the same bundle too. None
 * takes a lock, so a process may fork while other threads are inside and the child goes on at once.
 * GetBundle of a bundle known already, GetText and Release neither allocate nor touch a file.
 *
 * std::bad_alloc may leave GetBundle and SetResourceDirectory; nothing else is thrown.
 */
class ZOXLATE_EXPORT CZoXlate {
public:
    CZoXlate(const CZoXlate&) = delete;
    CZoXlate& operator=(const CZoXlate&) = delete;

    /**
     * Gives a bundle.
     *
     * @param bundleName  1 to 255 bytes without '/' and '\\' that do not begin with '.'
     * @param locale      the same; null or "" stands for the file without a locale alone
     * @return the bundle, to be given back by one Release; null when none of its files can be used
     *         and for any other name
     */
    static CZoXlate* GetBundle(const char* bundleName, const char* locale);

    /**
     * Gives the text of a key.
     *
     * @return NUL-terminated UTF-8 as the file has it, escapes replaced; null when the key is null
     * or has no text. Owned by the bundle and valid until the caller's Release, also when the
     *         resource directory changes meanwhile.
     */
    const char* GetText(const char* key);

    /** Gives the bundle back: exactly once for each GetBundle that gave one. */
    void Release();

    /**
     * Fills the placeholders of a pattern.
     *
     * "{n}", n decimal and counted from 0, becomes args[n] as it stands; a null element is an empty
     * text. A placeholder without an argument, and a "{" that begins none, stay as written. As in
     * Java's MessageFormat two single quotes give one, and text between single quotes (or from an
     * unpaired one to the end) is literal.
     *
     * @param dst       receives the text and a terminator; overlaps no other parameter. What
     *                  stands between the terminator and the end of dst is undefined.
     * @param dstSize   bytes at dst, terminator included. A text that does not fit is cut, but not
     *                  inside a UTF-8 character. With 0, or a null dst, nothing is written.
     * @param pattern   null counts as an empty text
     * @param argCount  elements of args; without meaning when args is null
     * @param args      NUL-terminated texts, only read during the call
     */
    static void FormatMessageA(char* dst, unsigned long dstSize, const char* pattern,
                               std::size_t argCount, const char** args);

    /** A text with its length, followed by a zero byte. */
    struct Text {
        const char* data;
        std::size_t size;
    };

    /**
     * FormatMessageA for a caller who knows the lengths.
     *
     * @param args  argCount texts, in which zero bytes are ordinary content
     * @return bytes written, without the terminator
     */
    static std::size_t FormatText(char* dst, std::size_t dstSize, const Text& pattern,
                                  std::size_t argCount, const Text* args);

    /**
     * Chooses the directory the property files are in and forgets everything read so far. Bundles
     * not yet released stay as they are. Without a call it is "zoerrlog/resources" in the data
     * directory that the library was configured for.
     *
     * @param directory  '\\' counts as '/'; a relative name counts from the working directory of
     * now
     * @return false, with nothing changed, for null and for what is not a directory
     */
    static bool SetResourceDirectory(const char* directory);

    /**
     * Gives a number that stays the same as long as GetBundle gives the same texts: it changes with
     * every SetResourceDirectory that returns true. Whoever keeps a bundle can tell by it, without
     * asking for the bundle anew, that there may be a newer one.
     */
    static unsigned int GetGeneration();

private:
    friend class zoxlate::BundleHandle;
    CZoXlate() = default;
    ~CZoXlate() = default;
};

#endif
