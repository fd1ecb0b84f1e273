#include "logLines.h"

#include "files.h"
#include "utf8.h"

#include <algorithm>

namespace velk::doctor {
namespace {

constexpr size_t wholeLog = 2 * 1024 * 1024; // the add-in begins it anew before that
constexpr std::wstring_view membersBegin = L"host members: ";
constexpr std::wstring_view barsBegin = L"host bars: ";
constexpr std::wstring_view reportBegin = L"host members: DTE ";

// A line without the time that it begins with; nothing of one that does not.
std::wstring wordsOf(const std::wstring& line)
{
    constexpr std::wstring_view time = L"0000-00-00 00:00:00.000 ";
    const auto fits = [](wchar_t mark, wchar_t character) {
        return mark == L'0' ? character >= L'0' && character <= L'9' : character == mark;
    };
    return line.size() >= time.size() && std::equal(time.begin(), time.end(), line.begin(), fits)
               ? line.substr(time.size())
               : std::wstring();
}

} // namespace

std::vector<std::wstring> logLines(const std::wstring& path, size_t mostBytes)
{
    std::vector<unsigned char> bytes;
    readBytes(path, mostBytes + 1, Part::end, bytes);
    // The rest of a line whose beginning is left out is none.
    const auto lineEnd = std::find(bytes.begin(), bytes.end(), '\n');
    if (bytes.size() > mostBytes)
        bytes.erase(bytes.begin(), lineEnd == bytes.end() ? lineEnd : lineEnd + 1);
    const std::wstring text = fromUtf8({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    std::vector<std::wstring> lines;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find(L'\n', begin), text.size());
        std::wstring line = text.substr(begin, end - begin);
        begin = end + 1;
        if (line.ends_with(L'\r'))
            line.pop_back();
        lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<std::wstring> lastReportOfHost(const std::wstring& path)
{
    std::vector<std::wstring> report;
    for (const std::wstring& file : {path + L".old", path})
        for (const std::wstring& line : logLines(file, wholeLog)) {
            const std::wstring words = wordsOf(line);
            if (!words.starts_with(membersBegin) && !words.starts_with(barsBegin))
                continue;
            if (words.starts_with(reportBegin))
                report.clear();
            report.push_back(words);
        }
    return report;
}

} // namespace velk::doctor
