#include "ideFixture.h"

namespace velk::devkit {
namespace {

class WindowsTest : public IdeFixture {
protected:
    com_ptr<IDispatch> windows() { return automation::getObject(com_ptr<IDispatch>(&shell.dte()), L"Windows"); }
    com_ptr<IDispatch> mainWindow() { return automation::getObject(com_ptr<IDispatch>(&shell.dte()), L"MainWindow"); }
    variant create(const variant& progId, const variant& document)
    {
        const auto addIn = makeObject<AddIn>(L"test.AddIn");
        return automation::call(windows(), L"CreateToolWindow",
                                {variant(static_cast<IDispatch*>(addIn.get())), progId, variant(L"Tool"),
                                 variant(L"{5D1C7A3E-2B94-4F6A-9E0B-7C3D8A61F2B6}"), document});
    }

    Shell shell{true};
};

TEST_F(WindowsTest, aWindowOfTypeFive_isThere)
{
    const auto immediate = automation::getObject(windows(), L"Item", {variant(L"Immediate")});
    EXPECT_EQ(automation::get(immediate, L"Type").asLong(), 5);
}

TEST_F(WindowsTest, mainWindowsState_canBeSetAndRead)
{
    automation::put(mainWindow(), L"WindowState", variant(1));
    EXPECT_EQ(automation::get(mainWindow(), L"WindowState").asLong(), 1);
    automation::put(mainWindow(), L"WindowState", variant(2));
    EXPECT_EQ(automation::get(mainWindow(), L"WindowState").asLong(), 2);
    automation::put(mainWindow(), L"WindowState", variant(0));
    EXPECT_EQ(automation::get(mainWindow(), L"WindowState").asLong(), 0);
}

TEST_F(WindowsTest, mainWindow_cannotBeClosedByAutomation)
{
    EXPECT_NE(failureOf([&] { automation::call(mainWindow(), L"Close"); }), 0);
}

TEST_F(WindowsTest, toolWindowOfAnUnknownClass_failsAndLeavesNoWindow)
{
    com_ptr<IDispatch> document;
    const int32_t before = automation::get(windows(), L"Count").asLong();
    EXPECT_NE(failureOf([&] { create(variant(L"velk.NoSuchDocument"), variant::refTo(document.put())); }), 0);
    EXPECT_EQ(automation::get(windows(), L"Count").asLong(), before);
}

TEST_F(WindowsTest, documentByValue_isATypeMismatch)
{
    EXPECT_EQ(failureOf([&] { create(variant(L"velk.NoSuchDocument"), variant(1)); }), errorTypeMismatch);
}

TEST_F(WindowsTest, solution_countsOneWhileItIsOpen)
{
    const auto solution = automation::getObject(com_ptr<IDispatch>(&shell.dte()), L"Solution");
    automation::call(solution, L"Open", {variant(L"C:\\work\\a.sln")});
    EXPECT_EQ(automation::get(solution, L"Count").asLong(), 1);
    EXPECT_EQ(automation::get(solution, L"FullName").asText(), L"C:\\work\\a.sln");
    automation::call(solution, L"Close");
    EXPECT_EQ(automation::get(solution, L"Count").asLong(), 0);
}

} // namespace
} // namespace velk::devkit
