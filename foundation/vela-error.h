// foundation/vela-error.h: the exception of the foundation library's classes. The C-style functions report by return
// value.
#pragma once

#include "foundation/vela-string.h"

/// Thrown and caught by value. Codes are errno numbers; 12 is out of memory, 22 an invalid argument, and 7 a formatted
/// text that fills its buffer.
class velaError
{
public:
    explicit velaError(int errorCode) : m_code(errorCode), m_message(sstring::NoBuffer{}) {}
    velaError(int errorCode, sstring const& text) : m_code(errorCode), m_message(text) {}

    int getCode() const { return m_code; }
    /// Empty unless the thrower said more.
    sstring const& getMessage() const { return m_message; }

private:
    int m_code;        ///< errno-style number
    sstring m_message; ///< one line for a person, or empty
};
