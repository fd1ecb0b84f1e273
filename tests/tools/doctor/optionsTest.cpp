#include "doctor/options.h"

#include "base/win32.h"
#include "doctor/exitCodes.h"

#include <gmock/gmock.h>
#include <shellapi.h>

namespace velk::doctor {
namespace {

using testing::HasSubstr;

TEST(OptionsTest, nothing_isAllDefaults)
{
    const Options options = readOptions({});
    EXPECT_EQ(options.error, L"");
    EXPECT_EQ(options.ide, L"devenv.exe");
    EXPECT_FALSE(options.isIdeNamed || options.isFix || options.isJson || options.isConsole);
    EXPECT_EQ(options.wait, 20u);
}

TEST(OptionsTest, allOfThem_areRead)
{
    const Options options =
        readOptions({L"--json", L"--fix", L"--details", L"--dll", L"C:\\a b.dll", L"--ide", L"x.exe", L"--wait", L"5"});
    EXPECT_EQ(options.error, L"");
    EXPECT_TRUE(options.isJson && options.isFix && options.hasDetails && options.isIdeNamed);
    EXPECT_EQ(options.addin, L"C:\\a b.dll");
    EXPECT_EQ(options.ide, L"x.exe");
    EXPECT_EQ(options.wait, 5u);
}

TEST(OptionsTest, arguments_areReadAsTheOptionsThatTheyWereMadeOf)
{
    Options options;
    options.isFix = options.hasDetails = options.isIdeNamed = true;
    options.addin = L"C:\\a \"b\\\" c\\";
    options.ide = L"an ide.exe";
    options.wait = 7;
    int count = 0;
    wchar_t** const texts = CommandLineToArgvW((L"velkdoctor " + argumentsOf(options)).c_str(), &count);
    const Options read = readOptions({texts + 1, texts + count});
    LocalFree(texts);
    EXPECT_EQ(read.error, L"");
    EXPECT_TRUE(read.isFix && read.hasDetails && read.isIdeNamed);
    EXPECT_FALSE(read.isJson || read.isWindow || read.isContract);
    EXPECT_EQ(read.addin, options.addin);
    EXPECT_EQ(read.ide, options.ide);
    EXPECT_EQ(read.wait, 7u);
}

TEST(OptionsTest, argumentsOfDefaults_nameNoFileAndNoIde)
{
    EXPECT_EQ(argumentsOf({}), L"--wait \"20\" ");
}

TEST(OptionsTest, whatIsNotUnderstood_isTold)
{
    EXPECT_THAT(readOptions({L"--bogus"}).error, HasSubstr(L"--bogus"));
    EXPECT_THAT(readOptions({L"--dll"}).error, HasSubstr(L"--dll needs a value"));
    EXPECT_THAT(readOptions({L"--dll", L""}).error, HasSubstr(L"--dll needs a value"));
    for (const wchar_t* seconds : {L"0", L"ten", L"-1", L"10000", L"99999999999"})
        EXPECT_THAT(readOptions({L"--wait", seconds}).error, HasSubstr(L"--wait")) << seconds;
}

TEST(OptionsTest, help_hasEveryOptionAndExitCode)
{
    const std::wstring text = helpText();
    for (const wchar_t* option : {L"--console", L"--window", L"--json", L"--details", L"--contract", L"--fix", L"--dll",
                                  L"--ide", L"--wait", L"--version", L"--help"})
        EXPECT_THAT(text, HasSubstr(option));
    for (const ExitCodeRow& row : exitCodeRows)
        EXPECT_THAT(text, HasSubstr(row.help));
}

} // namespace
} // namespace velk::doctor
