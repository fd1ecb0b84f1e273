#include "devkit/ide/addInFault.h"

#include "base/unique_any.h"

#include <gmock/gmock.h>

namespace velk::devkit {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

std::string faultAt(void* address, DWORD code = EXCEPTION_ACCESS_VIOLATION)
{
    EXCEPTION_RECORD raised{};
    raised.ExceptionCode = code;
    raised.ExceptionAddress = address;
    const std::wstring text = addInFault(raised);
    return std::string(text.begin(), text.end());
}

// A library of that name, whatever is in it.
class AddInFaultTest : public testing::Test {
protected:
    AddInFaultTest()
    {
        wchar_t system[MAX_PATH] = L"";
        GetSystemDirectoryW(system, MAX_PATH);
        CopyFileW((std::wstring(system) + L"\\version.dll").c_str(), L"velkviadd.dll", FALSE);
        m_library.reset(LoadLibraryW(L".\\velkviadd.dll"));
    }
    ~AddInFaultTest() override
    {
        m_library.reset();
        DeleteFileW(L"velkviadd.dll");
    }
    unsigned char* inside() { return reinterpret_cast<unsigned char*>(m_library.get()) + 0x12; }

private:
    unique_module m_library;
};

TEST_F(AddInFaultTest, addIn_isNamedWithTheOffset)
{
    EXPECT_EQ(faultAt(inside()), "fault C0000005 in velkviadd.dll+12");
    EXPECT_EQ(faultAt(inside(), EXCEPTION_ILLEGAL_INSTRUCTION), "fault C000001D in velkviadd.dll+12");
}

TEST_F(AddInFaultTest, codeThatIsNotThereAnyMore_isAFault)
{
    EXPECT_THAT(faultAt(reinterpret_cast<void*>(0x20)), HasSubstr("in code of nobody, at 00000020"));
}

TEST_F(AddInFaultTest, otherModule_mayFail)
{
    EXPECT_THAT(faultAt(reinterpret_cast<void*>(GetModuleHandleW(nullptr))), IsEmpty());
}

TEST_F(AddInFaultTest, languageException_isNoFault)
{
    EXPECT_THAT(faultAt(inside(), 0x20474343), IsEmpty());
}

} // namespace
} // namespace velk::devkit
