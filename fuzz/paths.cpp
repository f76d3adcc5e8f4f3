// fuzz/paths.cpp: any text as a path. The canonical path is what the documented steps give one by one, and no "vfs://"
// name leads out of its folder. The input is the path.

#include "foundation/vela-fileio.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"
#include "host/native/nativefileservice.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using Units = std::u16string;

Units unitsOf(sstring const& text)
{
    return Units(reinterpret_cast<char16_t const*>(text.getUnicode()), text.getLength());
}

/// Replaces every occurrence, without searching the replacements again.
void replaceAll(Units& text, Units const& from, Units const& to)
{
    for (size_t at = 0; (at = text.find(from, at)) != Units::npos; at += to.size())
        text.replace(at, from.size(), to);
}

Units cleaned(Units path)
{
    if (!path.starts_with(u"/") && !path.starts_with(u"\\"))
        path = std::filesystem::current_path().u16string() + u"/" + path;
    replaceAll(path, u"\\", u"/");
    replaceAll(path, u"/./", u"/");
    replaceAll(path, u"//", u"/");
    if (!path.ends_with(u"/"))
        path += u"/";
    for (size_t up = 0; (up = path.find(u"/../", 1)) != Units::npos;) {
        size_t const before = path.rfind(u'/', up - 1);
        if (before == Units::npos)
            break;
        path.erase(before, up + 3 - before);
    }
    if (path != u"/")
        path.pop_back();
    return path;
}

/// A folder with a file, and a file beside the folder, which must not be reachable. Deleted with the process.
class Documents
{
public:
    Documents()
    {
        char pattern[] = "/tmp/tarn-fuzz-XXXXXX";
        require(mkdtemp(pattern), "no room for temporary files");
        m_root = pattern;
        std::filesystem::create_directories(m_root / "docs" / "deep");
        std::ofstream(m_root / "docs" / "deep" / "a") << kInside;
        std::ofstream(m_root / "a") << "outside";
        m_files.addFolder("Docs", m_root / "docs");
    }
    ~Documents() { std::filesystem::remove_all(m_root); }
    Documents(Documents const&) = delete;
    Documents& operator=(Documents const&) = delete;

    void check(std::string const& name)
    {
        void const* data = nullptr;
        unsigned length = 0;
        bool const isRead = m_files.readFile(nullptr, sstring(("vfs://Docs/" + name).c_str()), &data, &length);
        require(!isRead || std::string_view(static_cast<char const*>(data), length) == kInside,
                "a file outside of the folder was read");
    }

private:
    static constexpr char kInside[] = "inside";
    std::filesystem::path m_root;
    NativeFileService m_files;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    std::string text(reinterpret_cast<char const*>(bytes), size);
    std::erase(text, '\0');
    sstring const path(text.c_str());
    require(unitsOf(FileIO_CanonicalizePath(path)) == cleaned(unitsOf(path)), "the path is cleaned differently");

    sstring turned = path;
    FileIO_ConvertSlashesToOSTypeA(turned);
    require(turned.find(static_cast<unsigned short>('\\')) == sstring::npos, "a backslash is left");
    FileIO_IsFileNameAbsoluteW(path.getUnicode());
    static Documents documents;
    documents.check(text);
    return 0;
}
