#include "checker/files.h"
#include "checker/options.h"
#include "checker/texts.h"

#include "base/win32.h"

#include <cstdio>
#include <exception>
#include <shellapi.h>
#include <vector>

namespace {

using namespace velk::check;

enum ExitCode { exitHolds = 0, exitBroken = 1, exitWrongUse = 2, exitFailed = 3 };

std::vector<std::wstring> arguments()
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> all(words + 1, words + count);
    LocalFree(words);
    return all;
}

int check(const Options& options)
{
    const Report report = checkLibrary(options.request, [&](const std::string& line) {
        if (!options.isQuiet)
            std::fprintf(stderr, "%s\n", line.c_str());
    });
    std::fputs((options.isJson ? asJson(report) : asText(report)).c_str(), stdout);
    if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
        std::fputs("velkcheck: the report cannot be written\n", stderr);
        return exitFailed;
    }
    if (!options.junit.empty() && !writeFile(options.junit, asJunit(report))) {
        std::fprintf(stderr, "velkcheck: %s cannot be written\n", toUtf8(options.junit).c_str());
        return exitFailed;
    }
    if (report.outcome() == Outcome::broken)
        return exitBroken;
    return report.hasFailed ? exitFailed : exitHolds;
}

int run()
{
    const Options options = optionsOf(arguments());
    if (!options.trouble.empty()) {
        std::fprintf(stderr, "velkcheck: %s\n\n%s", options.trouble.c_str(), helpText());
        return exitWrongUse;
    }
    if (options.isHelp || options.isList) {
        std::fputs(options.isHelp ? helpText() : ruleList().c_str(), stdout);
        return exitHolds;
    }
    for (const std::wstring& file : {options.request.library, options.request.project})
        if (!file.empty() && !isFile(wholePath(file))) {
            std::fprintf(stderr, "velkcheck: there is no file %s\n", toUtf8(file).c_str());
            return exitWrongUse;
        }
    return check(options);
}

} // namespace

int main()
{
    if (const auto code = velk::check::runAsChild())
        return *code;
    try {
        return run();
    } catch (const std::exception& trouble) {
        std::fprintf(stderr, "velkcheck: %s\n", trouble.what());
        return exitFailed;
    }
}
