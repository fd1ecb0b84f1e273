#include "window/send_keys.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

struct KeyRow {
    const wchar_t* keys;
    WORD key;
};

// clang-format off
constexpr KeyRow keyRows[] = {
    {L"{BACKSPACE}", 0x08}, {L"{BS}", 0x08},    {L"{BKSP}", 0x08},   {L"{TAB}", 0x09},    {L"{CLEAR}", 0x0C},
    {L"{ENTER}", 0x0D},     {L"{RETURN}", 0x0D},{L"~", 0x0D},        {L"{CAPSLOCK}", 0x14},
    {L"{ESC}", 0x1B},       {L"{ESCAPE}", 0x1B},{L"{PGUP}", 0x21},   {L"{PGDN}", 0x22},   {L"{END}", 0x23},
    {L"{HOME}", 0x24},      {L"{LEFT}", 0x25},  {L"{UP}", 0x26},     {L"{RIGHT}", 0x27},  {L"{DOWN}", 0x28},
    {L"{PRTSC}", 0x2C},     {L"{INSERT}", 0x2D},{L"{INS}", 0x2D},    {L"{DELETE}", 0x2E}, {L"{DEL}", 0x2E},
    {L"{HELP}", 0x2F},      {L"{BREAK}", 0x03}, {L"{NUMLOCK}", 0x90},{L"{SCROLLLOCK}", 0x91},
    {L"{F1}", 0x70},  {L"{F2}", 0x71},  {L"{F3}", 0x72},  {L"{F4}", 0x73},  {L"{F5}", 0x74},  {L"{F6}", 0x75},
    {L"{F7}", 0x76},  {L"{F8}", 0x77},  {L"{F9}", 0x78},  {L"{F10}", 0x79}, {L"{F11}", 0x7A}, {L"{F12}", 0x7B},
    {L"{F13}", 0x7C}, {L"{F14}", 0x7D}, {L"{F15}", 0x7E}, {L"{F16}", 0x7F},
};
// clang-format on

class KeyNamesTest : public testing::TestWithParam<KeyRow> {};

TEST_P(KeyNamesTest, name_isItsKey)
{
    EXPECT_EQ(parseKeys(GetParam().keys), std::vector<KeyStroke>{{.virtualKey = GetParam().key}});
}

INSTANTIATE_TEST_SUITE_P(All, KeyNamesTest, testing::ValuesIn(keyRows));

} // namespace
} // namespace velk
