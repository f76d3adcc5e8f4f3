// tests/host/value_test.cpp: values and argument lists.
#include "host/native/nativehost.h"
#include "host/native/nativetext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

std::string textOf(NativeValue const& value) { return nativeToUtf8(nativeFromSString(value.toString(0))); }

} // namespace

TEST(Value, StartsAsNull)
{
    NativeValue value;
    EXPECT_TRUE(value.isNull());
    EXPECT_FALSE(value.isString() || value.isNumber() || value.isBool() || value.isObject() || value.isFunction());
    EXPECT_EQ(textOf(value), "");
    EXPECT_EQ(value.toObject(0), nullptr);
}

TEST(Value, PassesOnlyTheTestsOfItsKind)
{
    EXPECT_TRUE(NativeValue(true).isBool());
    EXPECT_FALSE(NativeValue(true).isNumber());
    EXPECT_TRUE(NativeValue(1).isNumber());
    EXPECT_FALSE(NativeValue(1).isBool());
    EXPECT_TRUE(NativeValue("").isString());
    EXPECT_FALSE(NativeValue("").isNull());
}

TEST(Value, IsAnIntOnlyWithoutFractionAndWithin32Bits)
{
    EXPECT_TRUE(NativeValue(-3).isInt());
    EXPECT_TRUE(NativeValue(2147483647.0).isInt());
    EXPECT_TRUE(NativeValue(-2147483648.0).isInt());
    EXPECT_FALSE(NativeValue(2147483648.0).isInt());
    EXPECT_FALSE(NativeValue(0.5).isInt());
    EXPECT_FALSE(NativeValue(std::nan("")).isInt());
    EXPECT_FALSE(NativeValue("3").isInt());
}

TEST(Value, ToIntRoundsTowardZeroAndIsLimitedTo32Bits)
{
    EXPECT_EQ(NativeValue(2.9).toInt(7), 2);
    EXPECT_EQ(NativeValue(-2.9).toInt(7), -2);
    EXPECT_EQ(NativeValue(1e12).toInt(7), std::numeric_limits<int>::max());
    EXPECT_EQ(NativeValue(-1e12).toInt(7), std::numeric_limits<int>::min());
    EXPECT_EQ(NativeValue(INFINITY).toInt(7), std::numeric_limits<int>::max());
    EXPECT_EQ(NativeValue(std::nan("")).toInt(7), 7);
    EXPECT_EQ(NativeValue("5").toInt(7), 7);
    EXPECT_EQ(NativeValue(true).toInt(7), 7);
}

TEST(Value, ToBoolTakesNumbersAndFallsBackForTheRest)
{
    EXPECT_TRUE(NativeValue(0.5).toBool(0));
    EXPECT_FALSE(NativeValue(0).toBool(1));
    EXPECT_TRUE(NativeValue("").toBool(1));
    EXPECT_FALSE(NativeValue("true").toBool(0));
    EXPECT_TRUE(NativeValue().toBool(2));
}

TEST(Value, ToNumberFallsBackForTheRest)
{
    EXPECT_EQ(NativeValue(0.25).toNumber(9), 0.25);
    EXPECT_EQ(NativeValue("0.25").toNumber(9), 9);
    EXPECT_EQ(NativeValue(false).toNumber(9), 9);
}

TEST(Value, ReadsAsScriptsWriteIt)
{
    EXPECT_EQ(textOf(true), "true");
    EXPECT_EQ(textOf(false), "false");
    EXPECT_EQ(textOf(3), "3");
    EXPECT_EQ(textOf(-0.0), "0");
    EXPECT_EQ(textOf(0.1), "0.1");
    EXPECT_EQ(textOf(100000), "100000");
    EXPECT_EQ(textOf(123456789012.5), "123456789012.5");
    EXPECT_EQ(textOf(1e21), "1e+21");
    EXPECT_EQ(textOf(1.5e-7), "1.5e-7");
    EXPECT_EQ(textOf(1e-100), "1e-100");
    EXPECT_EQ(textOf(std::nan("")), "NaN");
    EXPECT_EQ(textOf(-INFINITY), "-Infinity");
}

TEST(Value, KeepsTextOfEveryScriptAndEmbeddedZeros)
{
    NativeValue value("h\xC3\xA9 \xE6\x97\xA5 \xF0\x9F\x98\x80");
    EXPECT_EQ(value.text16(), u"hé 日 😀");
    NativeValue copy;
    copy.setString(value.toString(0));
    EXPECT_EQ(copy.text(), "h\xC3\xA9 \xE6\x97\xA5 \xF0\x9F\x98\x80");
    NativeValue zero(std::u16string(u"a\0b", 3));
    copy.setString(zero.toString(0));
    EXPECT_EQ(copy.text16().size(), 3u);
}

TEST(Value, ReplacesMalformedTextInsteadOfDroppingIt)
{
    EXPECT_EQ(NativeValue("a\xFFz").text16(), u"a\xFFFDz");
    EXPECT_EQ(NativeValue(std::u16string(u"a\xD800z")).text(), "a\xEF\xBF\xBDz");
}

TEST(Value, SettersChangeTheKind)
{
    NativeValue value("x");
    value.setInt(-4);
    EXPECT_EQ(value, NativeValue(-4));
    value.setBool(5);
    EXPECT_EQ(value, NativeValue(true));
    value.setNumber(0.5);
    EXPECT_EQ(value, NativeValue(0.5));
    value.setString("t");
    EXPECT_EQ(value, NativeValue("t"));
    value.setNull();
    EXPECT_TRUE(value.isNull());
    value.setObject(nullptr);
    EXPECT_TRUE(value.isNull());
}

TEST(Value, AssignsThroughTheInterface)
{
    NativeValue left;
    NativeValue right("text");
    static_cast<ScriptValue&>(left) = right;
    EXPECT_EQ(left, right);
    static_cast<ScriptValue&>(left) = left;
    EXPECT_EQ(left, right);
}

TEST(Value, HoldsItsObjectUntilItChanges)
{
    auto engine = NativeEngine::make();
    NativeValue value;
    value.setObject(engine->makeObject().get());
    EXPECT_EQ(engine->objects().size(), 1u);
    EXPECT_TRUE(value.isObject());
    EXPECT_FALSE(value.isFunction());
    NativeValue copy(value);
    value.setNull();
    EXPECT_EQ(engine->objects().size(), 1u);
    copy = 3;
    EXPECT_EQ(engine->objects().size(), 0u);
}

TEST(Value, OfACallableObjectIsAFunction)
{
    auto engine = NativeEngine::make();
    NativeObjectRef object = engine->makeObject();
    object->makeCallable([](NativeObject&, NativeArguments const&) { return NativeResult(1); });
    NativeValue value(object);
    EXPECT_TRUE(value.isFunction());
    EXPECT_FALSE(value.isObject());
    EXPECT_EQ(value.toObject(0), object.get());
}

TEST(Arguments, AreCountedFromZero)
{
    NativeArguments args{"a", 2, true};
    EXPECT_EQ(args.count(), 3);
    EXPECT_EQ(*static_cast<NativeValue*>(args.get(1)), NativeValue(2));
    EXPECT_EQ(args[2], NativeValue(true));
}

TEST(Arguments, BeyondTheLastAreNone)
{
    NativeArguments args{"a"};
    EXPECT_EQ(args.get(1), nullptr);
    EXPECT_EQ(args.get(-1), nullptr);
    EXPECT_TRUE(args[1].isNull());
}

TEST(Arguments, TakeACopyAndKeepTheirAddresses)
{
    NativeArguments args;
    NativeValue value("first");
    args.append(&value);
    ScriptValue* first = args.get(0);
    value.setInt(2);
    for (int i = 0; i < 1000; ++i)
        args.append(&value);
    EXPECT_EQ(args.get(0), first);
    EXPECT_EQ(args[0], NativeValue("first"));
    EXPECT_EQ(args[1000], NativeValue(2));
    args.append(nullptr);
    EXPECT_TRUE(args[1001].isNull());
}
