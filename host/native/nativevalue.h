// host/native/nativevalue.h: a script value as plain C++ data. It is both what the component sees as a ScriptValue and
// what handlers take and return.
#pragma once

#include "host/hostslots.h"
#include "host/native/nativeobjectref.h"

#include <concepts>
#include <iosfwd>
#include <string>
#include <string_view>
#include <variant>

/// Null, boolean, number, text, object or function. One value is used by one thread at a time; copies are independent,
/// except that they share an object.
class NativeValue final : public ScriptValueSlots
{
public:
    NativeValue() = default;
    NativeValue(std::nullptr_t) {}
    template <std::same_as<bool> Bool>
    NativeValue(Bool value) : m_data(value)
    {}
    template <typename Number>
    requires(std::integral<Number> || std::floating_point<Number>) &&
        (!std::same_as<Number, bool>)NativeValue(Number value) : m_data(static_cast<double>(value))
    {}
    /// Text in UTF-8.
    NativeValue(char const* text) : NativeValue(std::string_view(text)) {}
    NativeValue(std::string const& text) : NativeValue(static_cast<std::string_view>(text)) {}
    NativeValue(std::string_view text);
    NativeValue(std::u16string text) : m_data(std::move(text)) {}
    /// An object or, when the object can be called, a function; an empty handle becomes null.
    NativeValue(NativeObjectRef object);

    NativeValue(NativeValue const&) = default;
    NativeValue(NativeValue&&) = default;
    NativeValue& operator=(NativeValue const& other)
    {
        assign(other);
        return *this;
    }
    NativeValue& operator=(NativeValue&& other) noexcept
    {
        std::swap(m_data, other.m_data);
        return *this;
    }
    ~NativeValue() = default;

    /// The same kind and the same value; objects are equal when they are one object.
    bool operator==(NativeValue const& other) const { return m_data == other.m_data; }

    /// The value as UTF-8 text, "" for null.
    std::string text() const;
    /// The value as UTF-16 text, "" for null.
    std::u16string text16() const;
    /// The number; 0 for any other kind.
    double number() const { return toNumber(0); }
    /// The object or function, empty for any other kind.
    NativeObjectRef object() const;

    // What the component calls.
    bool isFunction() const override;
    bool isNumber() const override { return std::holds_alternative<double>(m_data); }
    bool isBool() const override { return std::holds_alternative<bool>(m_data); }
    bool isNull() const override { return std::holds_alternative<std::monostate>(m_data); }
    bool isString() const override { return std::holds_alternative<std::u16string>(m_data); }
    bool isObject() const override;
    bool isInt() const override;
    int toInt(int fallback) const override;
    bool toBool(int fallback) const override;
    double toNumber(double fallback) const override;
    sstring toString(int flags) const override;
    ScriptObject* toObject(int flags) const override;
    void setNull() override { replace(std::monostate()); }
    void setInt(int value) override { replace(static_cast<double>(value)); }
    void setBool(int value) override { replace(value != 0); }
    void setNumber(double value) override { replace(value); }
    void setString(sstring const& value) override;
    void setObject(ScriptObject* value) override;
    void assign(ScriptValue const& other) override;

private:
    using Data = std::variant<std::monostate, bool, double, std::u16string, NativeObjectRef>;

    /// Swaps first and destroys the old content afterwards, since the end of an object may come back to this value.
    void replace(Data data);

    Data m_data;
};

/// Prints the value as a script would write it: null, true, 3, "text", [object Class].
std::ostream& operator<<(std::ostream& out, NativeValue const& value);
