#include "window/dialog_template.h"

#include <string_view>

namespace velk {
namespace {

constexpr wchar_t systemFont[] = L"MS Shell Dlg";

struct KindRow {
    const wchar_t* className;
    DWORD style;
    DWORD extendedStyle;
};

// clang-format off
constexpr KindRow kinds[] = { // in the order of DialogControl
    {L"STATIC",   SS_LEFT,                                                        0},
    {L"EDIT",     WS_TABSTOP | ES_AUTOHSCROLL,                                    WS_EX_CLIENTEDGE},
    {L"EDIT",     WS_TABSTOP | ES_AUTOHSCROLL | ES_PASSWORD,                      WS_EX_CLIENTEDGE},
    {L"COMBOBOX", WS_TABSTOP | CBS_DROPDOWNLIST | WS_VSCROLL,                     0},
    {L"COMBOBOX", WS_TABSTOP | CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL,       0},
    {L"BUTTON",   WS_TABSTOP | BS_PUSHBUTTON,                                     0},
    {L"BUTTON",   WS_TABSTOP | BS_DEFPUSHBUTTON,                                  0},
    {L"BUTTON",   BS_GROUPBOX,                                                    0},
};
// clang-format on

// Writes the template's mixture of 16-bit and 32-bit numbers and texts.
class Writer {
public:
    void word(WORD number) { m_words.push_back(number); }
    void number(DWORD value)
    {
        word(LOWORD(value));
        word(HIWORD(value));
    }
    void place(short left, short top, short width, short height)
    {
        for (const short value : {left, top, width, height})
            word(static_cast<WORD>(value));
    }
    void text(std::wstring_view value)
    {
        for (const wchar_t character : value)
            word(character);
        word(0);
    }
    void align()
    {
        if (m_words.size() % 2 != 0)
            word(0);
    }
    std::vector<WORD> take() { return std::move(m_words); }

private:
    std::vector<WORD> m_words;
};

void writeControl(Writer& writer, const DialogRow& row)
{
    const KindRow& kind = kinds[static_cast<size_t>(row.kind)];
    writer.align();
    writer.number(0); // no help
    writer.number(kind.extendedStyle);
    writer.number(kind.style | WS_CHILD | WS_VISIBLE);
    writer.place(row.left, row.top, row.width, row.height);
    writer.number(static_cast<DWORD>(row.id));
    writer.text(kind.className);
    writer.text(L"");
    writer.word(0); // no creation data
}

} // namespace

std::vector<WORD> dialogTemplate(const DialogLayout& layout, const DialogFont& font)
{
    constexpr DWORD style = DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU;
    Writer writer;
    writer.word(1); // the extended form
    writer.word(0xFFFF);
    writer.number(0); // no help
    writer.number(0); // no extended style
    writer.number(style);
    writer.word(static_cast<WORD>(layout.rows.size()));
    writer.place(0, 0, layout.width, layout.height);
    writer.word(0); // no menu
    writer.word(0); // the system's dialog class
    writer.text(L"");
    writer.word(static_cast<WORD>(font.size));
    writer.word(FW_NORMAL);
    writer.word(static_cast<WORD>((font.charset & 0xFF) << 8)); // not italic; the character set
    writer.text(font.name.empty() ? std::wstring_view(systemFont) : std::wstring_view(font.name));
    for (const DialogRow& row : layout.rows)
        writeControl(writer, row);
    return writer.take();
}

} // namespace velk
