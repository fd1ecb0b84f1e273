#include "ui/uiFont.h"

#include "base/error.h"
#include "base/never_destroyed.h"

#include <algorithm>
#include <string_view>

namespace velk {
namespace {

struct FaceRow {
    std::string_view bytes;
    int32_t charset;
};

// The pairing of names and character sets looks crossed, but it is what the tool's own windows use; both sides must
// agree, so it is not put right here.
// clang-format off
constexpr FaceRow faceRows[] = {
    {"\xCB\xCE\xCC\xE5",                                                             136},
    {"\x82\x6C\x82\x72\x20\x82\x6F\x83\x53\x83\x56\x83\x62\x83\x4E",                 128},
    {"\xB7\x73\xB2\xD3\xA9\xFA\xC5\xE9",                                             129},
    {"\xB1\xBC\xB8\xB2",                                                             134},
};
// clang-format on
constexpr int32_t defaultCharset = 1;

bool sameCharacters(std::wstring_view name, std::string_view bytes)
{
    return std::equal(name.begin(), name.end(), bytes.begin(), bytes.end(),
                      [](wchar_t character, char byte) { return character == static_cast<unsigned char>(byte); });
}

} // namespace

UiFont& uiFont()
{
    static never_destroyed<UiFont> settings;
    return settings.get();
}

void forgetUiFont() noexcept
{
    std::wstring().swap(uiFont().name); // and its memory
}

int32_t fontCharset(std::wstring_view name)
{
    for (const FaceRow& row : faceRows)
        if (sameCharacters(name, row.bytes))
            return row.charset;
    return defaultCharset;
}

unique_font makeFont(const UiFont& settings)
{
    if (settings.name.empty()) {
        NONCLIENTMETRICSW metrics{};
        // The size that every Windows from XP on takes; later ones have one more member.
        metrics.cbSize = sizeof metrics;
        throwLastErrorUnless(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0) != FALSE);
        return unique_font(CreateFontIndirectW(&metrics.lfMessageFont));
    }
    const unique_screen_dc screen(GetDC(nullptr));
    const int dpi = GetDeviceCaps(screen.get(), LOGPIXELSY);
    LOGFONTW description{};
    description.lfHeight = -MulDiv(settings.size, dpi, 72);
    description.lfWeight = FW_NORMAL;
    description.lfCharSet = static_cast<BYTE>(settings.charset);
    settings.name.copy(description.lfFaceName, LF_FACESIZE - 1);
    return unique_font(CreateFontIndirectW(&description));
}

} // namespace velk
