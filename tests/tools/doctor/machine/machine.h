#pragma once

#include "base/unique_any.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace velk::test {

// What the doctor said of one thing.
struct Line {
    std::string state;
    std::string text;
    std::string whole; // its JSON
};
struct Diagnosis {
    DWORD exitCode = 0;
    std::string output;
    std::map<std::string, Line> lines; // by id
    std::set<std::string> complaints;
};

// A healthy machine: a folder with the add-in, the tool's library and the doctor, all of it registered, installed and
// written down as shipped. A test breaks one thing. What it did to the registry and the environment goes with it.
class DoctorTest : public testing::Test {
protected:
    DoctorTest();
    ~DoctorTest() override;

    static std::wstring folder() { return base() + L"\\a machine"; }
    static std::wstring base();
    static std::wstring addin() { return folder() + L"\\velkviadd.dll"; }
    static std::wstring otherLibrary(); // that is no add-in
    static std::wstring library() { return folder() + L"\\velkvsadd.dll"; }

    // Puts the parts into a folder, and registers what is there.
    static void furnish(const std::wstring& folder);
    static void registerIn(const std::wstring& folder);
    static void unregister();
    static void install(const std::wstring& folder, const std::wstring& version = L"1.0.0");
    // Writes down the add-in's bytes as those that were shipped.
    static void ship(const std::wstring& folder = DoctorTest::folder());

    static void putFile(const std::wstring& from, const std::wstring& to);
    static std::vector<unsigned char> bytesOf(const std::wstring& path);
    static void writeBytes(const std::wstring& path, const std::vector<unsigned char>& bytes);
    // Replaces the first such bytes of a file.
    static void replaceIn(const std::wstring& path, const std::string& bytes, const std::string& others);
    static void make64Bit(const std::wstring& path);

    static void setText(HKEY root, const std::wstring& path, const std::wstring& name, const std::wstring& text);
    static void setRaw(HKEY root, const std::wstring& path, const std::wstring& name, DWORD type,
                       const std::vector<unsigned char>& bytes);
    static void setNumber(HKEY root, const std::wstring& path, const std::wstring& name, DWORD number);
    static void remove(HKEY root, const std::wstring& path);

    // A class of nobody's.
    static constexpr wchar_t anotherClass[] = L"{5C6A2C26-7D47-4C53-9A3B-0E6C3C1F8B11}";

    // Runs the doctor of a folder with more options.
    static Diagnosis diagnose(const std::wstring& options = {}, const std::wstring& folder = DoctorTest::folder());
    // The same in this program, which takes less time: looks anew at all but the add-in's file and the tool's library.
    static Diagnosis look();
    static std::string run(const std::wstring& options, DWORD& exitCode,
                           const std::wstring& folder = DoctorTest::folder());
    // An IDE that has loaded a library ("-": none), and "answers" or "hangs".
    void startIde(const std::wstring& loaded, const std::wstring& manner);

    // All keys and values of the add-in's registration; the same with all other classes of the machine, which takes
    // seconds.
    static std::set<std::wstring> registry();
    static std::set<std::wstring> wholeRegistry();

private:
    static void forgetRegistry();
    unique_kernel_handle m_ide;
};

// Exactly this check complains, and nothing else does.
MATCHER_P(ComplainsOnlyOf, id, "")
{
    *result_listener << arg.output;
    return arg.complaints == std::set<std::string>{id};
}
MATCHER(IsHealthy, "")
{
    *result_listener << arg.output;
    return arg.complaints.empty() && arg.lines.size() > 32 && arg.exitCode == 0;
}

} // namespace velk::test
