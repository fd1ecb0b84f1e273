#pragma once

#include "serverview/publishedView.h"
#include "serverview/svrViewCtl.h"
#include "serverview/viewAPIs.h"
#include "support/failureLog.h"
#include "support/fakeBackend.h"

#include <gmock/gmock.h>

namespace velk::test {

// A host window with a real server view in it, of a thousand by four hundred pixels.
class ViewFixture : public testing::Test {
protected:
    ViewFixture()
    {
        backend.numbersAsTexts = true;
        host = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 1200, 600, nullptr, nullptr, nullptr, nullptr);
        view.create(host, {0, 0, 1000, 400});
        view.setupGUI();
    }
    ~ViewFixture() override { DestroyWindow(host); }

    // A project with one connection (handle 10) and its folders (handles 20 to 24), nothing selected.
    void addProject()
    {
        addFolderNode(L"", L"5", L"K1", L"orders", L"True");
        addConnectionNode(L"K1", connection);
        addFolderNode(L"K10", L"7", L"K20", L"Procedures", L"False");
        addFolderNode(L"K10", L"9", L"K21", L"Functions", L"False");
        addFolderNode(L"K10", L"11", L"K22", L"Triggers", L"False");
        addFolderNode(L"K10", L"13", L"K23", L"Tables", L"False");
        addFolderNode(L"K10", L"15", L"K24", L"Views", L"False");
    }
    TreeView& tree() { return view.serverTreeView(); }
    DetailsList& list() { return view.serverDetailsView(); }
    std::wstring imageOf(const std::wstring& key) { return publishedView().ImageList1->keyOf(tree().node(key).image); }
    std::wstring header(int column)
    {
        std::wstring text(64, L'\0');
        LVCOLUMNW asked{};
        asked.mask = LVCF_TEXT;
        asked.pszText = text.data();
        asked.cchTextMax = 64;
        list().view().send(LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&asked));
        return text.c_str();
    }
    // As the control shows it, asked through real messages.
    std::wstring cell(int row, int column)
    {
        std::wstring text(512, L'\0');
        LVITEMW asked{};
        asked.iSubItem = column;
        asked.pszText = text.data();
        asked.cchTextMax = 512;
        list().view().send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&asked));
        return text.c_str();
    }
    std::vector<std::wstring> headers()
    {
        std::vector<std::wstring> texts;
        for (int column = 0; column < list().view().columnCount(); ++column)
            texts.push_back(header(column));
        return texts;
    }
    std::vector<std::wstring> cells(int row)
    {
        std::vector<std::wstring> texts;
        for (int column = 0; column < list().view().columnCount(); ++column)
            texts.push_back(cell(row, column));
        return texts;
    }
    int shownRows() { return static_cast<int>(list().view().send(LVM_GETITEMCOUNT)); }

    FakeBackend backend;
    trzConnection connection{.lHdl = 10, .bConnected = true, .strDatabase = L"ORDERS"};
    HWND host = nullptr;
    svrViewCtl view;
};

} // namespace velk::test
