#include "devkit/backend/messages.h"
#include "devkit/backend/session.h"

#include <algorithm>

namespace velk::devkit {
namespace {

// What carries out an action; null where the caller has another way to ask for it.
using Handler = bool (Session::*)(int32_t handle);
struct ActionRow {
    int32_t code;
    Handler handler;
};

// clang-format off
constexpr ActionRow actionRows[] = {
    { 2, nullptr},                  // open: by RZProjectDoAccess
    { 3, &Session::save},
    { 4, nullptr},                  // save as: by RZProjectDoAccess
    { 7, &Session::connect},
    { 8, &Session::disconnect},
    { 9, &Session::add},
    {10, &Session::refresh},
    {11, &Session::filter},
    {12, &Session::import},
    {13, &Session::properties},
    {14, &Session::showSource},
    {15, &Session::runSettings},
    {16, &Session::run},
    {17, &Session::run},            // there is no debugger to attach
    {18, &Session::build},
    {19, &Session::build},
    {20, &Session::sampleContents},
    {21, &Session::remove},
    {22, &Session::drop},
    {23, &Session::paste},
    {24, &Session::copy},
    {25, &Session::showSource},
    {26, nullptr},                  // these four have calls of their own
    {27, nullptr},
    {28, nullptr},
    {29, nullptr},
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
