#include "serverview/systemLook.h"

#include "serverview/pictures.h"
#include "ui/uiFont.h"

namespace velk {
namespace {

constexpr COLORREF pictureMask = RGB(255, 0, 255); // what of the pictures is not to be seen

} // namespace

void SystemLook::setPictures(int smallIconWidth)
{
    const PictureStrip& strip = pictureStripFor(smallIconWidth);
    if (strip.size == m_pictureSize)
        return;
    ImageList images(strip.resource, strip.size, pictureMask, imageKeys());
    m_parts.list().setImages(images.get());
    m_parts.serverTreeView->setImages(images.get());
    // Those before go last, and their place stays: whoever names a picture by its key looks there.
    if (m_images)
        *m_images = std::move(images);
    else
        m_images = std::make_unique<ImageList>(std::move(images));
    m_pictureSize = strip.size;
}

void SystemLook::setFont()
{
    unique_font font = makeFont(uiFont());
    m_parts.serverTreeView->setFont(font.get());
    m_parts.serverDetailsView->setFont(font.get());
    if (m_parts.filterStrip)
        m_parts.filterStrip->setFont(font.get());
    m_font = std::move(font);
}

void SystemLook::follow(HWND view, UINT message, WPARAM wParam, LPARAM lParam)
{
    handOn(view, message, wParam, lParam);
    if (!m_parts.serverTreeView || !m_parts.serverDetailsView)
        return;
    if (message == WM_SETTINGCHANGE)
        setPictures(GetSystemMetrics(SM_CXSMICON));
    else
        followColours(m_parts.list());
    // With the font all that is drawn by its measure is made anew, in the colours of now.
    if (m_font)
        setFont();
}

} // namespace velk
