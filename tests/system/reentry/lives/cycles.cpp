#include "cycles.h"

#include "support/processCounts.h"

namespace velk::devkit {
namespace {

constexpr int warmUps = 2;

} // namespace

std::vector<std::wstring> growthOf(int lives, const std::function<std::vector<std::wstring>()>& life)
{
    test::ProcessCounts before{};
    for (int number = 0; number < warmUps + lives; ++number) {
        if (number == warmUps)
            before = test::processCounts();
        if (auto wrong = life(); !wrong.empty())
            return wrong;
    }
    const test::ProcessCounts after = test::processCounts();
    std::vector<std::wstring> lines;
    for (size_t kind = 0; kind < after.size(); ++kind) {
        const auto more = static_cast<long>(after[kind].second) - static_cast<long>(before[kind].second);
        lines.push_back(std::wstring(L"GROWTH ") + after[kind].first + L" " + std::to_wstring(more));
    }
    return lines;
}

} // namespace velk::devkit
