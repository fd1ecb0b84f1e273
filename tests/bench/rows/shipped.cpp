// What is shipped.
#include "shipped.h"

#include "measure.h"

namespace velk::bench {
namespace {

constexpr double mostBytes = 614400;

Outcome sizeOfDll(int32_t)
{
    WIN32_FILE_ATTRIBUTE_DATA found{};
    GetFileAttributesExA(shippedDll().c_str(), GetFileExInfoStandard, &found);
    return {{{static_cast<double>(found.nFileSizeLow), mostBytes}}};
}

// clang-format off
constexpr Row rows[] = {
    {"size", "bytes", 1, false, "the DLL without symbols", "the most that it may have", sizeOfDll},
};
// clang-format on

} // namespace

std::string& shippedDll()
{
    static std::string path;
    return path;
}

std::span<const Row> shippedRows()
{
    if (shippedDll().empty())
        return {};
    return rows;
}

} // namespace velk::bench
