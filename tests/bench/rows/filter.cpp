// One key in the filter strip, against painting the list once.
#include "measure.h"
#include "screen.h"

namespace velk::bench {
namespace {

// Shown, filled, and with the strip open.
class FilteredScreen {
public:
    explicit FilteredScreen(int32_t objects) : m_screen(objects)
    {
        m_screen.enterFolder();
        m_screen.fill(objects);
        m_screen.view().filterStrip().show();
        m_edit = m_screen.view().filterStrip().stops().front();
    }
    // The strip's text before a key, with the list painted.
    void write(const wchar_t* text) const
    {
        SetWindowTextW(m_edit, text);
        SendMessageW(m_edit, EM_SETSEL, static_cast<WPARAM>(GetWindowTextLengthW(m_edit)),
                     GetWindowTextLengthW(m_edit));
        paint();
    }
    // Up to the painted list.
    void press(wchar_t character) const
    {
        SendMessageW(m_edit, WM_CHAR, character, 0);
        paint();
    }
    void paint() const { RedrawWindow(m_screen.list(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }

private:
    Screen m_screen;
    HWND m_edit;
};

Outcome keyAfter(int32_t objects, const wchar_t* before, wchar_t key)
{
    const FilteredScreen screen(objects);
    return {runPairs({[&] { screen.write(before); }, [&] { screen.press(key); }},
                     {[&] { screen.write(L""); }, [&] { screen.paint(); }})};
}

// No row has it: each is looked through to its end.
Outcome firstKey(int32_t objects)
{
    return keyAfter(objects, L"", L'z');
}

// All rows have it, in their last cell: each is looked through once more, and the whole list is painted.
Outcome nextKey(int32_t objects)
{
    return keyAfter(objects, L"order", L's');
}

// A wider filter begins anew, with all rows.
Outcome keyBack(int32_t objects)
{
    return keyAfter(objects, L"orders zz", VK_BACK);
}

// clang-format off
constexpr Row rows[] = {
    {"filter",        "ms", 5, true,  "a key after which no row of 100,000 is left", "painting the list once", firstKey},
    {"filter-narrow", "ms", 5, true,  "a key that leaves all rows of 100,000 as they are", "painting the list once", nextKey},
    {"filter-back",   "ms", 5, true,  "a key that takes a character back, and brings none of 100,000 rows", "painting the list once", keyBack},
};
// clang-format on

} // namespace

std::span<const Row> filterRows()
{
    return rows;
}

} // namespace velk::bench
