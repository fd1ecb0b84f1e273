// Tested in tests/forms/serverview/splitterTest.cpp.
#include "window/twips.h"

#include "base/unique_any.h"

namespace velk {
namespace {

constexpr int twipsPerInch = 1440;

int dotsPerInch() noexcept
{
    const unique_screen_dc screen(GetDC(nullptr));
    return GetDeviceCaps(screen.get(), LOGPIXELSX);
}

} // namespace

int toTwips(int pixels) noexcept
{
    return MulDiv(pixels, twipsPerInch, dotsPerInch());
}

int toPixels(int twips) noexcept
{
    return MulDiv(twips, dotsPerInch(), twipsPerInch);
}

} // namespace velk
