#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velk {

// Conversions between wide text and the process's ANSI code page (characters without a counterpart become the code
// page's default character, as Windows does it).
std::string toAnsi(std::wstring_view text);
std::wstring toWide(std::string_view text);

// The decimal text of a number and the text of a Boolean ("True", "False"), as Basic writes them.
std::wstring numberText(int32_t number);
std::wstring booleanText(bool truth);

// The leading number of a text as Basic's Val reads it: blanks, tabs and line feeds are passed over, digits with a
// sign, one decimal point and an exponent are read, and the first other character ends it; 0 when there is none.
double leadingNumber(std::wstring_view text);

// To the nearest whole number, halves to even; error 6 outside 32 bits.
int32_t roundToLong(double number);

// A whole text as a number, as an assignment to a Long converts it: error 13 when it is not a number, 6 outside 32
// bits.
int32_t textToLong(std::wstring_view text);

} // namespace velk
