// A folder's contents, from the notification to the painted list, and its end.
#include "measure.h"
#include "plainList.h"

#include "base/unique_any.h"
#include "serverview/FolderReading.h"

namespace velk::bench {
namespace {

// The folder was shown once, so that its columns have their widths.
struct Folder {
    explicit Folder(int32_t objects) : screen(objects)
    {
        screen.enterFolder();
        screen.fill(1000);
    }
    void reenter()
    {
        screen.leaveFolder();
        screen.enterFolder();
    }
    Screen screen;
};

Outcome open(int32_t objects)
{
    Folder folder(objects);
    PlainList plain(folder.screen, objects);
    return {runPairs({[&] { folder.reenter(); }, [&] { folder.screen.fill(objects); }},
                     {[&] { plain.clear(); }, [&] { plain.fill(objects); }})};
}

Outcome openTenth(int32_t objects)
{
    return open(objects / 10);
}

Outcome openGrowth(int32_t objects)
{
    Folder folder(objects);
    return {runPairs({[&] { folder.reenter(); }, [&] { folder.screen.fill(objects); }},
                     {[&] { folder.reenter(); }, [&] { folder.screen.fill(objects / 10); }})};
}

Outcome leave(int32_t objects)
{
    Folder folder(objects);
    PlainList plain(folder.screen, objects);
    const auto enter = [&] {
        folder.screen.enterFolder();
        folder.screen.fill(objects);
    };
    return {runPairs({enter, [&] { folder.screen.leaveFolder(); }},
                     {[&] { plain.fill(objects); }, [&] { plain.clear(); }})};
}

// What a long reading does beside reading, as if it took ten times as long as it does.
Outcome fill(int32_t objects)
{
    Folder folder(objects);
    const ReadingSenses before = readingSenses();
    const scope_exit restored([&] { readingSenses() = before; });
    const auto fillBy = [&](DWORD (*clock)() noexcept) -> Side {
        return {[&folder] { folder.reenter(); },
                [&folder, objects, clock] {
                    readingSenses().now = clock;
                    folder.screen.fill(objects);
                }};
    };
    return {
        runPairs(fillBy([]() noexcept { return GetTickCount() * 10; }), fillBy([]() noexcept { return DWORD{0}; }))};
}

constexpr const char* plainList = "a plain list with the same cells";

// clang-format off
constexpr Row rows[] = {
    {"open-10000",  "ms", 0.25, false, "folder of 10,000 procedures, notification to painted list", plainList, openTenth},
    {"open-100000", "ms", 0.20, true,  "folder of 100,000 procedures, notification to painted list", plainList, open},
    {"open-growth", "ms", 10.5, false, "the same", "10,000 procedures", openGrowth},
    {"fill",        "ms", 1.25, false, "the same, counting its objects by a clock ten times as fast", "a clock that stands still", fill},
    {"leave",       "ms", 0.05, true,  "leaving that folder", "LVM_DELETEALLITEMS of the plain list", leave},
};
// clang-format on

} // namespace

std::span<const Row> folderRows()
{
    return rows;
}

} // namespace velk::bench
