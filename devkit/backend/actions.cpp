#include "devkit/backend/messages.h"
#include "devkit/backend/session.h"

#include <algorithm>

namespace velk::devkit {
namespace {

// What carries out an action; null where this edition cannot yet.
using Handler = bool (Session::*)(int32_t handle);
struct ActionRow {
    int32_t code;
    Handler handler;
};

// clang-format off
constexpr ActionRow actionRows[] = {
    { 2, nullptr},               // open
    { 3, nullptr},               // save
    { 4, nullptr},               // save as
    { 7, &Session::connect},
    { 8, &Session::disconnect},
    { 9, nullptr},               // new
    {10, &Session::refresh},
    {11, nullptr},               // filter
    {12, nullptr},               // import
    {13, nullptr},               // properties
    {14, nullptr},               // edit source
    {15, nullptr},               // run settings
    {16, nullptr},               // run
    {17, nullptr},               // run with debug
    {18, nullptr},               // build
    {19, nullptr},               // build with debug
    {20, nullptr},               // sample contents
    {21, &Session::remove},      // so far projects only
    {22, nullptr},               // drop
    {23, nullptr},               // paste
    {24, nullptr},               // copy
    {25, nullptr},               // view source
    {26, nullptr},               // ADO connection code
    {27, nullptr},               // ADO connection object
    {28, nullptr},               // ADO command code
    {29, nullptr},               // ADO command object
};
// clang-format on

} // namespace

Outcome Session::act(int32_t handle, int32_t code)
{
    const auto* const row = std::find_if(std::begin(actionRows), std::end(actionRows),
                                         [&](const ActionRow& candidate) { return candidate.code == code; });
    if (row == std::end(actionRows))
        return Outcome::unknown;
    if (row->handler && (this->*row->handler)(handle))
        return Outcome::done;
    tell(row->handler ? messageWrongObject : messageNotAvailable, {m_texts.text(actionNames + code)});
    return Outcome::refused;
}

} // namespace velk::devkit
