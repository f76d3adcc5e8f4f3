// bench/bench-markup.cpp: how fast a page in memory is parsed into tokens and sections, compared with a plain pass over
// its text and with other HTML parsers that build a tree. The time includes making and freeing the tree.

#include "bench/page-texts.h"
#include "bench/ratio.h"
#include "foundation/vela-mlparser.h"

#include <numeric>
#include <string>
#include <vector>

#ifdef TARN_HAVE_GUMBO
#include <gumbo.h>
#endif
#ifdef TARN_HAVE_LIBXML2
#include <libxml/HTMLparser.h>
#endif

namespace {

constexpr unsigned int kSizes[] = {10 << 10, 100 << 10, 1 << 20};

void countBytes(benchmark::State& state, std::string const& page)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(page.size()));
}

textstream streamOver(std::string const& page)
{
    return textstream(reinterpret_cast<unsigned char*>(const_cast<char*>(page.data())),
                      static_cast<unsigned int>(page.size()), 0);
}

/// The lower limit: one look at every unit of the decoded text.
void plainPass(benchmark::State& state, std::string const& page)
{
    std::vector<unsigned short> const units(page.begin(), page.end());
    for (auto _ : state)
        benchmark::DoNotOptimize(std::accumulate(units.begin(), units.end(), 0u));
    countBytes(state, page);
}

void decode(benchmark::State& state, std::string const& page)
{
    for (auto _ : state) {
        textstream stream = streamOver(page);
        unsigned int count = 0;
        while (stream.peekRun(count))
            stream.skipRun(count);
    }
    countBytes(state, page);
}

void tokens(benchmark::State& state, std::string const& page)
{
    for (auto _ : state) {
        textstream stream = streamOver(page);
        mlTokenizer tokenizer(&stream);
        unsigned long context = kContextContent;
        while (tokenizer.nextSkippingComments(context, true) != kTokenEnd) {
            mlTokenType const type = tokenizer.type();
            bool const opens = type >= kTokenOpenInclude && type <= kTokenOpen;
            bool const closes = type >= kTokenCloseComment && type <= kTokenClose;
            context = opens ? kContextTag : closes ? kContextContent : context;
        }
    }
    countBytes(state, page);
}

void sections(benchmark::State& state, std::string const& page)
{
    for (auto _ : state) {
        textstream stream = streamOver(page);
        mlParser parser(&stream);
        parser.fullParse();
        benchmark::DoNotOptimize(parser.getSection(0));
    }
    countBytes(state, page);
}

#ifdef TARN_HAVE_GUMBO
void gumbo(benchmark::State& state, std::string const& page)
{
    for (auto _ : state)
        gumbo_destroy_output(&kGumboDefaultOptions,
                             gumbo_parse_with_options(&kGumboDefaultOptions, page.data(), page.size()));
    countBytes(state, page);
}
#endif

#ifdef TARN_HAVE_LIBXML2
void libxml2(benchmark::State& state, std::string const& page)
{
    int const options = HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET;
    for (auto _ : state)
        xmlFreeDoc(htmlReadMemory(page.data(), static_cast<int>(page.size()), nullptr, "utf-8", options));
    countBytes(state, page);
}
#endif

using Measure = void (*)(benchmark::State&, std::string const&);

void add(std::string const& step, std::string const& where, Measure measure, std::string const& page)
{
    std::string const name = step + "/" + where;
    repeated(
        benchmark::RegisterBenchmark(name.c_str(), [measure, page](benchmark::State& state) { measure(state, page); }));
}

/// Registers every step for a page and the ratios to print.
void addPage(std::string const& where, std::string const& page, std::vector<Ratio>& ratios)
{
    add("plain", where, plainPass, page);
    add("decode", where, decode, page);
    add("tokens", where, tokens, page);
    add("sections", where, sections, page);
    ratios.push_back({"tokens-to-plain-pass/" + where, "tokens/" + where, "plain/" + where, 0.01});
    ratios.push_back({"sections-to-plain-pass/" + where, "sections/" + where, "plain/" + where, 0.01});
#ifdef TARN_HAVE_GUMBO
    add("gumbo", where, gumbo, page);
    ratios.push_back({"sections-to-gumbo/" + where, "sections/" + where, "gumbo/" + where, 1.5});
#endif
#ifdef TARN_HAVE_LIBXML2
    add("libxml2", where, libxml2, page);
    ratios.push_back({"sections-to-libxml2/" + where, "sections/" + where, "libxml2/" + where, 1});
#endif
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<Ratio> ratios;
    for (PageKind const& kind : pageKinds())
        for (unsigned int size : kSizes)
            addPage(kind.name + std::string("/") + std::to_string(size >> 10) + "KB", makePage(kind, size), ratios);
    return runWithRatios(argc, argv, ratios);
}
