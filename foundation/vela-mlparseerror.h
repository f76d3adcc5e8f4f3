// foundation/vela-mlparseerror.h: what the markup parser throws on a syntax error.
#pragma once

#include "foundation/vela-string.h"

enum mlParseErrorCode : int
{
    kErrorUnexpectedSymbol = 0,
    kErrorNoTagName = 1,
    kErrorNoTagClosure = 2,
    kErrorNoCDataClosure = 3,
    kErrorNoAttributeValue = 4,
    kErrorTagNameLength = 5,
    kErrorAttributeNameLength = 6,
    kErrorAttributeValueLength = 7
};

/// Thrown by value.
class mlParseError
{
public:
    static constexpr unsigned int kUnknownLine = 0xFFFFFFFF;

    explicit mlParseError(mlParseErrorCode errorCode, unsigned int errorLine = kUnknownLine)
        : m_code(errorCode), m_line(errorLine)
    {}

    mlParseErrorCode getCode() const { return m_code; }
    /// The line of the error, from 1; kUnknownLine if it is not known.
    unsigned int getLine() const { return m_line; }
    /// A line of English text with a newline, such as "line 3: expected tag closure marker\n".
    sstring toEnglishString() const;

private:
    mlParseErrorCode m_code;
    unsigned int m_line;
};
