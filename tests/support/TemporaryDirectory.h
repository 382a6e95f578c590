#ifndef TESTS_SUPPORT_TEMPORARYDIRECTORY_H
#define TESTS_SUPPORT_TEMPORARYDIRECTORY_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace zotest {

/// A new, empty directory for one test, removed with all it holds at the end of the object.
class TemporaryDirectory {
public:
    TemporaryDirectory() : m_path((testing::TempDir() + "zoerrlog-XXXXXX")) {
        if (::mkdtemp(m_path.data()) == nullptr) {
            ADD_FAILURE() << "no temporary directory";
        }
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    /// Without a separator at its end.
    const std::string& Path() const { return m_path; }
    /// The full name of a file in the directory, whether it exists or not.
    std::string File(std::string_view name) const { return m_path + "/" + std::string(name); }

    /// Creates or replaces a file; returns its full name.
    std::string Write(std::string_view name, std::string_view content) const {
        std::ofstream(File(name), std::ios::binary) << content;
        return File(name);
    }

    /// The content of a file; empty when there is none.
    std::string Read(std::string_view name) const {
        std::ifstream file(File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::string m_path;
};

}  // namespace zotest

#endif
