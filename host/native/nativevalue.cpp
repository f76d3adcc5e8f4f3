// host/native/nativevalue.cpp: see nativevalue.h.
#include "host/native/nativevalue.h"

#include "host/native/nativeobject.h"
#include "host/native/nativetext.h"

#include <algorithm>
#include <cassert>
#include <charconv>
#include <cmath>
#include <limits>
#include <ostream>

namespace {

constexpr double kIntMin = std::numeric_limits<int>::min();
constexpr double kIntMax = std::numeric_limits<int>::max();

std::string digitsOf(double number, std::chars_format format)
{
    char digits[400]; // the longest is 1.8e308 without an exponent
    auto end = std::to_chars(digits, digits + sizeof digits, number, format);
    return std::string(digits, end.ptr);
}

/// "1e+07" to "1e+7": scripts write exponents without leading zeros.
std::string withoutExponentZero(std::string digits)
{
    size_t sign = digits.find_first_of("+-", digits.find('e'));
    if (sign + 2 < digits.size() && digits[sign + 1] == '0')
        digits.erase(sign + 1, 1);
    return digits;
}

/// The shortest text that reads back as the same number, written as scripts write numbers.
std::string numberText(double number)
{
    if (std::isnan(number))
        return "NaN";
    if (std::isinf(number))
        return number < 0 ? "-Infinity" : "Infinity";
    if (number == 0)
        return "0";
    double size = std::fabs(number);
    if (size >= 1e-6 && size < 1e21)
        return digitsOf(number, std::chars_format::fixed);
    return withoutExponentZero(digitsOf(number, std::chars_format::scientific));
}

struct TextOf
{
    std::u16string operator()(std::monostate) const { return {}; }
    std::u16string operator()(bool value) const { return value ? u"true" : u"false"; }
    std::u16string operator()(double value) const { return nativeFromUtf8(numberText(value)); }
    std::u16string operator()(std::u16string const& value) const { return value; }
    std::u16string operator()(NativeObjectRef const& value) const { return nativeFromUtf8(value->describe()); }
};

} // namespace

NativeValue::NativeValue(std::string_view text) : m_data(nativeFromUtf8(text)) {}

NativeValue::NativeValue(NativeObjectRef object)
{
    if (object)
        m_data = std::move(object);
}

std::u16string NativeValue::text16() const { return std::visit(TextOf(), m_data); }

std::string NativeValue::text() const { return nativeToUtf8(text16()); }

NativeObjectRef NativeValue::object() const
{
    auto* object = std::get_if<NativeObjectRef>(&m_data);
    return object ? *object : NativeObjectRef();
}

bool NativeValue::isFunction() const
{
    auto* object = std::get_if<NativeObjectRef>(&m_data);
    return object && (*object)->isCallable();
}

bool NativeValue::isObject() const
{
    auto* object = std::get_if<NativeObjectRef>(&m_data);
    return object && !(*object)->isCallable();
}

bool NativeValue::isInt() const
{
    auto* number = std::get_if<double>(&m_data);
    return number && *number >= kIntMin && *number <= kIntMax && std::trunc(*number) == *number;
}

int NativeValue::toInt(int fallback) const
{
    auto* number = std::get_if<double>(&m_data);
    if (!number || std::isnan(*number))
        return fallback;
    return static_cast<int>(std::clamp(*number, kIntMin, kIntMax));
}

bool NativeValue::toBool(int fallback) const
{
    if (auto* boolean = std::get_if<bool>(&m_data))
        return *boolean;
    auto* number = std::get_if<double>(&m_data);
    return number ? *number != 0 : fallback != 0;
}

double NativeValue::toNumber(double fallback) const
{
    auto* number = std::get_if<double>(&m_data);
    return number ? *number : fallback;
}

sstring NativeValue::toString(int) const { return nativeToSString(text16()); }

ScriptObject* NativeValue::toObject(int) const
{
    auto* object = std::get_if<NativeObjectRef>(&m_data);
    return object ? object->get() : nullptr;
}

void NativeValue::replace(Data data)
{
    [[maybe_unused]] auto* object = std::get_if<NativeObjectRef>(&data);
    assert(!object || *object); // "no object" is null, a kind of its own
    std::swap(m_data, data);
}

void NativeValue::setString(sstring const& value) { replace(nativeFromSString(value)); }

void NativeValue::setObject(ScriptObject* value)
{
    if (value)
        replace(NativeObjectRef(static_cast<NativeObject*>(value)));
    else
        setNull();
}

void NativeValue::assign(ScriptValue const& other) { replace(static_cast<NativeValue const&>(other).m_data); }

std::ostream& operator<<(std::ostream& out, NativeValue const& value)
{
    if (value.isNull())
        return out << "null";
    char const* quote = value.isString() ? "\"" : "";
    return out << quote << value.text() << quote;
}
