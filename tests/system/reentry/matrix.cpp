#include "matrix.h"

#include <sstream>

namespace velk::test {
namespace {

constexpr std::string_view pairMark = "PAIR ";

} // namespace

MatrixRun::MatrixRun()
{
    CopyFileW(VELK_BIN L"/reentry_lives.exe", path(L"reentry_lives.exe").c_str(), FALSE);
    SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL", nullptr);
}

std::vector<std::string> MatrixRun::said() const
{
    std::istringstream text(output);
    std::vector<std::string> result;
    for (std::string line; std::getline(text, line);)
        result.push_back(line);
    return result;
}

std::vector<std::string> MatrixRun::undisturbedLife(const std::wstring& how)
{
    runProgram(L"\"" + path(L"reentry_lives.exe") + L"\" " + how);
    return said();
}

int MatrixRun::runFrom(const std::wstring& file, int number, const std::wstring& beginning,
                       std::vector<std::string>& wrong)
{
    ++processes;
    const DWORD code = runProgram(L"\"" + path(L"reentry_lives.exe") + L"\" run " + file + L" " +
                                  std::to_wstring(number) + L" " + beginning);
    std::string pair; // that is under way
    for (const std::string& line : said()) {
        if (line == "END")
            return -1;
        if (line.starts_with(pairMark)) {
            std::istringstream(line.substr(pairMark.size())) >> number;
            pair = line.substr(line.find(' ', pairMark.size()) + 1);
            ++number;
            ++tried;
            continue;
        }
        if (line == "MISSED")
            missed.push_back(pair);
        else if (line != "OK")
            wrong.push_back(pair + ": " + line);
        pair.clear();
    }
    if (!pair.empty())
        wrong.push_back(pair + ": the program ended with " + std::to_string(code));
    return number;
}

std::vector<std::string> MatrixRun::wrongPairs(const std::wstring& file, const std::wstring& beginning)
{
    std::vector<std::string> wrong;
    for (int number = 0; number >= 0;) {
        const int next = runFrom(file, number, beginning, wrong);
        if (next == number) { // nothing began: no further process would do better
            wrong.push_back("the program does not run: " + output);
            break;
        }
        number = next;
    }
    std::cout << "pairs of a place and what happens there: " << tried << " tried, " << wrong.size() << " wrong, "
              << missed.size() << " not reached, in " << processes << " processes\n";
    return wrong;
}

} // namespace velk::test
