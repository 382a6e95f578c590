#ifndef TESTS_ZOI18N_TEMPORARY_DIRECTORY_H
#define TESTS_ZOI18N_TEMPORARY_DIRECTORY_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace zotest {

class TemporaryDirectory {
public:
    TemporaryDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "zotest-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            ADD_FAILURE() << "no temporary directory";
        }
        m_path = name;
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    [[nodiscard]] std::string Path() const { return m_path.string(); }
    [[nodiscard]] std::string File(std::string_view name) const { return (m_path / name).string(); }

    std::string Write(std::string_view name, std::string_view content) const {
        std::ofstream(File(name), std::ios::binary) << content;
        return File(name);
    }

    [[nodiscard]] std::string Read(std::string_view name) const {
        std::ifstream file(File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path m_path;
};

}  // namespace zotest

#endif
