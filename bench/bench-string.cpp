// bench/bench-string.cpp: how fast a string grows by appending units and pieces, compared with the standard library's
// string of the same units. The time includes making and freeing the string.

#include "bench/ratio.h"
#include "foundation/vela-string.h"

#include <cstring>
#include <string>

namespace {

constexpr unsigned int kSizes[] = {100, 10'000, 1'000'000}; // units in the finished string

/// Words with blanks, as in running text.
constexpr char16_t kWidePiece[] = u"running text ";
constexpr char kNarrowPiece[] = "running text ";
constexpr unsigned int kPieceUnits = sizeof kNarrowPiece - 1;

/// Hides a constant from the compiler, which must not know its length.
template <class Unit>
Unit const* unknown(Unit const* text)
{
    benchmark::DoNotOptimize(text);
    return text;
}

struct OurUnits
{
    using String = sstring;
    static constexpr unsigned int kStep = 1;
    static void append(String& text, unsigned int i) { text += static_cast<unsigned short>('a' + i % 26); }
};

struct PeerUnits
{
    using String = std::u16string;
    static constexpr unsigned int kStep = 1;
    static void append(String& text, unsigned int i) { text += static_cast<char16_t>('a' + i % 26); }
};

struct OurWidePieces
{
    using String = sstring;
    static constexpr unsigned int kStep = kPieceUnits;
    static void append(String& text, unsigned int)
    {
        text += unknown(reinterpret_cast<unsigned short const*>(kWidePiece));
    }
};

struct PeerWidePieces
{
    using String = std::u16string;
    static constexpr unsigned int kStep = kPieceUnits;
    static void append(String& text, unsigned int) { text += unknown(kWidePiece); }
};

/// Our string converts 8-bit text from its code set; the peer only widens it.
struct OurNarrowPieces
{
    using String = sstring;
    static constexpr unsigned int kStep = kPieceUnits;
    static void append(String& text, unsigned int) { text += unknown(kNarrowPiece); }
};

struct PeerNarrowPieces
{
    using String = std::u16string;
    static constexpr unsigned int kStep = kPieceUnits;
    static void append(String& text, unsigned int)
    {
        char const* piece = unknown(kNarrowPiece);
        text.append(piece, piece + std::strlen(piece));
    }
};

template <class Way>
void grow(benchmark::State& state)
{
    unsigned int const units = static_cast<unsigned int>(state.range(0));
    for (auto _ : state) {
        typename Way::String text;
        for (unsigned int i = 0; i < units; i += Way::kStep) {
            Way::append(text, i);
            benchmark::ClobberMemory();
        }
        benchmark::DoNotOptimize(text);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * units);
}

template <class Ours, class Peer>
void addPair(std::string const& name, std::vector<Ratio>& ratios)
{
    std::string const ours = name + "-sstring";
    std::string const peer = name + "-u16string";
    std::string const title = "append-" + name;
    auto* const oursRuns = repeated(benchmark::RegisterBenchmark(ours.c_str(), grow<Ours>));
    auto* const peerRuns = repeated(benchmark::RegisterBenchmark(peer.c_str(), grow<Peer>));
    for (unsigned int size : kSizes) {
        std::string const units = std::string("/").append(std::to_string(size));
        oursRuns->Arg(size);
        peerRuns->Arg(size);
        ratios.push_back({title + units, ours + units, peer + units, 0.5});
    }
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<Ratio> ratios;
    addPair<OurUnits, PeerUnits>("units", ratios);
    addPair<OurWidePieces, PeerWidePieces>("16-bit-pieces", ratios);
    addPair<OurNarrowPieces, PeerNarrowPieces>("8-bit-pieces", ratios);
    return runWithRatios(argc, argv, ratios);
}
