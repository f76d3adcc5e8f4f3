// tests/foundation/temporarydirectory.h: a directory that is removed at the end of a test with everything in it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class TemporaryDirectory
{
public:
    TemporaryDirectory()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarn-test-XXXXXX").string();
        m_root = mkdtemp(pattern.data());
        m_root = std::filesystem::canonical(m_root).string();
    }
    TemporaryDirectory(TemporaryDirectory const&) = delete;
    TemporaryDirectory& operator=(TemporaryDirectory const&) = delete;
    ~TemporaryDirectory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }

    std::string const& path() const { return m_root; }
    std::string file(std::string const& name) const { return m_root + "/" + name; }

    std::string write(std::string const& name, std::string const& content) const
    {
        std::ofstream(file(name), std::ios::binary) << content;
        return file(name);
    }
    std::string read(std::string const& name) const
    {
        std::ifstream stream(file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    std::string m_root;
};
