#include "platform/win32.h"

#include <gmock/gmock.h>

// Forms tests create real controls and COM objects, so every test program runs as an apartment with OLE started.
int main(int argc, char** argv)
{
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    testing::InitGoogleMock(&argc, argv);
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
