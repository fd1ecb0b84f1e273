#include "addin/traceSettings.h"

#include "base/boundary.h"
#include "base/trace.h"
#include "base/unique_any.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace velk {
namespace {

constexpr wchar_t keyPath[] = L"Software\\Velk\\velkviadd";
constexpr wchar_t variableName[] = L"VELKVIADD_TRACE";

class TraceSettingsTest : public testing::Test {
protected:
    TraceSettingsTest() { forget(); }
    ~TraceSettingsTest() override
    {
        endTrace();
        forget();
    }
    static void forget()
    {
        SetEnvironmentVariableW(variableName, nullptr);
        RegDeleteKeyW(HKEY_CURRENT_USER, keyPath);
        DeleteFileW(L"value.log");
        DeleteFileW(L"value2");
        DeleteFileW(L"variable.log");
    }
    static void setValue(const std::wstring& text)
    {
        unique_key key;
        RegCreateKeyExW(HKEY_CURRENT_USER, keyPath, 0, nullptr, 0, KEY_WRITE, nullptr, key.put(), nullptr);
        RegSetValueExW(key.get(), L"Trace", 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }
    static bool exists(const wchar_t* file) { return GetFileAttributesW(file) != INVALID_FILE_ATTRIBUTES; }
    static std::string content(const char* file)
    {
        std::ostringstream text;
        text << std::ifstream(file, std::ios::binary).rdbuf();
        return text.str();
    }
};

TEST_F(TraceSettingsTest, neitherVariableNorValue_leavesTheLogOff)
{
    beginTrace();
    EXPECT_FALSE(trace::isOn(trace::Level::failures));
}

TEST_F(TraceSettingsTest, valueTrace_namesTheFile)
{
    setValue(L"value.log");
    beginTrace();
    EXPECT_TRUE(trace::isOn(trace::Level::failures));
    EXPECT_FALSE(trace::isOn(trace::Level::calls));
    EXPECT_NE(content("value.log").find(" velkviadd 1.0.0 in "), std::string::npos);
}

TEST_F(TraceSettingsTest, valueWithTheFinerMark_addsTheCallsToTheSameFile)
{
    setValue(L"value.log;2");
    beginTrace();
    EXPECT_TRUE(trace::isOn(trace::Level::calls));
    EXPECT_TRUE(exists(L"value.log"));
}

TEST_F(TraceSettingsTest, valueThatEndsInTwo_isAFilesNameWithoutAMark)
{
    setValue(L"value2");
    beginTrace();
    EXPECT_TRUE(trace::isOn(trace::Level::failures));
    EXPECT_FALSE(trace::isOn(trace::Level::calls));
    EXPECT_TRUE(exists(L"value2"));
}

TEST_F(TraceSettingsTest, variableAndValue_theVariableCounts)
{
    setValue(L"value.log");
    SetEnvironmentVariableW(variableName, L"variable.log");
    beginTrace();
    EXPECT_TRUE(exists(L"variable.log"));
    EXPECT_FALSE(exists(L"value.log"));
}

TEST_F(TraceSettingsTest, finerMarkAlone_namesNoFile)
{
    setValue(L";2");
    beginTrace();
    EXPECT_FALSE(trace::isOn(trace::Level::failures));
}

TEST_F(TraceSettingsTest, swallowedFailure_isWrittenWithItsNumberAndWhy)
{
    setValue(L"value.log");
    beginTrace();
    swallow(L"a step", L"it serves", [] { throw Error(errorPermissionDenied); });
    EXPECT_NE(content("value.log").find(" a step: 70 (0x800A0046) Permission denied; it serves\r\n"),
              std::string::npos);
}

TEST_F(TraceSettingsTest, failureAfterTheEnd_isWrittenNoMore)
{
    setValue(L"value.log");
    beginTrace();
    endTrace();
    swallow(L"a step", L"it serves", [] { throw Error(errorPermissionDenied); });
    EXPECT_EQ(content("value.log").find("a step"), std::string::npos);
}

} // namespace
} // namespace velk
