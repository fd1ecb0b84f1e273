#include "doctorWindow.h"

#include "base/boundary.h"
#include "base/module.h"
#include "files.h"
#include "window/clipboard_text.h"
#include "windowTexts.h"

#include <algorithm>
#include <product.h>
#include <shellapi.h>

namespace velk::doctor {
namespace {

constexpr int iconResource = 117;
constexpr UINT lookMessage = WM_APP;

std::wstring sentenceOf(const Report& report)
{
    std::wstring sentence;
    for (const Mended& mended : report.mended)
        sentence += mended.text + L" ";
    return sentence + lastSentence(report.findings);
}

} // namespace

Options toFix(Options options)
{
    options.isWindow = options.isFix = true;
    if (!options.addin.empty())
        options.addin = fullPath(options.addin);
    return options;
}

DoctorWindow::DoctorWindow(Options options, Examine examine)
    : Window(VELK_OWN_NAME("Doctor"), GetSysColorBrush(COLOR_BTNFACE)), m_options(std::move(options)),
      m_examine(std::move(examine))
{
}

DoctorWindow::~DoctorWindow()
{
    destroy();
}

void DoctorWindow::open()
{
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    const SIZE size = WindowControls::usualSize(m_font);
    const LONG width = std::min(size.cx, screen.right - screen.left);
    const LONG height = std::min(size.cy, screen.bottom - screen.top);
    WindowPlace where;
    where.style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    where.left = screen.left + (screen.right - screen.left - width) / 2;
    where.top = screen.top + (screen.bottom - screen.top - height) / 2;
    where.width = width;
    where.height = height;
    where.caption = windowTexts::caption;
    create(where);
    const HICON icon = LoadIconW(module::instance(), MAKEINTRESOURCEW(iconResource));
    SendMessageW(hwnd(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    m_controls = std::make_unique<WindowControls>(hwnd(), m_font);
    m_controls->layOut();
}

void DoctorWindow::look(bool isFix)
{
    if (m_isBusy)
        return;
    m_isBusy = true;
    m_controls->enableButtons(false, false);
    m_controls->setSentence(windowTexts::looking);
    UpdateWindow(hwnd());
    Options options = m_options;
    options.isFix = isFix;
    const auto failure = attempt([&] { m_report = m_examine(options); });
    m_isBusy = false;
    m_hasFailed = failure.has_value();
    if (m_hasFailed)
        m_report = {};
    if (m_isClosing)
        destroy();
    else if (hwnd())
        showReport(failure ? windowTexts::failed + failure->description() : sentenceOf(m_report));
}

void DoctorWindow::showReport(const std::wstring& sentence)
{
    const auto& findings = m_report.findings;
    m_controls->list.setRowCount(findings.size());
    fitColumns();
    m_controls->enableButtons(true, !remediesOf(findings).empty());
    m_controls->list.redraw();
    // The one that the sentence names.
    const auto worst = std::find_if(findings.begin(), findings.end(), [&](const Finding& finding) {
        return isComplaint(finding.verdict.state) && finding.verdict.state == worstOf(findings);
    });
    m_controls->list.selectRow(worst == findings.end() ? 0 : static_cast<int>(worst - findings.begin()));
    m_controls->setSentence(sentence);
    showDetails();
    SetFocus(m_controls->list.hwnd());
}

// Nothing is cut: what is wider than the window is scrolled to.
void DoctorWindow::fitColumns() const
{
    const ListView& list = m_controls->list;
    for (int column = 0; column < list.columnCount(); ++column) {
        int width = list.widthOf(windowTexts::columns[column]);
        for (int row = 0; row < static_cast<int>(m_report.findings.size()); ++row)
            width = std::max(width, list.widthOf(cell(row, column)));
        list.setColumnWidth(column, width + (column == 0 ? list.pictureWidth() : 0));
    }
}

const Finding* DoctorWindow::findingOf(int row) const noexcept
{
    const bool isThere = row >= 0 && static_cast<size_t>(row) < m_report.findings.size();
    return isThere ? &m_report.findings[static_cast<size_t>(row)] : nullptr;
}

std::wstring DoctorWindow::cell(int row, int column) const
{
    const Finding* finding = findingOf(row);
    if (!finding)
        return {};
    const Verdict& verdict = finding->verdict;
    switch (column) {
    case 0:
        return stateWord(verdict.state);
    case 1:
        return finding->row->title;
    default:
        return verdict.text + (verdict.wayOut.empty() ? L"" : L" " + verdict.wayOut);
    }
}

void DoctorWindow::showDetails()
{
    std::wstring text;
    if (const Finding* finding = findingOf(m_controls->list.selectedRow())) {
        const Verdict& verdict = finding->verdict;
        text = std::wstring(stateWord(verdict.state)) + L": " + finding->row->title + L"\r\n" + verdict.text;
        if (!verdict.wayOut.empty())
            text += L"\r\n" + verdict.wayOut;
        for (const std::wstring& line : verdict.details)
            text += L"\r\n    " + line;
    }
    m_controls->details.setName(text);
}

void DoctorWindow::fix()
{
    const std::vector<Remedy> remedies = remediesOf(m_report.findings);
    const bool needsRights = std::any_of(remedies.begin(), remedies.end(),
                                         [](Remedy remedy) { return remedy != Remedy::removeUsersRegistration; });
    if (!needsRights || m_report.isAdministrator)
        return look(true);
    // The system asks for the rights, and the doctor that gets them shows a window of its own.
    constexpr INT_PTR lastFailure = 32;
    const auto begun = reinterpret_cast<INT_PTR>(ShellExecuteW(
        hwnd(), L"runas", module::path().c_str(), argumentsOf(toFix(m_options)).c_str(), nullptr, SW_SHOWNORMAL));
    if (begun > lastFailure)
        destroy();
}

void DoctorWindow::copy()
{
    if (!putOnClipboard(hwnd(), linesOf(m_report, Details::ofAll)))
        MessageBoxW(hwnd(), windowTexts::clipboardIsHeld, windowTexts::caption, MB_ICONWARNING | MB_OK);
}

void DoctorWindow::onCommand(int command)
{
    switch (command) {
    case WindowControls::cmdFix:
        return fix();
    case WindowControls::cmdCopy:
        return copy();
    case WindowControls::cmdAgain:
        return look(false);
    case WindowControls::cmdClose:
        SendMessageW(hwnd(), WM_CLOSE, 0, 0);
        return;
    default:
        return;
    }
}

void DoctorWindow::onNotify(LPARAM lParam)
{
    NMHDR header; // what the controls send is not aligned always
    memcpy(&header, reinterpret_cast<const void*>(lParam), sizeof header);
    if (!m_controls || header.hwndFrom != m_controls->list.hwnd())
        return;
    if (header.code == LVN_GETDISPINFOW) {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0)
            lstrcpynW(item.pszText, cell(item.iItem, item.iSubItem).c_str(), item.cchTextMax);
        const Finding* finding = findingOf(item.iItem);
        if ((item.mask & LVIF_IMAGE) != 0 && finding)
            item.iImage = static_cast<int>(finding->verdict.state);
    } else if (header.code == LVN_ITEMCHANGED || header.code == LVN_ODSTATECHANGED) {
        showDetails();
    }
}

LRESULT DoctorWindow::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        if (m_controls)
            m_controls->layOut();
        return 0;
    case WM_GETMINMAXINFO: {
        const SIZE least = WindowControls::leastSize(m_font);
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
        return 0;
    }
    case WM_NOTIFY:
        onNotify(lParam);
        return 0;
    case WM_COMMAND:
        onCommand(LOWORD(wParam));
        return 0;
    case lookMessage:
        look(m_options.isFix);
        return 0;
    case WM_CLOSE:
        // What is being looked at comes to its end first.
        m_isClosing = true;
        ShowWindow(hwnd(), SW_HIDE);
        if (!m_isBusy)
            destroy();
        return 0;
    default:
        return handleDefault(message, wParam, lParam);
    }
}

bool DoctorWindow::takesKey(MSG& message)
{
    if (message.message == WM_KEYDOWN && message.wParam == VK_F5) {
        look(false);
        return true;
    }
    // Outside of dialogs an edit of several lines keeps all keys to itself.
    const bool isOfDetails = message.message == WM_KEYDOWN && message.hwnd == m_controls->details.hwnd();
    if (isOfDetails && message.wParam == VK_TAB) {
        SetFocus(GetNextDlgTabItem(hwnd(), message.hwnd, GetKeyState(VK_SHIFT) < 0));
        return true;
    }
    if (isOfDetails && message.wParam == VK_ESCAPE) {
        onCommand(WindowControls::cmdClose);
        return true;
    }
    return IsDialogMessageW(hwnd(), &message) != FALSE;
}

ExitCode DoctorWindow::exitCode() const noexcept
{
    return m_hasFailed ? exitFailed : exitCodeOf(m_report);
}

ExitCode DoctorWindow::run()
{
    open();
    ShowWindow(hwnd(), SW_SHOWNORMAL);
    PostMessageW(hwnd(), lookMessage, 0, 0);
    MSG message{};
    while (hwnd() && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (takesKey(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return exitCode();
}

} // namespace velk::doctor
