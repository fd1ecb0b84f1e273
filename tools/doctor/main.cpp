// The doctor: lines where it was started from a console or its output goes somewhere, a window otherwise.
// Tested in tests/tools/doctor/machine/programTest.cpp.
#include "base/boundary.h"
#include "base/win32.h"
#include "checker/child.h"
#include "child.h"
#include "doctorWindow.h"
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

// What needs no look at the machine; empty when that is wanted.
std::wstring textOf(const Options& options)
{
    if (!options.error.empty())
        return L"velkdoctor: " + options.error + L"; --help tells more\r\n";
    if (options.isHelp)
        return helpText();
    return options.isVersion ? std::wstring(L"velkdoctor ") + productVersion + L"\r\n" : std::wstring();
}

int answer(const Options& options, const Output& output)
{
    if (const std::wstring text = textOf(options); !text.empty()) {
        output.write(text);
        return options.error.empty() ? exitGood : exitUsage;
    }
    const Report report = examine(options);
    output.write(options.isJson ? jsonOf(report)
                                : linesOf(report, options.hasDetails ? Details::ofAll : Details::ofComplaints));
    return exitCodeOf(report);
}

int run(const std::vector<std::wstring>& list)
{
    const Options options = readOptions(list);
    const bool wantsLines =
        options.isConsole || options.isJson || options.isHelp || options.isVersion || !options.error.empty();
    if (!options.isWindow || wantsLines) {
        const Output output;
        if (output.isThere() || options.isConsole || options.isJson)
            return answer(options, output);
    }
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    if (wantsLines) {
        MessageBoxW(nullptr, textOf(options).c_str(), L"velkdoctor", MB_OK);
        return options.error.empty() ? exitGood : exitUsage;
    }
    return DoctorWindow(options, examine).run();
}

} // namespace
} // namespace velk::doctor

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) noexcept
{
    using namespace velk;
    int code = doctor::exitFailed;
    swallow(L"velkdoctor", L"the exit code tells it", [&] {
        // The checker of the contract starts this program once more, too.
        if (const auto done = check::runAsChild()) {
            code = *done;
            return;
        }
        const std::vector<std::wstring> list = doctor::arguments();
        if (doctor::isChild(list))
            doctor::beChild(list);
        code = doctor::run(list);
    });
    return code;
}
