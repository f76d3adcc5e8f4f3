// bench/pageprograms.cpp: see pageprograms.h.

#include "bench/pageprograms.h"

#include <cstdio>
#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace {

std::string programOf(std::string const& engine)
{
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / ("page_" + engine)).string();
}

/// "name number name number ...".
PageFigures readFigures(std::string const& text)
{
    PageFigures figures;
    std::istringstream words(text);
    std::string name;
    for (double value = 0; words >> name >> value;)
        figures[name] = value;
    return figures;
}

} // namespace

std::vector<std::string> findPageEngines(std::vector<std::string> const& peers)
{
    std::vector<std::string> found{"tarn"};
    for (std::string const& peer : peers) {
        if (std::filesystem::exists(programOf(peer)))
            found.push_back(peer);
        else
            std::printf("peer missing: %s was not installed when this was built, so it is not compared\n",
                        peer.c_str());
    }
    return found;
}

PageFigures runPageEngine(std::string const& engine, std::string const& arguments)
{
    std::string const command = programOf(engine) + " " + arguments;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        throw std::runtime_error("can not start " + command);
    std::string output;
    char part[256];
    while (std::fgets(part, sizeof part, pipe))
        output += part;
    if (pclose(pipe) != 0)
        throw std::runtime_error("failed: " + command);
    return readFigures(output);
}
