// bench/pageengine.cpp: see pageengine.h.

#include "bench/pageengine.h"

#include "bench/page-texts.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>

#include <malloc.h>
#include <unistd.h>

namespace {

constexpr int kMostRounds = 9;
constexpr double kLongEnough = 0.5; // seconds of measuring after which no further round starts
constexpr int kPaintRounds = 41;

double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double timeOf(std::function<void()> const& work)
{
    double const start = processorSeconds();
    work();
    return processorSeconds() - start;
}

/// Resident bytes of this process.
double residentBytes()
{
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    long total = 0;
    long resident = 0;
    if (!file || std::fscanf(file, "%ld %ld", &total, &resident) != 2)
        std::abort();
    std::fclose(file);
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

struct LoadFigures
{
    double load = 1e9;
    double layout = 1e9;
    double bytes = 0;
    double kept = 0;
    int height = 0;
};

/// How much a laid-out page makes the process grow, and how much of that remains after the heap has been trimmed.
void measureGrowth(PageEngine& engine, std::string const& page, LoadFigures& out)
{
    engine.take(page);
    malloc_trim(0);
    double const before = residentBytes();
    engine.load(kPageWidth);
    out.bytes = (residentBytes() - before) / static_cast<double>(page.size());
    malloc_trim(0);
    out.kept = (residentBytes() - before) / static_cast<double>(page.size());
}

LoadFigures measureLoad(PageEngine& engine, std::string const& page)
{
    LoadFigures best;
    measureGrowth(engine, page, best);
    best.height = engine.height();
    double spent = 0;
    for (int round = 0; round < kMostRounds && spent < kLongEnough; ++round) {
        engine.clear();
        double const load = timeOf([&] { engine.load(kPageWidth); });
        double const layout = timeOf([&] { engine.layOut(kNarrowWidth); });
        best.load = std::min(best.load, load);
        best.layout = std::min(best.layout, layout);
        spent += load + layout;
    }
    return best;
}

/// The first page of a process also pays for loading fonts and building tables.
void warmUp(PageEngine& engine, PageKind const& kind)
{
    engine.take(makePage(kind, 10 << 10));
    engine.load(kPageWidth);
    engine.layOut(kNarrowWidth);
    engine.clear();
}

int runLoad(PageEngine& engine, PageKind const& kind, std::size_t bytes)
{
    warmUp(engine, kind);
    LoadFigures const found = measureLoad(engine, makePage(kind, bytes));
    std::printf("load %.9f layout %.9f bytes %.2f kept %.2f height %d %s\n", found.load, found.layout, found.bytes,
                found.kept, found.height, engine.effort().c_str());
    return found.height > 0 ? 0 : 1;
}

double middleOf(std::vector<double> samples)
{
    std::sort(samples.begin(), samples.end());
    return samples[samples.size() / 2];
}

double repaintAt(PageView& view, int y)
{
    view.scrollTo(y);
    std::vector<double> samples;
    double spent = 0;
    for (int round = 0; round < kPaintRounds && spent < kLongEnough; ++round) {
        samples.push_back(timeOf([&] { view.repaint(); }));
        spent += samples.back();
    }
    return middleOf(samples);
}

/// The median time of one step down, over these positions.
double stepFrom(PageView& view, std::vector<int> const& places)
{
    std::vector<double> samples;
    for (int place : places) {
        int y = std::min(place, view.range() - kScrollStep * (kPaintRounds + 1));
        view.scrollTo(y);
        double spent = 0;
        for (int round = 0; round < kPaintRounds && spent < kLongEnough; ++round) {
            y += kScrollStep;
            samples.push_back(timeOf([&] { view.scrollTo(y); }));
            spent += samples.back();
        }
    }
    return middleOf(samples);
}

int runPaint(PageView& view, PageKind const& kind, std::size_t bytes)
{
    view.show(makePage(kind, bytes));
    std::vector<int> const places{0, view.range() / 2, view.range()};
    double seconds[3];
    for (int i = 0; i < 3; ++i)
        seconds[i] = repaintAt(view, places[static_cast<std::size_t>(i)]);
    double const step = stepFrom(view, places);
    std::printf("top %.9f middle %.9f end %.9f step %.9f range %d\n", seconds[0], seconds[1], seconds[2], step,
                view.range());
    return view.range() > kPageHeight ? 0 : 1;
}

PageKind const* findKind(char const* name)
{
    for (PageKind const& kind : pageKinds())
        if (std::strcmp(kind.name, name) == 0)
            return &kind;
    return nullptr;
}

} // namespace

int runPageProgram(int argc, char** argv, PageEngine& engine, PageView* view)
{
    PageKind const* kind = argc == 4 ? findKind(argv[2]) : nullptr;
    std::size_t const bytes = argc == 4 ? std::strtoul(argv[3], nullptr, 10) << 10 : 0;
    if (kind && bytes && std::strcmp(argv[1], "load") == 0)
        return runLoad(engine, *kind, bytes);
    if (kind && bytes && view && std::strcmp(argv[1], "paint") == 0)
        return runPaint(*view, *kind, bytes);
    std::fprintf(stderr, "usage: %s load|paint KIND KILOBYTES\n", argv[0]);
    return 2;
}
