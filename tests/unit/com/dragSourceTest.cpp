#include "com/drag_source.h"

#include "base/error.h"
#include "base/module.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

// As OLE asks a source, step by step.
class DropSourceTest : public testing::Test {
protected:
    const Session life;
    const com_ptr<IDropSource> source = makeDropSource(life);
};

TEST_F(DropSourceTest, heldLeftButton_goesOn)
{
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_LBUTTON), S_OK);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_LBUTTON | MK_CONTROL | MK_RBUTTON), S_OK);
}

TEST_F(DropSourceTest, releasedLeftButton_drops)
{
    EXPECT_EQ(source->QueryContinueDrag(FALSE, 0), DRAGDROP_S_DROP);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_RBUTTON | MK_SHIFT), DRAGDROP_S_DROP);
}

TEST_F(DropSourceTest, escape_cancelsWhateverTheButton)
{
    EXPECT_EQ(source->QueryContinueDrag(TRUE, MK_LBUTTON), DRAGDROP_S_CANCEL);
    EXPECT_EQ(source->QueryContinueDrag(TRUE, 0), DRAGDROP_S_CANCEL);
}

TEST_F(DropSourceTest, endedSession_cancels)
{
    life.enter(SessionState::ending);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_LBUTTON), DRAGDROP_S_CANCEL);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, 0), DRAGDROP_S_CANCEL);
}

TEST_F(DropSourceTest, pointers_areTheSystems)
{
    EXPECT_EQ(source->GiveFeedback(DROPEFFECT_COPY), DRAGDROP_S_USEDEFAULTCURSORS);
    EXPECT_EQ(source->GiveFeedback(DROPEFFECT_NONE), DRAGDROP_S_USEDEFAULTCURSORS);
}

TEST_F(DropSourceTest, otherInterfaces_areNot)
{
    EXPECT_FALSE(source.tryAs<IDataObject>());
    EXPECT_TRUE(source.tryAs<IUnknown>());
}

TEST_F(DropSourceTest, source_keepsTheModule)
{
    const long before = module::lockCount();
    com_ptr<IDropSource> other = makeDropSource(life);
    EXPECT_EQ(module::lockCount(), before + 1);
    other.reset();
    EXPECT_EQ(module::lockCount(), before);
}

// A timer asks OLE to look at the mouse, so that a drag of a session that is over ends at once.
class DragTextTest : public testing::Test {
protected:
    DragTextTest() : m_timer(SetTimer(nullptr, 0, 10, &DragTextTest::nudge)) {}
    ~DragTextTest() override { KillTimer(nullptr, m_timer); }
    static Session ended()
    {
        const Session session;
        session.enter(SessionState::ended);
        return session;
    }

private:
    static void CALLBACK nudge(HWND, UINT, UINT_PTR, DWORD) noexcept
    {
        if (const HWND tracker = GetCapture())
            PostMessageW(tracker, WM_MOUSEMOVE, 0, 0);
    }
    const UINT_PTR m_timer;
};

TEST_F(DragTextTest, cancelledDrag_wasTakenByNobody)
{
    EXPECT_FALSE(dragText(L"a", ended()));
}

TEST_F(DragTextTest, dropWhereNobodyTakesIt_saysSo)
{
    EXPECT_FALSE(dragText(L"a", Session()));
}

TEST_F(DragTextTest, threadWithoutOle_hasNoneAfterwardsEither)
{
    OleUninitialize();
    EXPECT_FALSE(dragText(L"a", ended()));
    EXPECT_EQ(CoInitialize(nullptr), S_OK); // the first use
    CoUninitialize();
    OleInitialize(nullptr);
}

TEST_F(DragTextTest, threadOfTheOtherApartment_isAnError)
{
    OleUninitialize();
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    EXPECT_THROW(dragText(L"a", ended()), Error);
    CoUninitialize();
    OleInitialize(nullptr);
    EXPECT_FALSE(dragText(L"a", ended()));
}

} // namespace
} // namespace velk
