#include "backend/texts.h"

#include "backend/calls.h"

#include "base/boundary.h"

namespace velk {
namespace {

constexpr int32_t capacity = 1024;

// The first characters of the buffer, or fewer when a NUL stands among those before the last of them. A count
// beyond the buffer means all of it.
std::wstring firstCharacters(std::span<const char> buffer, int32_t count)
{
    if (count < 1)
        return {};
    const auto length = static_cast<size_t>(count);
    std::wstring text;
    if (!ansi::readBeforeNul(text, buffer))
        text = ansi::wideOf(buffer);
    else if (text.size() + 1 == length)
        text.push_back(L'\0'); // just the last character counted: the count wins
    if (text.size() > length)
        text.resize(length);
    return text;
}

template <class Fetch>
std::wstring fetchMessage(std::wstring_view where, BackendFunction function, Fetch fetch) noexcept
{
    std::wstring text;
    swallow(where, L"a text that cannot be had is empty", [&] {
        const ansi::CountedText buffer(capacity);
        const int32_t count = fetch(buffer.get());
        text = firstCharacters(buffer.bytes(), count);
        if (ansi::isOverrun(buffer.bytes()))
            reportBackendOverrun(function, "the text");
    });
    return text;
}

} // namespace

std::wstring getRZString(int32_t number) noexcept
{
    return fetchMessage(L"getRZString", BackendFunction::RZGetString,
                        [&](char* buffer) { return RZGetString.onWire(number, buffer, capacity); });
}

std::wstring getRZStringP1(int32_t number, std::wstring& parameter) noexcept
{
    return fetchMessage(L"getRZStringP1", BackendFunction::RZGetStringP1, [&](char* buffer) {
        arguments::TextRef first(parameter);
        const int32_t count = RZGetStringP1.onWire(number, buffer, capacity, first.wire());
        first.readBack();
        return count;
    });
}

std::wstring getRZStringP2(int32_t number, std::wstring& parameter1, std::wstring& parameter2) noexcept
{
    return fetchMessage(L"getRZStringP2", BackendFunction::RZGetStringP2, [&](char* buffer) {
        arguments::TextRef first(parameter1);
        arguments::TextRef second(parameter2);
        const int32_t count = RZGetStringP2.onWire(number, buffer, capacity, first.wire(), second.wire());
        first.readBack();
        second.readBack();
        return count;
    });
}

} // namespace velk
