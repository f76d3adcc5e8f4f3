// controls/guitemporaryfile.h: files that other libraries read once, and that do not outlive the process.
#pragma once

#include <string>
#include <vector>

/// Any thread.
class guiTemporaryFile
{
public:
    /// Writes a new file, which nobody else can read, in the folder for such files; its path, "" when that failed. It
    /// is removed when the process ends, if not earlier.
    static std::string write(std::vector<unsigned char> const& bytes, std::string const& extension);
    /// Nothing happens when the file is gone already.
    static void remove(std::string const& path);
};
