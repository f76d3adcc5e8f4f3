// tests/foundation/mlparser-memory_test.cpp: how much memory a parsed page takes.

#include "tests/foundation/markup.h"

#include <fstream>

#include <malloc.h>
#include <sys/wait.h>

// Under a sanitizer mallinfo2() reports nothing useful.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TARN_HAS_PLAIN_HEAP 0
#elif defined(__has_feature)
#define TARN_HAS_PLAIN_HEAP !(__has_feature(address_sanitizer) || __has_feature(thread_sanitizer))
#else
#define TARN_HAS_PLAIN_HEAP 1
#endif

#if TARN_HAS_PLAIN_HEAP

namespace {

size_t heapBytes()
{
    struct mallinfo2 const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::string textPage(size_t bytes)
{
    std::string page = "<html><body>";
    for (unsigned int i = 0; page.size() < bytes; ++i)
        page += "<p>Paragraph " + std::to_string(i) +
                " holds a few <b>words in bold</b> and an <i>italic</i> end, as pages of running text have them.</p>\n";
    return page + "</body></html>";
}

std::string tablePage(size_t bytes)
{
    std::string page = "<html><body><table border=1>";
    for (unsigned int i = 0; page.size() < bytes; ++i)
        page += "<tr><td width=10>" + std::to_string(i) + "</td><td align=right>cell</td><td>x</td></tr>\n";
    return page + "</table></body></html>";
}

std::string densePage(size_t bytes)
{
    std::string page = "<table>";
    while (page.size() < bytes)
        page += "<tr><td>1</td><td>2</td></tr>";
    return page + "</table>";
}

unsigned long statusKilobytes(std::string const& field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, field.size(), field) == 0)
            return std::stoul(line.substr(field.size()));
    return 0;
}

/// The peak of resident bytes per page byte while a new process reads the page, including the page itself.
double peakPerByte(std::string const& page)
{
    int channel[2];
    EXPECT_EQ(pipe(channel), 0);
    pid_t const child = fork();
    if (child == 0) {
        malloc_trim(0);
        unsigned long const before = statusKilobytes("VmRSS:");
        std::ofstream("/proc/self/clear_refs") << 5; // resets the peak
        std::vector<unsigned char> bytes(page.begin(), page.end());
        textstream stream(bytes.data(), static_cast<unsigned int>(bytes.size()), 0);
        mlParser(&stream).fullParse();
        unsigned long const used = statusKilobytes("VmHWM:") - before;
        _exit(write(channel[1], &used, sizeof used) == sizeof used ? 0 : 1);
    }
    unsigned long used = 0;
    EXPECT_EQ(read(channel[0], &used, sizeof used), static_cast<ssize_t>(sizeof used));
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    close(channel[0]);
    close(channel[1]);
    return static_cast<double>(used) * 1024 / static_cast<double>(page.size());
}

/// Heap bytes per page byte of the sections, the parser and the stream, without the page itself.
double heldPerByte(std::string const& page)
{
    std::vector<unsigned char> bytes(page.begin(), page.end());
    size_t const before = heapBytes();
    textstream stream(bytes.data(), static_cast<unsigned int>(bytes.size()), 0);
    mlParser parser(&stream);
    parser.fullParse();
    double const held = static_cast<double>(heapBytes() - before) / static_cast<double>(page.size());
    EXPECT_NE(parser.getSection(0), nullptr);
    return held;
}

constexpr size_t kFourMegabytes = 4u << 20;

} // namespace

TEST(Memory, PageTakesLessThanTwelveTimesItsSize)
{
    struct Page
    {
        char const* name;
        std::string text;
    };
    for (Page const& page : {Page{"text", textPage(kFourMegabytes)}, Page{"table", tablePage(kFourMegabytes)},
                             Page{"dense table", densePage(kFourMegabytes)}}) {
        double const held = heldPerByte(page.text) + 1;
        double const peak = peakPerByte(page.text);
        std::printf("bytes per page byte of a %s page: %.2f held, %.2f at the peak\n", page.name, held, peak);
        EXPECT_LT(held, 12) << page.name;
        EXPECT_LT(peak, 12) << page.name;
        EXPECT_GT(peak, 1.5) << "nothing was measured";
    }
}

TEST(Memory, EverythingIsFreed)
{
    std::string const page = tablePage(1u << 20);
    heldPerByte(page);
    size_t const before = heapBytes();
    heldPerByte(page);
    EXPECT_LT(heapBytes(), before + 4096);
}

TEST(Memory, LongTextsAreNotHeldUntilRequested)
{
    std::string page;
    for (int i = 0; i < 100; ++i)
        page += "<p>" + std::string(20000, 'x') + "</p>";
    MemorySource source(page);
    size_t const before = heapBytes();
    mlParser parser(source.get());
    EXPECT_EQ(parser.getSection(100), nullptr);
    size_t const held = heapBytes() - before;
    EXPECT_LT(held, page.size() / 10);
    EXPECT_EQ(parser.getSection(50)->getChild(0)->getData().getLength(), 20000u);
}

#endif

TEST(Memory, RecordsStaySmall)
{
    EXPECT_LE(sizeof(mlSection), 48u);
    EXPECT_LE(sizeof(mlAttr), 32u);
    EXPECT_LE(sizeof(bookmark), 12u);
}
