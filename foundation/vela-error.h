// foundation/vela-error.h: the exception that this library's classes throw. The C-style functions report errors by
// return value.
#pragma once

#include "foundation/vela-string.h"

/// Thrown by value. Codes are errno numbers: 12 is out of memory, 22 an invalid argument, 7 a formatted text that does
/// not fit its buffer.
class velaError
{
public:
    explicit velaError(int errorCode) : m_code(errorCode), m_message(sstring::NoBuffer{}) {}
    velaError(int errorCode, sstring const& text) : m_code(errorCode), m_message(text) {}

    int getCode() const { return m_code; }
    /// A line of text for people; often empty.
    sstring const& getMessage() const { return m_message; }

private:
    int m_code;
    sstring m_message;
};
