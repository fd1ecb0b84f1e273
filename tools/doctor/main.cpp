// The doctor: lines where it was started from a console or its output goes somewhere, a window otherwise.
#include "base/boundary.h"
#include "base/win32.h"
#include "child.h"
#include "examination.h"
#include "options.h"
#include "output.h"

#include <product.h>
#include <shellapi.h>

namespace velk::doctor {
namespace {

std::vector<std::wstring> arguments()
{
    std::vector<std::wstring> list;
    int count = 0;
    // Not given back: it lives as long as the process.
    wchar_t** const texts = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int index = 1; texts && index < count; ++index)
        list.emplace_back(texts[index]);
    return list;
}

int answer(const Options& options, const Output& output)
{
    if (!options.error.empty()) {
        output.write(L"velkdoctor: " + options.error + L"; --help tells more\r\n");
        return exitUsage;
    }
    if (options.isHelp || options.isVersion) {
        output.write(options.isHelp ? helpText() : std::wstring(L"velkdoctor ") + productVersion + L"\r\n");
        return exitGood;
    }
    const Report report = examine(options);
    output.write(options.isJson ? jsonOf(report)
                                : linesOf(report, options.hasDetails ? Details::ofAll : Details::ofComplaints));
    return exitCodeOf(report);
}

int run(const std::vector<std::wstring>& list)
{
    const Options options = readOptions(list);
    const Output output;
    if (output.isThere() || options.isConsole || options.isJson)
        return answer(options, output);
    const Report report = examine(options);
    MessageBoxW(nullptr, linesOf(report, Details::ofComplaints).c_str(), L"velkdoctor", MB_OK);
    return exitCodeOf(report);
}

} // namespace
} // namespace velk::doctor

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) noexcept
{
    using namespace velk;
    int code = doctor::exitFailed;
    swallow(L"velkdoctor", L"the exit code tells it", [&] {
        const std::vector<std::wstring> list = doctor::arguments();
        if (doctor::isChild(list))
            doctor::beChild(list);
        code = doctor::run(list);
    });
    return code;
}
