// Whatever the user or the tool does with the view while there is no memory, from the first piece of it that is wanted
// to the last: nothing ends the process, and the view works again when there is some.
#include "base/boundary.h"
#include "filterStripFixture.h"
#include "serverview/CellTips.h"
#include "serverview/RowDrag.h"
#include "support/outOfMemory.h"

#include <cstring>
#include <ostream>

namespace velk {
namespace {

using testing::ElementsAre;

class GesturesTest;
struct Gesture {
    const char* name;
    void (*make)(GesturesTest& test);
};
void PrintTo(const Gesture& gesture, std::ostream* stream)
{
    *stream << gesture.name;
}

// The stand-ins must do without memory, too.
class GesturesTest : public test::FilterStripFixture, public testing::WithParamInterface<Gesture> {
public:
    using FilterStripFixture::button;
    using FilterStripFixture::edit;
    using FilterStripFixture::list;
    using FilterStripFixture::tree;
    using FilterStripFixture::view;

    void send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        SendMessageW(window, message, wParam, lParam);
    }
    void key(WPARAM key, int modifier = 0)
    {
        std::array<BYTE, 256> keys{};
        keys.at(static_cast<size_t>(modifier)) = modifier ? 0x80 : 0;
        SetKeyboardState(keys.data());
        MSG message{};
        message.hwnd = GetFocus();
        message.message = modifier == VK_MENU ? WM_SYSKEYDOWN : WM_KEYDOWN;
        message.wParam = key;
        static_cast<void>(attempt([&] { view.translateKey(message); })); // the door is its caller's
        keys = {};
        SetKeyboardState(keys.data());
    }
    void notify(HWND from, UINT code, int column = 0)
    {
        NMLISTVIEW notification{};
        notification.hdr.hwndFrom = from;
        notification.hdr.code = code;
        notification.iSubItem = column;
        send(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }
    void header(UINT code)
    {
        HDITEMW item{};
        item.mask = HDI_WIDTH;
        item.cxy = 77;
        NMHEADERW notification{};
        notification.hdr.hwndFrom = reinterpret_cast<HWND>(list().view().send(LVM_GETHEADER));
        notification.hdr.code = code;
        notification.pitem = &item;
        send(rows(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }
    void menuOf(HWND pane, int line)
    {
        chosenLine = line;
        send(view.hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(pane), -1);
    }
    void headerMenu(int line)
    {
        chosenLine = line;
        send(view.hwnd(), WM_CONTEXTMENU, static_cast<WPARAM>(list().view().send(LVM_GETHEADER)), MAKELPARAM(300, 30));
    }
    HWND rows() { return list().view().hwnd(); }
    HWND nodes() { return tree().hwnd(); }
    void paint() { RedrawWindow(view.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN); }
    trzProcedure first{.lHdl = 100, .strSchema = L"sys", .strName = L"raise", .strLanguage = L"SQL"};
    trzProcedure other{.lHdl = 101, .strSchema = L"a schema of a long name", .strName = L"a name that is long"};
    trzConnection changedConnection = connection;
    const std::wstring keyOfProject = L"K1", keyOfConnection = L"K10", keyOfFolder = L"K20", keyOfOther = L"K21",
                       keyOfNew = L"K4711000", tag = L"6", name = L"one of a long name", no = L"False";
    int chosenLine = 0;

protected:
    GesturesTest()
    {
        setMenuPresenter([this](const std::vector<MenuLine>&, POINT) { return chosenLine; });
        setMessagePresenter([](const std::wstring&, uint32_t, const std::wstring&) { return IDOK; });
        backend.on.RZGetString = [](int32_t, char* buffer, int32_t) {
            std::memcpy(buffer, "a text of the tool", 19);
            return 18;
        };
        backend.on.RZGetStringP2 = [](int32_t, char*, int32_t, char**, char**) { return 0; };
        backend.on.RZObjectDoAction = [](int32_t, int32_t) { return 1; };
        backend.on.RZSetCurrentFolder = [](int32_t, int32_t) { return 1; };
        changedConnection.strDatabase = L"a database of another name";
    }
    // As at the beginning of each test, whatever there was.
    void begin()
    {
        chosenLine = 0;
        static_cast<void>(attempt([this] { view.filterStrip().close(); }));
        addProject();
        tree().select(L"K20");
        list().columns().reset();
        list().sortBy(std::nullopt);
        addProcedures({L"raise", L"lower", L"order"});
        list().view().selectRow(0);
        SetFocus(rows());
    }
};

TEST_P(GesturesTest, withoutMemory_isSurvivedAndLeavesAViewThatWorks)
{
    begin();
    bool wasFelt = true;
    for (int given = 0; wasFelt; ++given) {
        {
            const test::OutOfMemory none(given);
            GetParam().make(*this);
            wasFelt = none.wasFelt();
        }
        begin();
        ASSERT_THAT(names(), ElementsAre(L"raise", L"lower", L"order")) << given;
        ASSERT_LT(given, 3000);
    }
}

// clang-format off
const Gesture gestures[] = {
    {"refresh",          [](GesturesTest& t) { t.key(VK_F5); }},
    {"copyNames",        [](GesturesTest& t) { t.key('C', VK_CONTROL); }},
    {"selectAll",        [](GesturesTest& t) { t.key('A', VK_CONTROL); }},
    {"enter",            [](GesturesTest& t) { t.key(VK_RETURN); }},
    {"properties",       [](GesturesTest& t) { t.key(VK_RETURN, VK_MENU); }},
    {"remove",           [](GesturesTest& t) { t.key(VK_DELETE); }},
    {"tab",              [](GesturesTest& t) { t.key(VK_TAB); t.key(VK_TAB); t.key(VK_TAB); }},
    {"filter",           [](GesturesTest& t) { t.key('F', VK_CONTROL); }},
    {"filterText",       [](GesturesTest& t) { t.key('F', VK_CONTROL); t.send(t.edit(), WM_CHAR, 'r'); t.key(VK_ESCAPE); t.key(VK_ESCAPE); }},
    {"filterButton",     [](GesturesTest& t) { t.key('F', VK_CONTROL); t.send(t.button(), BM_CLICK); }},
    {"filterEnter",      [](GesturesTest& t) { t.key('F', VK_CONTROL); t.key(VK_RETURN); }},
    {"menuOfRow",        [](GesturesTest& t) { t.menuOf(t.rows(), 0); }},
    {"itemOfRow",        [](GesturesTest& t) { t.menuOf(t.rows(), static_cast<int>(MenuItem::devObjBuildMnuItem) + 1); }},
    {"menuOfNode",       [](GesturesTest& t) { t.menuOf(t.nodes(), 0); }},
    {"itemOfNode",       [](GesturesTest& t) { t.menuOf(t.nodes(), static_cast<int>(MenuItem::devObjFolderRefreshMnuItem) + 1); }},
    {"sourceSafe",       [](GesturesTest& t) { t.menuOf(t.rows(), static_cast<int>(MenuItem::devObjChkOutMnuItem) + 1); }},
    {"hideColumn",       [](GesturesTest& t) { t.headerMenu(2); }},
    {"fitColumn",        [](GesturesTest& t) { t.headerMenu(1000); }},
    {"fitAllColumns",    [](GesturesTest& t) { t.headerMenu(1001); }},
    {"resetColumns",     [](GesturesTest& t) { t.headerMenu(1002); }},
    {"filterByMenu",     [](GesturesTest& t) { t.headerMenu(1003); t.headerMenu(1003); }},
    {"sort",             [](GesturesTest& t) { t.notify(t.rows(), LVN_COLUMNCLICK, 1); t.notify(t.rows(), LVN_COLUMNCLICK, 1); }},
    {"dragDivider",      [](GesturesTest& t) { t.header(HDN_BEGINTRACKW); t.header(HDN_ENDTRACKW); }},
    {"dragColumn",       [](GesturesTest& t) { t.header(HDN_ENDDRAG); }},
    {"divider",          [](GesturesTest& t) { t.header(HDN_DIVIDERDBLCLICKW); }},
    {"doubleClick",      [](GesturesTest& t) { t.notify(t.rows(), NM_DBLCLK); }},
    {"drag",             [](GesturesTest& t) { t.notify(t.rows(), LVN_BEGINDRAG); t.send(t.view.hwnd(), RowDrag::message); }},
    {"otherFolder",      [](GesturesTest& t) { t.send(t.nodes(), WM_KEYDOWN, VK_DOWN); }},
    {"collapse",         [](GesturesTest& t) { t.send(t.nodes(), WM_KEYDOWN, VK_LEFT); t.send(t.nodes(), WM_KEYDOWN, VK_LEFT); }},
    {"colours",          [](GesturesTest& t) { t.send(t.view.hwnd(), WM_SYSCOLORCHANGE); }},
    {"settings",         [](GesturesTest& t) { t.send(t.view.hwnd(), WM_SETTINGCHANGE); }},
    {"size",             [](GesturesTest& t) { t.view.resize(700, 300); t.view.resize(1000, 400); }},
    {"paint",            [](GesturesTest& t) { t.paint(); }},
    {"mouse",            [](GesturesTest& t) { t.send(t.rows(), WM_MOUSEMOVE, 0, MAKELPARAM(20, 30)); t.send(t.view.hwnd(), WM_TIMER, CellTips::timer); }},
    {"splitter",         [](GesturesTest& t) { t.send(t.view.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(242, 50));
                                               t.send(t.view.hwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(300, 50));
                                               t.send(t.view.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(300, 50));
                                               t.send(t.view.hwnd(), WM_TIMER, 0x4B50); }},
    {"addNode",          [](GesturesTest& t) { addFolderNode(t.keyOfConnection, t.tag, t.keyOfNew, t.name, t.no); }},
    {"addConnection",    [](GesturesTest& t) { t.changedConnection.lHdl = 815; addConnectionNode(t.keyOfProject, t.changedConnection); t.changedConnection.lHdl = 10; }},
    {"removeFolder",     [](GesturesTest& t) { removeNode(t.keyOfFolder); }},
    {"removeConnection", [](GesturesTest& t) { removeNode(t.keyOfConnection); }},
    {"removeProject",    [](GesturesTest& t) { removeNode(t.keyOfProject); }},
    {"look",             [](GesturesTest& t) { setFolderFiltered(t.keyOfFolder, true); }},
    {"changeConnection", [](GesturesTest& t) { updateConnectionNode(t.changedConnection); }},
    {"expand",           [](GesturesTest&)   { expandSelected(); }},
    {"kindIs",           [](GesturesTest&)   { selectedNodeKindIs(7); }},
    {"addRow",           [](GesturesTest& t) { t.first.lHdl = 4711; addProcedureRow(t.first); t.first.lHdl = 100; t.paint(); }},
    {"changeRow",        [](GesturesTest& t) { updateProcedureRow(t.other); t.paint(); }},
    {"removeRow",        [](GesturesTest& t) { removeListRow(8, 101); t.paint(); }},
    {"clearRows",        [](GesturesTest& t) { clearListRows(); t.paint(); }},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(all, GesturesTest, testing::ValuesIn(gestures),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
} // namespace velk
