#include "platform/win32.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// A program that is run once more in another code page must not pass in the usual one unnoticed.
bool isInTheCodePageThatTheRunIsFor()
{
    const char* expected = std::getenv("VELK_EXPECTED_CODE_PAGE");
    if (!expected || std::to_string(GetACP()) == expected)
        return true;
    std::printf("This run is for code page %s, but the process has %u.\n", expected, GetACP());
    return false;
}

} // namespace

// Forms tests create real controls and COM objects, so every test program runs as an apartment with OLE started.
int main(int argc, char** argv)
{
    if (!isInTheCodePageThatTheRunIsFor())
        return 1;
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    testing::InitGoogleMock(&argc, argv);
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
