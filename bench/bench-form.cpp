// bench/bench-form.cpp: what a form of 4 MB costs beyond an empty page: the time from the start of the process until
// the window shows it, and the most memory that the process has.

#include "bench/alternating.h"
#include "bench/child.h"
#include "bench/page-texts.h"
#include "bench/ratioline.h"
#include "bench/windowwatch.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 11;
constexpr std::size_t kPageBytes = std::size_t{4} << 20;
constexpr double kMostSeconds = 0.25; // beyond an empty page
constexpr double kMostBytes = 120e6;
constexpr uint32_t kBackground = 0x336699;
constexpr uint32_t kText = 0xFFFFFF;
constexpr std::chrono::seconds kLongestStart{60};
/// Time for the window manager to clean up after the last window.
constexpr std::chrono::milliseconds kRest{60};

/// A page with a line of text above the content, large enough to be seen, in a file of its own.
std::string writePage(char const* name, std::string const& content)
{
    std::filesystem::path const file = std::filesystem::temp_directory_path() / name;
    std::ofstream(file) << "<html><body width=\"800\" height=\"600\" valign=\"top\" bgcolor=\"#336699\">"
                        << "<h1><font color=\"#FFFFFF\">What is above the form</font></h1>" << content
                        << "</body></html>";
    return file.string();
}

std::string makeForm()
{
    std::string form;
    for (unsigned i = 0; form.size() < kPageBytes; ++i)
        form += pageForm(i);
    return form;
}

/// What one start took.
struct Start
{
    double seconds;
    double peakBytes;
};

Start start(WindowWatch& watch, std::vector<std::string> const& words)
{
    auto const begin = Clock::now();
    Child child(words);
    auto const seen = watch.waitForContent(kBackground, kText, [&] { return Clock::now() - begin > kLongestStart; });
    double const seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    double const bytes = child.end().peakBytes;
    if (!seen)
        throw std::runtime_error(words[1] + " was not shown");
    watch.waitUntilGone(seen->window);
    std::this_thread::sleep_for(kRest);
    return {seconds, bytes};
}

void measure()
{
    std::string const folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    std::string const form = writePage("tarn-bench-form.html", makeForm());
    std::string const empty = writePage("tarn-bench-empty.html", "");
    WindowWatch watch;
    std::vector<double> bytes;
    auto const startForm = [&] {
        Start const one = start(watch, {folder + "/window_page", form});
        bytes.push_back(one.peakBytes);
        return one.seconds;
    };
    Medians const medians = measureInTurns(kRounds, startForm, [&] {
        return start(watch, {folder + "/window_page", empty}).seconds;
    });
    std::printf("the form takes %s, an empty page %s\n", timeText(medians.ours).c_str(),
                timeText(medians.peer).c_str());
    printRatio("form-open/4MB", medians.ours, medians.peer + kMostSeconds, 1);
    printFigure("form-peak-bytes/4MB", median(bytes), kMostBytes, 1);
    std::filesystem::remove(form);
    std::filesystem::remove(empty);
}

} // namespace

int main()
{
    try {
        measure();
    } catch (std::exception const& error) {
        std::fprintf(stderr, "bench_form: %s\n", error.what());
        return 1;
    }
}
