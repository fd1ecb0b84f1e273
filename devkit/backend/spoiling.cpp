#include "devkit/backend/spoiling.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace velk::devkit {
namespace {

FaultHook hook = nullptr;

constexpr int32_t largest = std::numeric_limits<int32_t>::max();
constexpr int32_t tooLong = 0x3FFFFFF0; // characters: 2 GB of wide ones

int32_t numberOf(Fault fault) noexcept
{
    return fault == Fault::negative ? -1 : fault == Fault::huge ? tooLong : largest;
}

} // namespace

void setCallFaultHook(FaultHook wanted) noexcept
{
    hook = wanted;
}

Fault callFault(const wchar_t* call) noexcept
{
    return hook ? hook(call) : Fault::none;
}

bool leavesWork(const wchar_t* call, Fault fault) noexcept
{
    const std::wstring_view name = call;
    const bool isEnd = name.ends_with(L"Terminate") || name.ends_with(L"EnumEnd");
    return !isEnd && (fault == Fault::zero || fault == Fault::negative);
}

int32_t wrongAnswer(int32_t answer, Fault fault) noexcept
{
    const bool saysMore = fault == Fault::absurd || fault == Fault::huge;
    if (saysMore && answer == 0) // the end of an enumeration stays its end
        return 0;
    return fault == Fault::zero ? 0 : numberOf(fault);
}

void spoilRecord(void* record, size_t size, std::span<const TextRow> texts, Fault fault) noexcept
{
    const int32_t number = numberOf(fault);
    for (size_t place = 0; place < size; place += sizeof number) {
        const auto isHere = [&](const TextRow& row) { return row.offset == place; };
        if (std::none_of(texts.begin(), texts.end(), isHere))
            std::memcpy(static_cast<char*>(record) + place, &number, sizeof number);
    }
}

} // namespace velk::devkit
