// What texts from outside may do to the units that read them: nothing but their answer, or the error they are known by.
// Built by scripts/fuzz; the first byte of a case says which unit reads the rest.
#include "addin/rzFileName.h"
#include "addin/traceTarget.h"
#include "backend/ansi.h"
#include "base/decimal.h"
#include "base/error.h"
#include "base/paths.h"
#include "base/text.h"
#include "notify/promptLook.h"
#include "serverview/columnLooks.h"
#include "serverview/objectKeys.h"
#include "serverview/viewMemory.h"
#include "window/send_keys.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

namespace velk {
namespace {

void demand(bool holds)
{
    if (!holds)
        std::abort();
}

// The digits, sign and exponent of a number, and nothing else: then it is what the run-time's own reader says.
void readsNumber(const std::wstring& text)
{
    const double number = leadingNumber(text);
    demand(!std::isnan(number));
    const std::string plain(text.begin(), text.end());
    if (text.empty() || text.size() > 300 || text.find_first_not_of(L"0123456789") != std::wstring::npos)
        return;
    demand(number == std::strtod(plain.c_str(), nullptr));
}

void rounds(const std::wstring& text)
{
    double number = 0;
    std::memcpy(&number, text.data(), std::min(sizeof number, text.size() * sizeof(wchar_t)));
    try {
        demand(std::abs(roundToLong(number) - number) <= 0.5);
    } catch (const Error& error) {
        demand(error.number() == errorOverflow && !(std::abs(number) < 2147483647.0));
    }
}

void readsDecimal(const std::wstring& text)
{
    std::string digits;
    for (const wchar_t character : text)
        digits += static_cast<char>('0' + static_cast<unsigned>(character) % 10);
    const int64_t exponent = text.empty() ? 0 : static_cast<int64_t>(text[0]) * 3 - 350;
    const std::string whole = (digits.empty() ? "0" : digits) + "e" + std::to_string(exponent);
    demand(nearestDouble(digits, exponent) == std::strtod(whole.c_str(), nullptr));
}

void partsPath(const std::wstring& path)
{
    const DriveAndRest halves = splitDrive(path);
    demand(halves.drive + halves.rest == path);
    const PathParts parts = splitPath(path);
    demand(parts.drive == halves.drive);
    demand(parts.file.empty() || !parts.directory.empty()); // a first backslash belongs to what follows it
    const bool isParted = parts.directory.size() < halves.rest.size();
    demand(parts.drive + parts.directory + (isParted ? L"\\" : L"") + parts.file == path);
    demand(fileNameOf(path).find(L'\\') == std::wstring::npos);
    demand(path.starts_with(parentDir(path)));
    demand(parentDir(path).size() + fileNameOf(path).size() <= path.size());
    demand(!isFullyQualified(path) || path.size() > 2);
}

void namesProject(const std::wstring& text)
{
    const size_t half = text.size() / 2;
    const std::wstring solution = text.substr(0, half);
    const std::wstring name = defaultRZFileName(solution, text.substr(half));
    demand(name.ends_with(L".rzv") && name.find(L"\\rz\\") != std::wstring::npos);
}

void readsKeys(const std::wstring& text)
{
    try {
        const size_t strokes = parseKeys(text).size();
        const bool isPlain = text.find_first_of(L"+^%~(){}") == std::wstring::npos;
        demand(!isPlain || strokes == text.size());
    } catch (const Error& error) {
        demand(error.number() == errorInvalidCall);
    }
}

// Half of the cases are made of the words that mean something, which a fuzzer seldom finds.
void readsPrompt(const std::wstring& text)
{
    constexpr const wchar_t* words[] = {L"#",   L"IDE_CRITICAL", L"IDE_WARNING", L"IDE_QUESTION",
                                        L"672", L"67",           L"1",           L"\0"};
    std::wstring buttons;
    for (const wchar_t character : text)
        buttons += character < 128 ? std::wstring(1, character) : words[character % std::size(words)];
    try {
        const std::vector<std::wstring> fields = splitButtons(buttons);
        std::wstring together;
        for (const std::wstring& field : fields)
            together += field + L"#";
        together.pop_back();
        demand(together == buttons && fields.size() <= 5);
        const PromptLook look = promptLook(buttons);
        demand((look.style & ~static_cast<unsigned>(MB_TYPEMASK | MB_ICONMASK)) == 0);
        demand(look.title == (fields.size() == 3 ? fields[2] : L""));
    } catch (const Error& error) {
        demand(error.number() == errorSubscript && std::count(buttons.begin(), buttons.end(), L'#') >= 5);
    }
}

void readsObjectKey(const std::wstring& text)
{
    for (const std::wstring& key : {text, L"K" + text})
        try {
            const int32_t handle = keyToHandle(key);
            demand(key[0] == L'K' && keyToHandle(makeKey(handle)) == handle && kindOfTag(kindTag(handle)) == handle);
        } catch (const Error& error) {
            demand(error.number() == errorOverflow || (error.number() == errorTypeMismatch && !key.starts_with(L'K')));
        }
}

void readsTag(const std::wstring& text)
{
    const std::wstring file = fileOfTag(text);
    demand(text.find(L'#') == std::wstring::npos ? file.empty() : text.ends_with(L'#' + file));
    demand(fileOfTag(L"True#" + text) == text);
    const TraceTarget target = traceTarget(text);
    demand(target.path + (target.isFiner ? L";2" : L"") == text);
    demand(traceTarget(text + L";2").path == text);
}

// The short way by ASCII and the first NUL gives what converting everything and cutting gives.
void readsMessageText(const std::wstring& text)
{
    const std::string bytes(text.begin(), text.end());
    const std::vector<char> exactly(bytes.begin(), bytes.end()); // no byte behind it
    std::wstring whole = ansi::wideOf(exactly);
    const bool hasNul = whole.find(L'\0') != std::wstring::npos;
    ansi::trimAtNull(whole);
    std::wstring read = L"what was there";
    demand(ansi::readBeforeNul(read, exactly) == hasNul && read == whole);
    demand(ansi::lengthOf(whole, CP_ACP) <= bytes.size());
    const ansi::CountedText counted(whole);
    demand(ansi::wideOf(counted.bytes()) == whole && !ansi::isOverrun(counted.bytes()));
}

// What can be read of a text is within bounds, and is read again from the text that it is kept as.
void readsColumns(const std::wstring& text)
{
    constexpr size_t most = 9;
    const size_t columns = text.empty() ? 0 : static_cast<size_t>(text[0]) % (most + 1);
    const ColumnLooks looks = columnLooksOf(text, columns);
    demand(looks.widths.size() == columns);
    demand(columnLooksOf(keptTextOf(looks), columns) == looks);
    const std::vector<size_t> shown = looks.shown();
    demand(columns == 0 || (!shown.empty() && shown.front() == 0));
    demand(looks.shownPlaces().size() == shown.size());
    demand(!looks.order.column || *looks.order.column < columns);
}

void readsView(const std::wstring& text)
{
    const std::optional<int> width = treeWidthOf(text);
    demand(!width || (*width >= 0 && treeWidthOf(keptTreeWidth(*width)) == width));
    demand(!flagOf(text) || keptFlag(*flagOf(text)).size() <= text.size());
    const std::optional<ProjectView> view = projectViewOf(text);
    demand(!view || projectViewOf(keptTextOf(*view)) == view);
    demand(!view || keptTextOf(*view).size() <= longestKeptText);
}

constexpr void (*units[])(const std::wstring&) = {
    readsNumber, rounds,         readsDecimal, partsPath,        namesProject, readsKeys,
    readsPrompt, readsObjectKey, readsTag,     readsMessageText, readsColumns, readsView,
};

} // namespace
} // namespace velk

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > 0)
        velk::units[data[0] % std::size(velk::units)](std::wstring(data + 1, data + size));
    return 0;
}
