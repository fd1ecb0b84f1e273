// Each counter sees one thing more when there is one, and not when it is gone.
#include "support/processCounts.h"

#include "base/unique_any.h"
#include "devkit/base/thread.h"

#include <gtest/gtest.h>
#include <string_view>

namespace velk {
namespace {

TEST(ProcessCounts, handle_countsWhileItIsOpen)
{
    const size_t before = test::handleCount();
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    EXPECT_EQ(test::handleCount(), before + 1);
    CloseHandle(event);
    EXPECT_EQ(test::handleCount(), before);
}

TEST(ProcessCounts, gdiObject_countsUntilItIsDeleted)
{
    const size_t before = test::gdiObjectCount();
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(test::gdiObjectCount(), before + 1);
    DeleteObject(brush);
    EXPECT_EQ(test::gdiObjectCount(), before);
}

TEST(ProcessCounts, windowsAtTheTopInsideOthersAndForMessagesOnly_count)
{
    const auto topWindow = [] {
        return unique_window(
            CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
    };
    const unique_window first = topWindow(); // with it comes one of the system's for foreign input
    const size_t before = test::windowCount();
    unique_window top = topWindow();
    const HWND inside = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, top.get(), nullptr, nullptr, nullptr);
    ASSERT_TRUE(inside);
    EXPECT_EQ(test::windowCount(), before + 2);
    const unique_window messages(
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
    EXPECT_EQ(test::windowCount(), before + 3);
    top.reset();
    EXPECT_EQ(test::windowCount(), before + 1);
}

TEST(ProcessCounts, heapBlock_countsWithItsBytes)
{
    const size_t blocks = test::heapBlockCount();
    const size_t bytes = test::heapByteCount();
    void* const block = HeapAlloc(GetProcessHeap(), 0, 12345);
    EXPECT_EQ(test::heapBlockCount(), blocks + 1);
    EXPECT_EQ(test::heapByteCount(), bytes + 12345);
    HeapFree(GetProcessHeap(), 0, block);
    EXPECT_EQ(test::heapBlockCount(), blocks);
}

TEST(ProcessCounts, smallBlocksUnderWine8_count)
{
    using Version = const char*(__cdecl*)();
    const auto version = reinterpret_cast<Version>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")));
    if (!version || !std::string_view(version()).starts_with("8."))
        GTEST_SKIP() << "another system, whose heap may tell of groups of blocks";
    EXPECT_TRUE(test::areHeapBlocksCounted());
}

TEST(ProcessCounts, thread_countsUntilItEnds)
{
    const size_t before = test::threadCount();
    devkit::Signal enough;
    devkit::Thread thread([&] { enough.wait(); });
    EXPECT_EQ(test::threadCount(), before + 1);
    enough.give();
    thread.join();
    EXPECT_EQ(test::threadCount(), before);
}

TEST(ProcessCounts, module_countsWhileItIsLoaded)
{
    const size_t before = test::moduleCount();
    unique_module library(LoadLibraryW(L"cabinet.dll"));
    ASSERT_TRUE(library);
    EXPECT_EQ(test::moduleCount(), before + 1);
    library.reset();
    EXPECT_EQ(test::moduleCount(), before);
}

TEST(ProcessCounts, slotOfThreads_countsUntilItIsFreed)
{
    const size_t before = test::threadSlotCount();
    const DWORD slot = TlsAlloc();
    EXPECT_EQ(test::threadSlotCount(), before + 1);
    TlsFree(slot);
    EXPECT_EQ(test::threadSlotCount(), before);
}

} // namespace
} // namespace velk
