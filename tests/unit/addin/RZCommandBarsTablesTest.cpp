// Every entry of the toolbar and of the menu, against a copy of both tables that the product does not share.
#include "addin/RZCommandBars.h"
#include "com/picture.h"
#include "fakeBars.h"
#include "support/fakeBackend.h"

#include <gmock/gmock.h>
#include <ostream>
#include <set>

namespace velk {
namespace {

using Calls = std::vector<std::string>;
using List = test::FakeControls test::FakeBars::*;

constexpr List toolbar = &test::FakeBars::buttons;
constexpr List menu = &test::FakeBars::menu;
constexpr List views = &test::FakeBars::views;
constexpr int noPicture = 0;

struct EntryAsBuilt {
    const char* group;
    List list;
    size_t place;
    const wchar_t* caption;
    int face;
    const wchar_t* action;
    bool beginsGroup;
};
void PrintTo(const EntryAsBuilt& entry, std::ostream* out)
{
    *out << entry.group << " " << entry.place;
}

class EntryTables : public testing::Test {
protected:
    EntryTables()
    {
        backend.numbersAsTexts = true;
        own.addToolbar();
        own.addViews();
        own.addTools();
        own.addHelp();
    }
    com_ptr<test::FakeObject> entry(List list, size_t place) { return (bars.*list).made.at(place); }
    static std::vector<DWORD> picture(int resource)
    {
        return resource == noPicture ? std::vector<DWORD>() : test::pixelsOf(loadBitmap(resource).get());
    }

    test::FakeBackend backend;
    test::FakeIde ide;
    test::FakeBars bars{ide, L"#201"};
    RZCommandBars own{ide.dte.get()};
};

class EachEntry : public EntryTables, public testing::WithParamInterface<EntryAsBuilt> {};

TEST_P(EachEntry, builtInItsPlace_hasItsCaptionFaceActionAndSeparator)
{
    const EntryAsBuilt& wanted = GetParam();
    const com_ptr<test::FakeObject> made = entry(wanted.list, wanted.place);
    EXPECT_EQ(made->read(L"Caption").asText(), wanted.caption);
    EXPECT_EQ(made->read(L"OnAction").asText(), wanted.action);
    EXPECT_EQ(made->read(L"BeginGroup").asBool(), wanted.beginsGroup);
    EXPECT_EQ(bars.faces[wanted.caption], picture(wanted.face));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(bothTables, EachEntry, testing::Values(
    EntryAsBuilt{"toolbar", toolbar, 0, L"#301", 115,       L"1",  false},
    EntryAsBuilt{"toolbar", toolbar, 1, L"#303", 103,       L"3",  false},
    EntryAsBuilt{"toolbar", toolbar, 2, L"#304", 105,       L"2",  false},
    EntryAsBuilt{"toolbar", toolbar, 3, L"#305", 107,       L"4",  false},
    EntryAsBuilt{"toolbar", toolbar, 4, L"#302", 109,       L"5",  false},
    EntryAsBuilt{"toolbar", toolbar, 5, L"#314", 113,       L"10", false},
    EntryAsBuilt{"toolbar", toolbar, 6, L"#306", 111,       L"6",  false},
    EntryAsBuilt{"views",   menu,    0, L"#202", noPicture, L"",   true},
    EntryAsBuilt{"views",   views,   0, L"#203", noPicture, L"8",  false},
    EntryAsBuilt{"views",   views,   1, L"#204", noPicture, L"7",  false},
    EntryAsBuilt{"tools",   menu,    1, L"#206", 100,       L"1",  true},
    EntryAsBuilt{"tools",   menu,    2, L"#208", 103,       L"3",  false},
    EntryAsBuilt{"tools",   menu,    3, L"#209", 105,       L"2",  false},
    EntryAsBuilt{"tools",   menu,    4, L"#210", 107,       L"4",  false},
    EntryAsBuilt{"tools",   menu,    5, L"#207", 109,       L"5",  false},
    EntryAsBuilt{"tools",   menu,    6, L"#219", 113,       L"10", false},
    EntryAsBuilt{"help",    menu,    7, L"#212", noPicture, L"12", true},
    EntryAsBuilt{"help",    menu,    8, L"#211", 111,       L"6",  false},
    EntryAsBuilt{"help",    menu,    9, L"#213", noPicture, L"30", false}));
// clang-format on

TEST_F(EntryTables, nothingElse_isBuilt)
{
    EXPECT_EQ(bars.buttons.made.size(), 7u);
    EXPECT_EQ(bars.menu.made.size(), 10u);
    EXPECT_EQ(bars.views.made.size(), 2u);
    EXPECT_EQ(bars.menus.made.size(), 1u);
}

TEST_F(EntryTables, pictures_areAllDifferent)
{
    const std::set<std::vector<DWORD>> different{picture(100), picture(103), picture(105), picture(107),
                                                 picture(109), picture(111), picture(113), picture(115)};
    EXPECT_EQ(different.size(), 8u);
}

TEST_F(EntryTables, buttonsOfTheToolbar_areAddedByTypeAlone)
{
    EXPECT_THAT(bars.buttons.journal, testing::Contains(L"Controls.Add(1)").Times(7));
}

TEST_F(EntryTables, entriesOfTheMenu_areAddedByNamedTypeAndTemporary)
{
    EXPECT_THAT(bars.menu.journal, testing::Contains(L"Controls.Add(Type:=10, temporary:=True)").Times(1));
    EXPECT_THAT(bars.menu.journal, testing::Contains(L"Controls.Add(Type:=1, temporary:=True)").Times(9));
    EXPECT_THAT(bars.views.journal, testing::Contains(L"Controls.Add(Type:=1, temporary:=True)").Times(2));
}

struct EntryAsClicked {
    List list;
    size_t place;
    const char* call;
};
void PrintTo(const EntryAsClicked& entry, std::ostream* out)
{
    *out << entry.call;
}

class EachClick : public EntryTables, public testing::WithParamInterface<EntryAsClicked> {};

TEST_P(EachClick, ofAnEntry_launchesWhatItsActionSays)
{
    bars.click(entry(GetParam().list, GetParam().place));
    EXPECT_EQ(backend.calls, Calls{GetParam().call});
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(bothTables, EachClick, testing::Values(
    EntryAsClicked{toolbar, 0, "RZLaunchVelkTool(1)"},
    EntryAsClicked{toolbar, 1, "RZLaunchVelkTool(3)"},
    EntryAsClicked{toolbar, 2, "RZLaunchApp(2, \"-ccf\")"},
    EntryAsClicked{toolbar, 3, "RZLaunchVelkTool(4)"},
    EntryAsClicked{toolbar, 4, "RZLaunchVelkTool(5)"},
    EntryAsClicked{toolbar, 5, "RZLaunchVelkTool(10)"},
    EntryAsClicked{toolbar, 6, "RZLaunchVelkTool(6)"},
    EntryAsClicked{views,   0, "RZLaunchVelkTool(8)"},
    EntryAsClicked{views,   1, "RZLaunchVelkTool(7)"},
    EntryAsClicked{menu,    1, "RZLaunchVelkTool(1)"},
    EntryAsClicked{menu,    2, "RZLaunchVelkTool(3)"},
    EntryAsClicked{menu,    3, "RZLaunchApp(2, \"-ccf\")"},
    EntryAsClicked{menu,    4, "RZLaunchVelkTool(4)"},
    EntryAsClicked{menu,    5, "RZLaunchVelkTool(5)"},
    EntryAsClicked{menu,    6, "RZLaunchVelkTool(10)"},
    EntryAsClicked{menu,    7, "RZLaunchVelkTool(12)"},
    EntryAsClicked{menu,    8, "RZLaunchVelkTool(6)"}));
// clang-format on

TEST_F(EntryTables, actionThatWasChangedSince_isTheOneThatIsLaunched)
{
    entry(menu, 1)->value(L"OnAction", variant(L"12"));
    bars.click(entry(menu, 1));
    EXPECT_EQ(backend.calls, Calls{"RZLaunchVelkTool(12)"});
}

TEST_F(EntryTables, clickThatAnotherAddinHandled_launchesNothing)
{
    bars.click(entry(menu, 1), true);
    EXPECT_EQ(backend.calls, Calls{});
}

} // namespace
} // namespace velk
