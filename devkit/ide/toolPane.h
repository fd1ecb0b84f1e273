#pragma once

#include "base/unique_any.h"
#include "com/com_ptr.h"
#include "window/window.h"

#include <functional>
#include <string>

namespace velk::devkit {

// A docked tool window of the shell: a caption strip above an ActiveX document, which the system's control container
// hosts. Pixels throughout.
class ToolPane : public Window {
public:
    // The parent may be null for a pane that nobody sees.
    ToolPane(HWND parent, std::wstring caption);
    ~ToolPane() override;

    // Creates the document by its ProgID; throws what the container reports.
    void host(const std::wstring& progId);
    com_ptr<IDispatch> document() const { return m_document.tryAs<IDispatch>(); }
    // Offers a message to the document's keyboard handling; true when it was used.
    bool translate(MSG& message) const;
    void focus() const;
    // Lets go of the document and destroys the window.
    void close();

    std::function<void()> onHide; // the user clicked the pane's close box

protected:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    RECT closeBox() const;
    void layOut() const;
    void paint() const;

    const std::wstring m_caption;
    unique_module m_container;
    HWND m_site = nullptr;
    com_ptr<IUnknown> m_document;
};

} // namespace velk::devkit
