// What the file's properties say of the DLL.
#include "dllFixture.h"

#include <vector>

namespace velk {
namespace {

class versionOfTheFile : public test::DllFixture {
protected:
    versionOfTheFile() : m_block(GetFileVersionInfoSizeW(path().c_str(), nullptr))
    {
        GetFileVersionInfoW(path().c_str(), 0, static_cast<DWORD>(m_block.size()), m_block.data());
    }
    const void* value(const std::wstring& name)
    {
        void* found = nullptr;
        UINT length = 0;
        return VerQueryValueW(m_block.data(), name.c_str(), &found, &length) && length != 0 ? found : nullptr;
    }
    std::wstring text(const std::wstring& name)
    {
        const auto* found = static_cast<const wchar_t*>(value(L"\\StringFileInfo\\040904B0\\" + name));
        return found ? found : L"";
    }

private:
    std::vector<std::byte> m_block;
};

struct VersionText {
    const wchar_t* name;
    const wchar_t* text;
};
class versionText : public versionOfTheFile, public testing::WithParamInterface<VersionText> {};

TEST_P(versionText, ofEachName_isTheProducts)
{
    EXPECT_EQ(text(GetParam().name), GetParam().text);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(each, versionText, testing::Values(
    VersionText{L"FileDescription",  L"Velk Development Add-In for Visual Interdev"},
    VersionText{L"FileVersion",      L"1.0.0.0"},
    VersionText{L"InternalName",     L"velkviadd"},
    VersionText{L"OriginalFilename", L"velkviadd.dll"},
    VersionText{L"ProductName",      L"Velk Development Add-In"},
    VersionText{L"ProductVersion",   L"1.0.0.0"}));
// clang-format on

TEST_F(versionOfTheFile, numbers_areOfVersion1)
{
    const auto* numbers = static_cast<const VS_FIXEDFILEINFO*>(value(L"\\"));
    ASSERT_TRUE(numbers);
    EXPECT_EQ(numbers->dwFileVersionMS, 0x10000u);
    EXPECT_EQ(numbers->dwProductVersionMS, 0x10000u);
    EXPECT_EQ(numbers->dwFileVersionLS | numbers->dwProductVersionLS, 0u);
}

} // namespace
} // namespace velk
