// tests/foundation/localize_test.cpp: locales, their code sets and code pages.

#include "foundation/localize2.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace {

std::string canonical(char const* name)
{
    LOCALE* locale = Locale_Create(name);
    char text[32];
    EXPECT_EQ(Locale_ToString(locale, text), 1);
    Locale_Destroy(locale);
    return text;
}

std::string codesetOf(char const* name)
{
    LOCALE* locale = Locale_Create(name);
    char text[kMaxCodesetName];
    EXPECT_EQ(Locale_GetDefaultCodeset(locale, text), 1);
    Locale_Destroy(locale);
    return text;
}

/// For a new process that has not used a locale yet: the system locale that the environment gives.
[[noreturn]] void exitWithSystemLocale(char const* environment, char const* expectedName, char const* expectedCodeset)
{
    setenv("LC_ALL", environment, 1);
    LOCALE* system = Locale_GetFromSystem();
    char codeset[kMaxCodesetName];
    Locale_GetDefaultCodeset(system, codeset);
    std::fprintf(stderr, "%s/%s", system->name, codeset);
    bool const right = std::strcmp(system->name, expectedName) == 0 && std::strcmp(codeset, expectedCodeset) == 0;
    std::exit(right && Locale_GetDefault() == system ? 0 : 1);
}

} // namespace

TEST(Locale, ABlockOf32Bytes) { EXPECT_EQ(sizeof(LOCALE), 32u); }

TEST(Locale, ItsNameTakesNoMoreRoomThanItNeeds)
{
    LOCALE* locale = Locale_Create("fr_FR");
    char text[8];
    std::memset(text, '?', sizeof text);
    EXPECT_EQ(Locale_ToString(locale, text), 1);
    EXPECT_STREQ(text, "fr_FR");
    EXPECT_EQ(text[6], '?');
    Locale_Destroy(locale);
}

TEST(Locale, CodeSetNamesBecomeTheirLocales)
{
    EXPECT_EQ(canonical("iso8859-1"), "en_US");
    EXPECT_EQ(canonical("iso-8859-1"), "en_US");
    EXPECT_EQ(canonical("euc-kr"), "ko_KR");
    EXPECT_EQ(canonical("shift_jis"), "ja_JP");
    EXPECT_EQ(canonical("Shift_JIS"), "ja_JP");
    EXPECT_EQ(canonical("gb2312"), "zh_CN");
    EXPECT_EQ(canonical("BIG5"), "zh_TW");
}

TEST(Locale, KnownNamesGetTheirCanonicalCaseAndOthersStay)
{
    EXPECT_EQ(canonical("en_us"), "en_US");
    EXPECT_EQ(canonical("zh_TW"), "zh_TW");
    EXPECT_EQ(canonical("sv_SE"), "sv_SE");
    EXPECT_EQ(canonical("utf-8"), "utf-8");
    EXPECT_EQ(canonical(""), "");
    EXPECT_EQ(canonical(nullptr), "en_US");
    EXPECT_EQ(canonical(std::string(100, 'x').c_str()), std::string(31, 'x'));
}

TEST(Locale, EachRowOfTheTableNamesItsCodeSet)
{
    for (char const* western : {"en_US", "es_ES", "fr_FR", "de_DE", "it_IT", "pt_BR"})
        EXPECT_EQ(codesetOf(western), "IBM-850") << western;
    EXPECT_EQ(codesetOf("ja_JP"), "IBM-932");
    EXPECT_EQ(codesetOf("ko_KR"), "ksc_5601");
    EXPECT_EQ(codesetOf("zh_CN"), "IBM-1381");
    EXPECT_EQ(codesetOf("zh_TW"), "BIG5");
}

TEST(Locale, ALocaleOutsideTheTableHasTheLibrarysCodeSet)
{
    EXPECT_NE(codesetOf("sv_SE"), "");
    EXPECT_EQ(codesetOf("sv_SE").find(':'), std::string::npos);
    char text[kMaxCodesetName];
    EXPECT_EQ(Locale_GetDefaultCodeset(nullptr, text), 1);
    EXPECT_EQ(Locale_GetDefaultCodeset(nullptr, nullptr), 0);
}

TEST(Locale, CodePagesFollowLanguageAndCountry)
{
    for (char const* western : {"de_DE", "en_US", "en", "es_MX", "fr", "it_IT", "pt_BR"})
        EXPECT_EQ(Locale_GetCodepage(western), 1252u) << western;
    EXPECT_EQ(Locale_GetCodepage("ja_JP"), 932u);
    EXPECT_EQ(Locale_GetCodepage("ko_KR"), 949u);
    EXPECT_EQ(Locale_GetCodepage("zh_CN"), 936u);
    EXPECT_EQ(Locale_GetCodepage("zh_TW"), 950u);
    EXPECT_EQ(Locale_GetCodepage("zh"), 0u);
    EXPECT_EQ(Locale_GetCodepage("sv_SE"), 0u);
    EXPECT_EQ(Locale_GetCodepage(std::string(1000, 'x').c_str()), 0u);
}

TEST(Locale, TheSystemLocaleIsSharedAndNeverFreed)
{
    LOCALE* system = Locale_GetFromSystem();
    ASSERT_NE(system, nullptr);
    EXPECT_EQ(Locale_GetDefault(), system);
    EXPECT_EQ(Locale_Copy(system), system);
    std::string const name = system->name;
    Locale_Destroy(system);
    EXPECT_EQ(Locale_GetFromSystem()->name, name);
    EXPECT_EQ(Locale_Copy(nullptr), nullptr);
    Locale_Destroy(nullptr);
}

TEST(Locale, ACopyIsABlockOfItsOwn)
{
    LOCALE* locale = Locale_Create("ja_JP");
    LOCALE* copy = Locale_Copy(locale);
    EXPECT_NE(copy, locale);
    EXPECT_STREQ(copy->name, "ja_JP");
    Locale_Destroy(copy);
    Locale_Destroy(locale);
    char text[32];
    EXPECT_EQ(Locale_ToString(nullptr, text), 0);
}

TEST(Locale, DestroyingTheDefaultRevertsToTheSystemLocale)
{
    LOCALE* korean = Locale_Create("ko_KR");
    EXPECT_EQ(Locale_SetDefault(korean), 1);
    EXPECT_EQ(Locale_GetDefault(), korean);
    Locale_Destroy(korean);
    EXPECT_EQ(Locale_GetDefault(), Locale_GetFromSystem());
    LOCALE* other = Locale_Create("ko_KR");
    Locale_SetDefault(other);
    Locale_SetDefault(nullptr);
    EXPECT_EQ(Locale_GetDefault(), Locale_GetFromSystem());
    Locale_Destroy(other);
}

TEST(LocaleDeathTest, AnUnknownEnvironmentFallsBackToEnglish)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(exitWithSystemLocale("xx_UNKNOWN.nothing", "en_US", "IBM-850"), testing::ExitedWithCode(0), "");
}

TEST(LocaleDeathTest, AKnownEnvironmentIsNamedByIcu)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(exitWithSystemLocale("C", "en_US_POSIX", "ANSI_X3.4-1968"), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(exitWithSystemLocale("C.UTF-8", "en_US_POSIX", "UTF-8"), testing::ExitedWithCode(0), "");
}
