#include "base/unique_any.h"
#include "serverview/svrViewCtl.h"
#include "serverview/viewAPIs.h"
#include "support/fakeBackend.h"

#include <gtest/gtest.h>
#include <memory>
#include <product.h>

namespace velk {
namespace {

// A tree with nodes and no selection makes one when it gets the focus, and the tool is told.
TEST(filterStripEnd, viewThatGoesInsideTheCallThatTheFocusLeadsTo_isNotTouchedAnyMore)
{
    test::FakeBackend backend;
    backend.numbersAsTexts = true;
    const unique_window host(CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED | WS_VISIBLE, 0, 0, 1200, 600, nullptr,
                                             nullptr, nullptr, nullptr));
    auto view = std::make_shared<svrViewCtl>();
    view->create(host.get(), {0, 0, 1000, 400});
    view->setupGUI();
    addFolderNode(L"", L"5", L"K1", L"orders", L"True");
    view->filterStrip().open();
    const HWND window = view->hwnd();
    const HWND strip = FindWindowExW(window, nullptr, VELK_OWN_NAME("filterStrip"), nullptr);
    backend.on.RZSetCurrentFolder = [&](int32_t, int32_t) {
        view.reset();
        return 1;
    };
    SendMessageW(FindWindowExW(strip, nullptr, L"BUTTON", nullptr), BM_CLICK, 0, 0);
    EXPECT_FALSE(view);
    EXPECT_FALSE(IsWindow(window));
}

} // namespace
} // namespace velk
