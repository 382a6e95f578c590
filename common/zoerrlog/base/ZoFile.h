#ifndef ZOERRLOG_BASE_ZOFILE_H
#define ZOERRLOG_BASE_ZOFILE_H

#include <zoerrlog/base/ZoExport.h>

/// The owner of one open file, with unbuffered reading of lines.
///
/// The position of the file is always just behind the last byte that was returned. An object is
/// used by one thread at a time, and not copied.
class ZOERRLOG_EXPORT CZoFile {
public:
    CZoFile();
    /// Closes the file.
    virtual ~CZoFile();
    CZoFile(const CZoFile&) = delete;
    CZoFile& operator=(const CZoFile&) = delete;

    /// Opens the file `name`: `mode` 0 or 1 creates or truncates it for writing, 2 creates it or
    /// appends to it, 3 reads it. New files have the permission 0600. True when the file is open.
    /// A file that this object held before is closed. An unknown mode, or a null name, gives
    /// false and changes nothing; for any other failure errno has the reason.
    bool OpenFile(const char* name, int mode);
    /// Closes the file, if one is open.
    void CloseFile();

    /// Reads one line, its line feed included, and stores it with a terminating zero byte; a line
    /// of more than `size` bytes is cut, and the next call returns what follows. `buffer` has room
    /// for `size` + 1 bytes.
    ///
    /// Returns the length of a line that ended in its line feed; 1 plus the length of one that was
    /// cut by `size` or ended with the file; 0 at the end of the file, with `buffer` untouched; -1
    /// when `buffer` is null, no file is open, or reading failed (what was read until then is in
    /// `buffer`, without a terminator). A `size` below 1 stores the terminator and returns 1.
    int ReadLine(void* buffer, int size);

    /// Writes with one system call. The number of bytes written, which may be less than `length`,
    /// or -1 when `data` is null, no file is open, or writing failed.
    int WriteFile(void* data, unsigned int length);

private:
    int m_fd;
};

#endif
