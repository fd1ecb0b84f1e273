#include "devkit/automation/faults.h"

namespace velk::devkit {
namespace {

FaultHook hook = nullptr;

struct FaultRow {
    Fault fault;
    HRESULT answer;
};

// clang-format off
constexpr FaultRow rows[] = {
    {Fault::fail,        E_FAIL},
    {Fault::outOfMemory, E_OUTOFMEMORY},
    {Fault::exception,   DISP_E_EXCEPTION},
    {Fault::rejected,    RPC_E_CALL_REJECTED},
    {Fault::nothing,     S_OK},
};
// clang-format on

} // namespace

void setFaultHook(FaultHook wanted) noexcept
{
    hook = wanted;
}

std::optional<HRESULT> faultOf(const std::wstring& call) noexcept
{
    const Fault fault = hook ? hook(call.c_str()) : Fault::none;
    for (const FaultRow& row : rows)
        if (row.fault == fault)
            return row.answer;
    return std::nullopt;
}

} // namespace velk::devkit
