#include "serverview/RowDrag.h"

#include "rowDragFixture.h"

namespace velk {
namespace {

using test::Hand;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

// Real input, and a real drag of OLE's: no display is needed for either.
class RowDragTest : public test::RowDragFixture {};

TEST_F(RowDragTest, rowDroppedOnAnEditor_arrivesAsACopy)
{
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    EXPECT_EQ(edit->text(), L"sales.place_order");
    EXPECT_THAT(edit->calls, ElementsAre("enter", "over", "drop"));
    EXPECT_THAT(edit->allowed, Each(DWORD{DROPEFFECT_COPY}));
}

TEST_F(RowDragTest, editorOfTheCodePage_getsTheSameText)
{
    edit->format = CF_TEXT;
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    EXPECT_EQ(edit->text(), L"sales.place_order");
}

TEST_F(RowDragTest, editorThatTakesNoText_getsNothing)
{
    edit->format = CF_BITMAP;
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    EXPECT_THAT(edit->calls, ElementsAre("enter", "over", "leave"));
    EXPECT_EQ(edit->text(), L"");
}

TEST_F(RowDragTest, rowWithoutSchema_isItsNameInQuotesWhereItNeedsThem)
{
    Hand::doSteps({begin(1), look(), moveOver(), look(), drop(), look()});
    EXPECT_EQ(edit->text(), L"\"odd name\"");
}

TEST_F(RowDragTest, pressedRow_isSelectedAndStaysSo)
{
    list().selectRow(0);
    Hand::doSteps({begin(1), look(), moveOver(), look(), drop(), look()});
    EXPECT_EQ(list().selectedRow(), 1);
}

TEST_F(RowDragTest, oneOfSeveralSelectedRows_takesAllInTheOrderShown)
{
    add(102, L"sales", L"a_third");
    view->serverDetailsView().sortBy(0);
    list().selectRow(0);
    ListView_SetItemState(list().hwnd(), 2, LVIS_SELECTED, LVIS_SELECTED);
    Hand::doSteps({begin(2), look(), moveOver(), look(), drop(), look()});
    EXPECT_EQ(edit->text(), L"sales.a_third, sales.place_order");
    EXPECT_EQ(view->serverDetailsView().selectedCount(), 2u);
}

TEST_F(RowDragTest, rowBesideTheSelectedOnes_isSelectedAndDraggedAlone)
{
    add(102, L"sales", L"a_third");
    list().selectRow(0);
    ListView_SetItemState(list().hwnd(), 2, LVIS_SELECTED, LVIS_SELECTED);
    Hand::doSteps({begin(1), look(), moveOver(), look(), drop(), look()});
    EXPECT_EQ(edit->text(), L"\"odd name\"");
    EXPECT_EQ(view->serverDetailsView().selectedCount(), 1u);
}

TEST_F(RowDragTest, clickAfterADrag_selectsItsRowAlone)
{
    list().selectRow(0);
    ListView_SetItemState(list().hwnd(), 1, LVIS_SELECTED, LVIS_SELECTED);
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    Hand::doSteps({[this] {
                       Hand::press(placeOf(1));
                       Hand::release(placeOf(1));
                   },
                   look(), look()});
    EXPECT_EQ(list().selectedRow(), 1);
    EXPECT_EQ(view->serverDetailsView().selectedCount(), 1u);
}

TEST_F(RowDragTest, escape_endsTheDragWithoutADrop)
{
    Hand::doSteps({begin(0), look(), moveOver(), look(), [] { Hand::type(VK_ESCAPE); }, look(), drop(), look()});
    EXPECT_EQ(edit->text(), L"");
    EXPECT_THAT(edit->calls, ElementsAre("enter", "over", "leave"));
}

TEST_F(RowDragTest, afterADrag_anotherOneWorks)
{
    Hand::doSteps({begin(0), look(), moveOver(), look(), [] { Hand::type(VK_ESCAPE); }, look(), drop(), look()});
    Hand::doSteps({begin(1), look(), moveOver(), look(), drop(), look()});
    EXPECT_EQ(edit->text(), L"\"odd name\"");
}

TEST_F(RowDragTest, rowsThatGoDuringTheDrag_doItNoHarm)
{
    edit->onOver = [this] { view->serverDetailsView().clear(); };
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    EXPECT_EQ(edit->text(), L"sales.place_order");
}

TEST_F(RowDragTest, rowThatIsRemovedUnderThePress_isNotDragged)
{
    list().selectRow(-1);
    Hand::doSteps({[this] { sayDrag(LVN_BEGINDRAG, 0); }, look()});
    EXPECT_FALSE(wasAsked());
}

TEST_F(RowDragTest, pressBesideTheRows_dragsNothing)
{
    list().selectRow(0);
    sayDrag(LVN_BEGINDRAG, -1);
    EXPECT_FALSE(wasAsked());
}

TEST_F(RowDragTest, rightButton_dragsNothing)
{
    list().selectRow(0);
    sayDrag(LVN_BEGINRDRAG, 0);
    EXPECT_FALSE(wasAsked());
}

TEST_F(RowDragTest, drag_waitsUntilTheListHasToldIt)
{
    list().selectRow(0);
    sayDrag(LVN_BEGINDRAG, 0);
    EXPECT_TRUE(wasAsked());
}

TEST_F(RowDragTest, buttonThatIsUpAgain_beginsNoDrag)
{
    bool hasMouse = true;
    Hand::doSteps({[this] {
                       list().selectRow(0);
                       sayDrag(LVN_BEGINDRAG, 0);
                   },
                   [&] { hasMouse = GetCapture() != nullptr; }, moveOver(), look()});
    EXPECT_FALSE(hasMouse);
    EXPECT_THAT(edit->calls, IsEmpty());
}

TEST_F(RowDragTest, listThatSpeaksOfADragDuringOne_beginsNoOther)
{
    edit->onOver = [this] { sayDrag(LVN_BEGINDRAG, 1); };
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look(), moveOver(), look()});
    EXPECT_EQ(edit->text(), L"sales.place_order");
    EXPECT_THAT(edit->calls, ElementsAre("enter", "over", "drop"));
}

TEST_F(RowDragTest, sessionThatEndsDuringTheDrag_endsIt)
{
    edit->onOver = [] { publishedView().life.enter(SessionState::ended); };
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    EXPECT_THAT(edit->calls, ElementsAre("enter", "over", "leave"));
    EXPECT_EQ(edit->text(), L"");
}

TEST_F(RowDragTest, endedSession_beginsNoDrag)
{
    publishedView().life.enter(SessionState::ended);
    list().selectRow(0);
    sayDrag(LVN_BEGINDRAG, 0);
    EXPECT_FALSE(wasAsked());
}

TEST_F(RowDragTest, sessionThatEndsBeforeTheDragBegins_beginsNone)
{
    Hand::doSteps({[this] {
                       Hand::press(placeOf(0));
                       sayDrag(LVN_BEGINDRAG, 0);
                       publishedView().life.enter(SessionState::ended);
                   },
                   look(), moveOver(), look(), drop(), look()});
    EXPECT_THAT(edit->calls, IsEmpty());
}

TEST_F(RowDragTest, viewThatIsClosedDuringTheDrag_endsItAndGoes)
{
    const std::weak_ptr<svrViewCtl> watched = view;
    const long locks = module::lockCount();
    edit->onOver = [this] { close(); };
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(edit->text(), L"");
    EXPECT_EQ(module::lockCount(), locks);
}

TEST_F(RowDragTest, viewThatIsClosedInsideTheDrop_goesWithTheTextDelivered)
{
    const std::weak_ptr<svrViewCtl> watched = view;
    edit->onDrop = [this] { close(); };
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(edit->text(), L"sales.place_order");
}

TEST_F(RowDragTest, drag_keepsTheModuleAndGivesItFree)
{
    long during = 0;
    const long before = module::lockCount();
    edit->onOver = [&] { during = module::lockCount(); };
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    EXPECT_GT(during, before);
    EXPECT_EQ(module::lockCount(), before);
}

TEST_F(RowDragTest, targetThatHoldsOnToTheText_keepsTheModule)
{
    const long before = module::lockCount();
    edit->keeps = true;
    Hand::doSteps({begin(0), look(), moveOver(), look(), drop(), look()});
    EXPECT_EQ(module::lockCount(), before + 1);
    edit->kept.reset();
    EXPECT_EQ(module::lockCount(), before);
}

TEST_F(RowDragTest, windowsMessage_isOfNoUseWithoutADrag)
{
    SendMessageW(view->hwnd(), RowDrag::message, 0, 0);
    EXPECT_EQ(GetCapture(), nullptr);
}

} // namespace
} // namespace velk
