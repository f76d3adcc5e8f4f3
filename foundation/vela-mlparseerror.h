// foundation/vela-mlparseerror.h: what the markup parser throws at bad syntax.
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
    /// The line, from 1, on which reading stood; 0xFFFFFFFF when it is not known.
    unsigned int getLine() const { return m_line; }
    /// One English line with its newline, such as "line 3: expected tag closure marker\n".
    sstring toEnglishString() const;

private:
    mlParseErrorCode m_code;
    unsigned int m_line;
};
