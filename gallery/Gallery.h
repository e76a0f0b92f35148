// The gallery's main window: a ribbon at the top, the list of pages at the left, the page shown beside it,
// and below that the last lines of what its controls reported.
#pragma once

#include <gallery/CommandBar.h>
#include <gallery/Options.h>
#include <gallery/PageList.h>
#include <gallery/PageWindow.h>
#include <gallery/Pages.h>

namespace gallery {

class Gallery
{
public:
    explicit Gallery(Options options) : m_options(std::move(options)) {}
    ~Gallery();
    Gallery(const Gallery&) = delete;
    Gallery& operator=(const Gallery&) = delete;

    // Makes the window with its first page. False where that failed.
    bool Create();
    HWND Window() const { return m_hwnd; }
    // Runs until the window is closed.
    int Run();
    // Shows each page in turn and saves its picture and those of its dialogs, printing the paths. False if
    // one could not be saved.
    bool SavePictures();

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnActivate(bool fActive);
    LRESULT OnSetFocus();
    LRESULT OnCommand(UINT uId, LPARAM lParam);
    LRESULT OnNotify(const NMHDR& header);
    LRESULT OnSize();

    bool IsForDialogs(MSG& msg) const;
    static LRESULT CALLBACK OnMessageTaken(int nCode, WPARAM wParam, LPARAM lParam);
    void OnKeyDown(UINT uKey);
    bool IsOfPagesRibbon(HWND hwnd) const;
    void ShowCues() const;
    void OnRibbon(UINT uId, bool fChecked);
    void OnLook(UINT uId);
    void SetScheme(gesso::ColorScheme scheme);
    void SetSizeOfAll(int nDots);
    void SetDirection(bool fMirrored);
    LRESULT OnDpiChanged(int nDots, const RECT& rc);
    LRESULT OnDialogIdle(HWND hDlg);
    LRESULT OnSystemChange(UINT uMsg, WPARAM wParam, LPARAM lParam);
    void OnSchemeChange();
    void SetSize(int cx, int cy) const;

    void ShowPage(int nPage);
    RECT PageRect() const;
    std::vector<Part> Parts() const;
    bool SaveExhibits();
    void WriteLayoutFile() const;
    void AddLine(const std::wstring& line);

    Options m_options;
    Report m_report;
    HWND m_hwnd = nullptr;
    HWND m_hwndLastFocus = nullptr;
    RECT m_rcGiven{};   // at the last change of the dots
    RECT m_rcAtFirst{}; // what it was made from, at 96 dots an inch
    HHOOK m_hHook = nullptr;
    bool m_fCues = false;    // as the ribbon's check box says
    bool m_fClassic = false; // so is the page
    bool m_fReport = true;
    int m_nPage = 0;
    CommandBar m_commands;
    PageList m_pages;
    GLabel m_lastLines;
    std::unique_ptr<PageWindow> m_page;
};

} // namespace gallery
