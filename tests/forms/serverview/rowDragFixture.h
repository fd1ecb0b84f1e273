#pragma once

#include "base/module.h"
#include "serverview/publishedView.h"
#include "serverview/svrViewCtl.h"
#include "serverview/viewAPIs.h"
#include "support/dropTarget.h"
#include "support/fakeBackend.h"

#include <gmock/gmock.h>

namespace velk::test {

// The mouse of a user, and what happens while OLE works off the messages of a drag.
class Hand {
public:
    using Step = std::function<void()>;
    // Carries out the steps one after the other, each when the thread has come to wait for messages, and works off
    // messages until all are done.
    static void doSteps(std::vector<Step> steps)
    {
        Hand hand(std::move(steps));
        running() = &hand;
        const UINT_PTR timer = SetTimer(nullptr, 0, 10, next);
        MSG message{};
        while (hand.m_next < hand.m_steps.size() && GetMessageW(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        KillTimer(nullptr, timer);
        running() = nullptr;
    }
    static void move(POINT place) { send(place, MOUSEEVENTF_MOVE); }
    static void press(POINT place) { send(place, MOUSEEVENTF_MOVE | MOUSEEVENTF_LEFTDOWN); }
    static void release(POINT place) { send(place, MOUSEEVENTF_MOVE | MOUSEEVENTF_LEFTUP); }
    static void type(WORD key)
    {
        INPUT inputs[2]{};
        inputs[0].type = inputs[1].type = INPUT_KEYBOARD;
        inputs[0].ki.wVk = inputs[1].ki.wVk = key;
        inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
        SendInput(2, inputs, sizeof(INPUT));
    }

private:
    explicit Hand(std::vector<Step> steps) : m_steps(std::move(steps)) {}
    static Hand*& running()
    {
        static Hand* hand = nullptr;
        return hand;
    }
    static void CALLBACK next(HWND, UINT, UINT_PTR, DWORD) noexcept
    {
        if (Hand* const hand = running(); hand && hand->m_next < hand->m_steps.size())
            hand->m_steps[hand->m_next++]();
    }
    static LONG absolute(LONG pixel, int metric)
    {
        const LONG extent = GetSystemMetrics(metric);
        return (pixel * 65536 + extent / 2) / extent;
    }
    static void send(POINT place, DWORD flags)
    {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dx = absolute(place.x, SM_CXSCREEN);
        input.mi.dy = absolute(place.y, SM_CYSCREEN);
        input.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE;
        SendInput(1, &input, sizeof input);
    }

    std::vector<Step> m_steps;
    size_t m_next = 0;
};

// A shown view with the procedures sales.place_order and, of no schema, "odd name"; and an editor above its tree.
class RowDragFixture : public testing::Test {
protected:
    RowDragFixture()
    {
        backend.numbersAsTexts = true;
        host = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 700, 400, nullptr, nullptr, nullptr,
                               nullptr);
        view->create(host, {0, 0, 700, 400});
        view->setupGUI();
        addFolderNode(L"", L"5", L"K1", L"orders", L"True");
        addConnectionNode(L"K1", {.lHdl = 10, .bConnected = true, .strDatabase = L"ORDERS"});
        addFolderNode(L"K10", L"7", L"K20", L"Procedures", L"False");
        view->serverTreeView().select(L"K20");
        add(100, L"sales", L"place_order");
        add(101, L"", L"odd name");
        edit.emplace(RECT{20, 200, 120, 260});
    }
    ~RowDragFixture() override
    {
        edit.reset();
        close();
        Hand::move({0, 0});
    }
    static void add(int32_t handle, const std::wstring& schema, const std::wstring& name)
    {
        trzProcedure procedure{};
        procedure.lHdl = handle;
        procedure.strSchema = schema;
        procedure.strName = name;
        addProcedureRow(procedure);
    }
    // As a document does that is closed.
    void close()
    {
        DestroyWindow(std::exchange(host, nullptr));
        view.reset();
    }
    ListView& list() { return view->serverDetailsView().view(); }
    POINT placeOf(int row)
    {
        const RECT text = list().placeOf(row);
        POINT place{text.left + 4, (text.top + text.bottom) / 2};
        ClientToScreen(list().hwnd(), &place);
        return place;
    }
    // What the list says to its parent.
    void sayDrag(UINT code, int row)
    {
        NMLISTVIEW said{};
        said.hdr = {list().hwnd(), 0, code};
        said.iItem = row;
        SendMessageW(view->hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&said));
    }
    // Whether a drag waits for being carried out; it is not, then.
    bool wasAsked()
    {
        MSG message{};
        return PeekMessageW(&message, view->hwnd(), RowDrag::message, RowDrag::message, PM_REMOVE) != FALSE;
    }
    // The press and the first moves, by which the list sees that it is a drag.
    Hand::Step begin(int row)
    {
        return [this, row] {
            const POINT from = placeOf(row);
            Hand::press(from);
            for (const int pixels : {2, 20, 40})
                Hand::move({from.x + pixels, from.y});
        };
    }
    Hand::Step moveOver()
    {
        return [this] { Hand::move(edit->middle()); };
    }
    Hand::Step drop()
    {
        return [this] { Hand::release(edit->middle()); };
    }
    static Hand::Step look()
    {
        return [] {};
    }

    FakeBackend backend;
    HWND host = nullptr;
    std::shared_ptr<svrViewCtl> view = std::make_shared<svrViewCtl>();
    std::optional<DropEdit> edit;
};

} // namespace velk::test
