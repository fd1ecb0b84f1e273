// How the server view's times grow with the number of objects in a folder. Each line gives a time for 10,000 and one
// for 100,000 objects, and their ratio: about 10 is linear. Times are milliseconds.
#include "notify/handlers.h"
#include "serverview/publishedView.h"
#include "serverview/svrViewCtl.h"
#include "serverview/viewAPIs.h"
#include "support/fakeBackend.h"

#include <cstdio>
#include <functional>

namespace velk {
namespace {

constexpr int32_t folder = 20;
constexpr int32_t firstObject = 1000;

double milliseconds(const std::function<void()>& work)
{
    LARGE_INTEGER frequency, before, after;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&before);
    work();
    QueryPerformanceCounter(&after);
    return static_cast<double>(after.QuadPart - before.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

// A server view on a folder of so many procedures.
struct Bench {
    explicit Bench(int32_t objects) : count(objects)
    {
        backend.unjournaled.insert({"RZProcedureEnumNext"});
        for (int32_t number = 0; number < objects; ++number) {
            const int32_t handle = firstObject + number;
            trzProcedure record;
            record.strName = L"procedure" + std::to_wstring((number * 7919LL) % objects);
            record.strSchema = L"sales";
            record.strParameters = L"IN a INTEGER, OUT b VARCHAR(20)";
            record.lResultSets = number % 7;
            record.strLanguage = L"SQL";
            record.bIsDirty = number % 3 == 0;
            backend.procedures[handle] = record;
            backend.folders[folder].push_back(handle);
        }
        host = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED | WS_VISIBLE, 0, 0, 1200, 600, nullptr, nullptr,
                               nullptr, nullptr);
        view.create(host, {0, 0, 1000, 400});
        view.setupGUI();
        addFolderNode(L"", L"5", L"K1", L"orders", L"True");
        addFolderNode(L"K1", L"7", L"K20", L"Procedures", L"False");
        view.serverTreeView().select(L"K20");
    }
    ~Bench() { DestroyWindow(host); }

    void fill() { handleFolderContents(IntegrationMgr(), {5, 1, 2, 7, folder}); }
    void paint()
    {
        RedrawWindow(view.serverDetailsView().view().hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }

    const int32_t count;
    test::FakeBackend backend;
    HWND host = nullptr;
    svrViewCtl view;
};

struct Work {
    const char* name;
    void (*run)(Bench& bench);
};

// clang-format off
constexpr Work works[] = {
    {"open the folder",            [](Bench& bench) { bench.fill(); bench.paint(); }},
    {"refresh it",                 [](Bench& bench) { bench.fill(); bench.paint(); }},
    {"order by name",              [](Bench& bench) { bench.view.serverDetailsView().sortBy(0); bench.paint(); }},
    {"reverse the order",          [](Bench& bench) { bench.view.serverDetailsView().sortBy(0); bench.paint(); }},
    {"order by a number",          [](Bench& bench) { bench.view.serverDetailsView().sortBy(3); bench.paint(); }},
    {"scroll through 200 pages",   [](Bench& bench) {
         for (int page = 0; page < 200; ++page) {
             bench.view.serverDetailsView().view().scrollToTop(bench.count / 200 * page);
             bench.paint();
         }
     }},
    {"change 1000 rows by key",    [](Bench& bench) {
         for (int32_t number = 0; number < 1000; ++number)
             updateProcedureRow(bench.backend.procedures[firstObject + number * (bench.count / 1000)]);
     }},
    {"remove 100 rows by key",     [](Bench& bench) {
         for (int32_t number = 0; number < 100; ++number)
             removeListRow(L"8", makeKey(firstObject + number * (bench.count / 100)));
     }},
};
// clang-format on

} // namespace
} // namespace velk

int main()
{
    using namespace velk;
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    std::vector<double> small;
    {
        Bench bench(10000);
        for (const Work& work : works)
            small.push_back(milliseconds([&] { work.run(bench); }));
    }
    Bench bench(100000);
    std::printf("%-28s %10s %10s %8s\n", "objects", "10,000", "100,000", "ratio");
    for (size_t index = 0; index < std::size(works); ++index) {
        const double large = milliseconds([&] { works[index].run(bench); });
        std::printf("%-28s %10.1f %10.1f %8.1f\n", works[index].name, small[index], large, large / small[index]);
    }
    return 0;
}
