// host/node/nodenumbers.cpp: see nodenumbers.h. A typed array is copied; the elements of any other are read one by one,
// through the C interface, which costs a third of its C++ wrapper.
#include "host/node/nodenumbers.h"

namespace {

template <typename Element>
void append(Napi::TypedArray array, std::vector<double>& numbers)
{
    auto typed = array.As<Napi::TypedArrayOf<Element>>();
    numbers.insert(numbers.end(), typed.Data(), typed.Data() + typed.ElementLength());
}

bool readTyped(Napi::TypedArray array, std::vector<double>& numbers)
{
    switch (array.TypedArrayType()) {
    case napi_float64_array:
        append<double>(array, numbers);
        return true;
    case napi_float32_array:
        append<float>(array, numbers);
        return true;
    case napi_int32_array:
        append<int32_t>(array, numbers);
        return true;
    case napi_int16_array:
        append<int16_t>(array, numbers);
        return true;
    case napi_uint32_array:
        append<uint32_t>(array, numbers);
        return true;
    case napi_uint16_array:
        append<uint16_t>(array, numbers);
        return true;
    case napi_int8_array:
        append<int8_t>(array, numbers);
        return true;
    case napi_uint8_array:
    case napi_uint8_clamped_array:
        append<uint8_t>(array, numbers);
        return true;
    default:
        return false;
    }
}

bool readArray(napi_env env, napi_value array, std::vector<double>& numbers, bool isInside)
{
    uint32_t length = 0;
    if (napi_get_array_length(env, array, &length) != napi_ok)
        return false;
    numbers.reserve(numbers.size() + length);
    for (uint32_t i = 0; i < length; ++i) {
        Napi::HandleScope scope(env);
        napi_value element = nullptr;
        double number = 0;
        if (napi_get_element(env, array, i, &element) != napi_ok)
            return false; // a getter that throws
        if (napi_get_value_double(env, element, &number) == napi_ok)
            numbers.push_back(number);
        else if (isInside || !readArray(env, element, numbers, true))
            return false;
    }
    return true;
}

} // namespace

bool nodeReadNumbers(Napi::Value value, std::vector<double>& numbers)
{
    numbers.clear();
    if (value.IsEmpty())
        return false;
    if (value.IsTypedArray())
        return readTyped(value.As<Napi::TypedArray>(), numbers);
    return value.IsArray() && readArray(value.Env(), value, numbers, false);
}
