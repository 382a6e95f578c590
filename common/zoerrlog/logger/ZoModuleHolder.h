#ifndef ZOERRLOG_LOGGER_ZOMODULEHOLDER_H
#define ZOERRLOG_LOGGER_ZOMODULEHOLDER_H

/// The handle of a loaded component library.
struct ZoModuleHolder {
    void* module;
};

#endif
