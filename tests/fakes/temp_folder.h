#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zv::fakes {

// A folder of its own for one test, removed with everything in it afterwards.
class TempFolder {
public:
    TempFolder() {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        m_path = std::filesystem::temp_directory_path() / ("zv-" + std::to_string(std::random_device{}()) +
                                                           "-" + (test != nullptr ? test->name() : "x"));
        std::filesystem::create_directories(m_path);
    }
    ~TempFolder() {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(std::string_view name) const { return m_path / name; }
    std::vector<std::filesystem::path> entries() const {
        std::vector<std::filesystem::path> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            names.push_back(entry.path().filename());
        }
        return names;
    }

private:
    std::filesystem::path m_path;
};

// Puts exactly these bytes in a file, bypassing the code under test.
inline void writeRaw(const std::filesystem::path& path, std::string_view bytes) {
    std::FILE* file = std::fopen(path.string().c_str(), "wb");
    ASSERT_NE(file, nullptr);
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
}

}  // namespace zv::fakes
