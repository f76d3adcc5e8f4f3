// foundation/vela-mlparseerror.h: what the markup parser throws at bad syntax.
#pragma once

#include "foundation/vela-string.h"

enum mlParseErrorCode : int
{
    mlErrorUnexpectedSymbol = 0,
    mlErrorNoTagName = 1,
    mlErrorNoTagClosure = 2,
    mlErrorNoCDataClosure = 3,
    mlErrorNoAttributeValue = 4,
    mlErrorTagNameLength = 5,
    mlErrorAttributeNameLength = 6,
    mlErrorAttributeValueLength = 7
};

/// Thrown by value.
class mlParseError
{
public:
    static constexpr unsigned int unknownLine = 0xFFFFFFFF;

    explicit mlParseError(mlParseErrorCode errorCode, unsigned int errorLine = unknownLine)
        : code(errorCode), line(errorLine)
    {}

    mlParseErrorCode getCode() const { return code; }
    /// The line, from 1, on which reading stood; 0xFFFFFFFF when it is not known.
    unsigned int getLine() const { return line; }
    /// One English line with its newline, such as "line 3: expected tag closure marker\n".
    sstring toEnglishString() const;

private:
    mlParseErrorCode code;
    unsigned int line;
};
