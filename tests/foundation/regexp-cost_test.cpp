// tests/foundation/regexp-cost_test.cpp: pattern expressions: hostile patterns and long texts cost little time, few
// steps and no stack.
#include "foundation/vela-regexp-p.h"
#include "tests/foundation/regexps.h"
#include "tests/support/instrumented.h"

#include <ctime>
#include <functional>

#include <pthread.h>

namespace {

/// No match may take more than 50 ms, and the longest takes 16. The rest is room for a busy machine; a sanitizer makes
/// everything slower, and what this is to find takes seconds to years.
constexpr double kMostSeconds = kIsInstrumented ? 2 : 0.15;

/// Processor time, which other programs on the machine disturb least; the better of two.
double secondsFor(Expr const& expr, sstring const& text, bool* isMatch)
{
    double best = 1e9;
    for (int i = 0; i < 2; ++i) {
        std::clock_t const start = std::clock();
        *isMatch = expr == text;
        best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return best;
}

/// What the match writes to standard error.
std::string logOf(std::string const& pattern, std::string const& text, bool expected)
{
    Expr const expr(units(pattern));
    EXPECT_NE(expr.getProgram()[0], 0) << pattern;
    bool isMatch = false;
    testing::internal::CaptureStderr();
    double const seconds = secondsFor(expr, units(text), &isMatch);
    std::string const log = testing::internal::GetCapturedStderr();
    std::string const what = pattern.substr(0, 60) + " with " + std::to_string(text.size()) + " units";
    EXPECT_LT(seconds, kMostSeconds) << what;
    EXPECT_EQ(isMatch, expected) << what;
    testing::Test::RecordProperty("milliseconds", static_cast<int>(seconds * 1000));
    return log;
}

void expectQuick(std::string const& pattern, std::string const& text, bool expected)
{
    EXPECT_EQ(logOf(pattern, text, expected), "") << pattern.substr(0, 60);
}

/// Steps of the walk that looks for a match.
unsigned int stepsOf(std::string const& pattern, std::string const& text, bool expected)
{
    Expr const expr(units(pattern));
    sstring const sought = units(text);
    ExprRests const rests(expr.getProgram(), sought.getUnicode());
    ExprGroups groups;
    ExprWalk walk(rests, groups);
    EXPECT_EQ(walk.findMatch(rests.textLength()), expected) << pattern;
    EXPECT_FALSE(walk.isExhausted()) << pattern;
    return walk.steps();
}

void* call(void* function)
{
    (*static_cast<std::function<void()>*>(function))();
    return nullptr;
}

/// Calls the function on a thread with so many bytes of stack.
void runOnStack(size_t bytes, std::function<void()> function)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, call, &function), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

constexpr size_t kLong = 200000;

} // namespace

TEST(RegexpCost, SeveralRepetitionsOver250UnitsAreQuick)
{
    std::string const text = repeated("a", 250);
    expectQuick(".*.*.*.*x", text, false);
    expectQuick("a*a*a*a*b", text, false);
    expectQuick("^[ab]*[^b]*.*a*$x", text, false);
    expectQuick("^.*.*.*.*$", text, true);
    expectQuick(repeated("a*", 249) + repeated("a", 5) + "$", text, true);
    expectQuick(repeated("a*", 200) + repeated("a", 50) + "b", text, false);
}

TEST(RegexpCost, EveryRepetitionThatFitsOverALongTextIsQuick)
{
    std::string const text = repeated("ab", kLong / 2);
    expectQuick(repeated(".*", 510), text, true);
    expectQuick(repeated(".*", 508) + "x", text, false);
    expectQuick(repeated("a*", 255), text, true);
    expectQuick(repeated(".*a", 170), text, true);
    expectQuick(repeated(".*a", 169) + ".*$", text, true);
    expectQuick(repeated(".*a", 169) + "x", text, false);
    // Each of the first items would try the whole text, where only the beginning can match.
    expectQuick(repeated(".*a", 170), repeated("a", 170) + repeated("b", kLong), true);
    expectQuick("^" + repeated("[ab]*", 102) + "x", text, false);
    expectQuick("^" + repeated("[^x]*", 127) + "x", text, false);
    expectQuick(repeated(".", 509) + "$", text, true);
    expectQuick(repeated("a*b*", 126) + "ba$", text, false);
}

TEST(RegexpCost, ALargeSetOverALongTextIsQuick)
{
    std::string const members = "0-9A-Zb-z" + repeated("0", 400);
    expectQuick("^[" + members + "]*a", repeated("z", kLong), false);
    expectQuick("^[^" + members + "]*z$", repeated("a", kLong) + "z", true);
}

TEST(RegexpCost, BackReferencesThatHelpAreCheap)
{
    EXPECT_EQ(stepsOf(R"(\(.*\)\1x)", repeated("a", kLong), false), 0u) << "there is no x";
    EXPECT_LT(stepsOf(R"(^\(.*\)-\1$)", "main-page-main-page", true), 50u);
    EXPECT_LT(stepsOf(R"(\([a-z]*\)=\1;)", repeated("name=other;", 90) + "same=same;", true), 5000u);
    EXPECT_LT(stepsOf(R"(^\(a*\)b\1$)", repeated("a", 50000) + "b" + repeated("a", 50000), true), 20000u);
    EXPECT_LT(stepsOf(R"(^\(ab\)\1*$)", repeated("ab", 50000), true), 150000u);
}

TEST(RegexpCost, UnitsThatAreReadCountAsSteps)
{
    // A run of 40000 units, and as many compared with a group: 8 units are a step.
    EXPECT_GT(stepsOf(R"(^\(a*\)b\1$)", repeated("a", 40000) + "b" + repeated("a", 40000), true), 9999u);
    EXPECT_GT(stepsOf(R"(^\(a\)\1*b$)", repeated("a", 40000) + "b", true), 40000u) << "and each copy is one";
}

TEST(RegexpCost, TooManyStepsAreOneLineAndNoMatch)
{
    for (char const* pattern : {R"(\(.*\)\(.*\)\(.*\)\1\2\3$)", R"(^\(a*\)\(a*\)\(a*\)\(a*\)\1\2\3\4b$)"}) {
        // It is matched twice.
        std::string const line =
            std::string("Expr::operator==() - the match would take more than 1000000 steps: ") + pattern + "\n";
        EXPECT_EQ(logOf(pattern, repeated("a", 1001) + "xb", false), line + line);
        expectQuick(pattern, repeated("a", 12) + "xb", pattern[0] == '\\');
    }
}

TEST(RegexpCost, TheLineShowsAPatternInAnyScript)
{
    testing::internal::CaptureStderr();
    EXPECT_FALSE(matches(u"\\(.*\\)\\(.*\\)\\(.*\\)\\1\\2\\3\u0416", std::u16string(1001, u'a') + u"x\u0416"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Expr::operator==() - the match would take more than 1000000 steps: "
              "\\(.*\\)\\(.*\\)\\(.*\\)\\1\\2\\3\xD0\x96\n");
}

TEST(RegexpCost, TheStepsOfASubsetAreLimitedToo)
{
    Expr const expr(R"(\(.*\)\(.*\)\(.*\)\1\2\3x)");
    sstring const text = units(repeated("a", 1001) + "x");
    unsigned short const* starts[9] = {};
    unsigned short const* ends[9] = {};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(expr.MatchSubset(text.getUnicode(), expr.getProgram(), starts, ends));
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        "Expr::MatchSubset() - the match would take more than 1000000 steps: \\(.*\\)\\(.*\\)\\(.*\\)\\1\\2\\3x\n");
    EXPECT_EQ(starts[0], nullptr);
}

TEST(RegexpCost, StepsThatAreUsedUpTakeLittleTime)
{
    for (std::string const unit : {"a", "ab", "abcdefghij"}) {
        std::string const text = repeated(unit, kLong / unit.size()) + "q";
        for (char const* pattern :
             {R"(\(.*\)\1$)", R"(\(.*\)\(.*\)\(.*\)\1\2\3$)", R"(\(a*\)b*\1b*\1q)", R"(\(a*\)\(a*\)\1*\2*b)",
              R"(\(.\)[ab]*a*[ab]*\1q)", R"(.*.*.*\(.\)\1\1\1q)", R"(\(.*\)[^x]*\1*[^y]*\1b)"}) {
            Expr const expr(pattern);
            bool isMatch = false;
            testing::internal::CaptureStderr();
            EXPECT_LT(secondsFor(expr, units(text), &isMatch), kMostSeconds) << pattern << ' ' << unit;
            testing::internal::GetCapturedStderr();
        }
        std::string const most = repeated(".*", 400) + R"(\(a*\)\1*\1q)";
        Expr const expr(units(most));
        bool isMatch = false;
        testing::internal::CaptureStderr();
        EXPECT_LT(secondsFor(expr, units(text), &isMatch), kMostSeconds) << most << ' ' << unit;
        testing::internal::GetCapturedStderr();
    }
}

TEST(RegexpCost, TheDepthDoesNotDependOnTheText)
{
    runOnStack(65536, [] {
        EXPECT_TRUE(matches("^a*[ab]*.*$", repeated("a", kLong)));
        EXPECT_TRUE(matches(R"(^\(a\)\1*[ab]*[^c]*.*$)", repeated("a", kLong)));
        EXPECT_TRUE(Subset(R"(\(a*\)\([ab]*\)\(.*\)$)", repeated("ab", kLong / 2)).isMatch);
    });
}

TEST(RegexpCost, EveryRepetitionThatFitsHasRoomOnAStack)
{
    runOnStack(1 << 20,
               [] { EXPECT_TRUE(matches(R"(^\(a\))" + repeated(".*", 500) + R"(\1$)", repeated("a", 2000))); });
}
