// A column made as wide as its widest text, by a double click on its divider.
#include "measure.h"
#include "plainList.h"

namespace velk::bench {
namespace {

constexpr int nameColumn = 0;
constexpr double longestWait = 100; // milliseconds

void doubleClickDivider(const Screen& screen)
{
    NMHEADERW notification{};
    notification.hdr.hwndFrom = reinterpret_cast<HWND>(SendMessageW(screen.list(), LVM_GETHEADER, 0, 0));
    notification.hdr.code = HDN_DIVIDERDBLCLICKW;
    notification.iItem = nameColumn;
    SendMessageW(screen.list(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

std::vector<Pair> fitted(int32_t objects)
{
    Screen screen(objects);
    screen.enterFolder();
    screen.fill(objects);
    return runPairs({[] {}, [&] { doubleClickDivider(screen); }},
                    {[] {}, [&] { RedrawWindow(screen.list(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }});
}

Outcome fit(int32_t objects)
{
    std::vector<Pair> pairs = fitted(objects);
    for (Pair& pair : pairs)
        pair.baseline = longestWait;
    return {std::move(pairs)};
}

Outcome fitByPainting(int32_t objects)
{
    return {fitted(objects)};
}

// clang-format off
constexpr Row rows[] = {
    {"fit",       "ms", 1,  true,  "a column fitted to 100,000 rows by a double click", "100 ms", fit},
    {"fit-paint", "ms", 10, false, "the same", "painting the list once", fitByPainting},
};
// clang-format on

} // namespace

std::span<const Row> fitRows()
{
    return rows;
}

} // namespace velk::bench
