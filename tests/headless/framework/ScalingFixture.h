// What the tests of scaling share: a host with its own dots an inch, and what a paint shows, read from its
// record.
#pragma once

#include "../../support/Host.h"
#include "../FreshDesktop.h"

#include <gesso/framework/Metrics.h>
#include <gesso/framework/WindowDpi.h>

#include <regex>

namespace test {

constexpr int ALL_DPI[] = {96, 120, 144, 192, 288};
constexpr UINT END = static_cast<UINT>(-1); // where items are inserted

class ScalingFixture
{
public:
    ScalingFixture() = default;
    ~ScalingFixture() { gesso::SetScaling(gesso::Scaling::None); }
    ScalingFixture(const ScalingFixture&) = delete;
    ScalingFixture& operator=(const ScalingFixture&) = delete;

    HWND Window() const { return m_host; }

    // The screen that the host is on has so many dots an inch, and the control grows as its host would let
    // it.
    void MoveTo(int nDpi, HWND hwnd, const RECT& rcAtBase)
    {
        if (static_cast<int>(gesso::DpiOf(m_host)) != nDpi) {
            desk::ChangeDpi(m_host, nDpi);
        }
        const auto at = [nDpi](LONG n) { return MulDiv(n, nDpi, USER_DEFAULT_SCREEN_DPI); };
        MoveWindow(hwnd, at(rcAtBase.left), at(rcAtBase.top), at(rcAtBase.right - rcAtBase.left),
                   at(rcAtBase.bottom - rcAtBase.top), TRUE);
        desk::Pump();
    }

private:
    FreshDesktop m_desktop;

public:
    Host m_host;
};

class ScalingTest : public testing::Test, public ScalingFixture
{};

// A window of a class that stands by itself; null for none.
inline HWND TopLevelOf(const std::string& name)
{
    for (const HWND hwnd : desk::TopLevelWindows()) {
        wchar_t text[32]{};
        GetClassNameW(hwnd, text, 32);
        if (Narrow(text) == name) {
            return hwnd;
        }
    }
    return nullptr;
}

// Also of an object without a window.
inline HFONT FontOf(HWND hwnd)
{
    return reinterpret_cast<HFONT>(SendMessageW(hwnd, WM_GETFONT, 0, 0));
}

// A text of a record: where its characters are, where it may show, and how high its font's em is.
struct ShownText
{
    std::string text;
    RECT box;
    RECT room;
    int em;

    bool IsWhole() const
    {
        return box.left >= room.left && box.top >= room.top && box.right <= room.right &&
               box.bottom <= room.bottom;
    }
};

// The height of a font's em; 0 for one that is none.
inline int EmOf(HFONT hFont)
{
    LOGFONTW font{};
    GetObjectW(hFont, sizeof(font), &font);
    return -font.lfHeight;
}

inline RECT RectIn(const std::smatch& match, size_t first)
{
    const auto number = [&](size_t i) { return static_cast<LONG>(std::stol(match[first + i])); };
    return {number(0), number(1), number(2), number(3)};
}

// Where a text of one line is in the rectangle that it is aligned in.
inline RECT BoxIn(const RECT& rc, UINT uFormat, int cx, int cy)
{
    const LONG x = uFormat & DT_CENTER  ? (rc.left + rc.right - cx) / 2
                   : uFormat & DT_RIGHT ? rc.right - cx
                                        : rc.left;
    const LONG y = uFormat & DT_VCENTER  ? (rc.top + rc.bottom - cy) / 2
                   : uFormat & DT_BOTTOM ? rc.bottom - cy
                                         : rc.top;
    return {x, y, x + cx, y + cy};
}

// The room that a text takes whose lines are broken at a rectangle's width.
inline RECT BrokenBoxIn(const RECT& rc, UINT uFormat, const std::string& text, int em)
{
    std::vector<wchar_t> wide(text.size() + 1);
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    const HDC hdc = CreateCompatibleDC(nullptr);
    const HFONT hFont = CreateFontW(-em, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    const HGDIOBJ hFormer = SelectObject(hdc, hFont);
    RECT rcBox = rc;
    DrawTextW(hdc, wide.data(), -1, &rcBox, uFormat | DT_CALCRECT);
    SelectObject(hdc, hFormer);
    DeleteObject(hFont);
    DeleteDC(hdc);
    return rcBox;
}

enum class BrokenTexts
{
    Skip, // they break anew at every width
    Show
};

// All texts that the window shows, in the order of their drawing.
inline std::vector<ShownText> TextsOf(HWND hwnd, BrokenTexts broken = BrokenTexts::Skip)
{
    static const std::regex DRAWN("\"([^\"]*)\" \\((-?\\d+),(-?\\d+),(-?\\d+),(-?\\d+)\\) 0x(\\w+) "
                                  "font=\"[^\"]*\" (\\d+)");
    static const std::regex SCRIPT("ScriptTextOut \"([^\"]*)\" \\((-?\\d+),(-?\\d+)\\) cx=(\\d+).*"
                                   "font=\"[^\"]*\" (\\d+)");
    RECT rcClient{};
    GetClientRect(hwnd, &rcClient);
    std::vector<ShownText> texts;
    for (const std::string& line : NextPaint(hwnd, "")) {
        std::smatch match;
        if (std::regex_search(line, match, SCRIPT)) {
            const int em = std::stoi(match[5]);
            const int x = std::stoi(match[2]), y = std::stoi(match[3]);
            texts.push_back({match[1], {x, y, x + std::stoi(match[4]), y + em + em / 4}, rcClient, em});
        } else if (std::regex_search(line, match, DRAWN)) {
            std::string text = match[1];
            std::erase(text, '&');
            const int em = std::stoi(match[7]);
            const RECT rc = RectIn(match, 2);
            const auto uFormat = static_cast<UINT>(std::stoul(match[6], nullptr, 16));
            const int cx = static_cast<int>(text.size()) * (em / 2);
            RECT rcRoom{};
            IntersectRect(&rcRoom, &rc, &rcClient);
            if (!(uFormat & DT_WORDBREAK)) {
                texts.push_back({text, BoxIn(rc, uFormat, cx, em + em / 4), rcRoom, em});
            } else if (broken == BrokenTexts::Show) {
                texts.push_back({text, BrokenBoxIn(rc, uFormat, text, em), rcRoom, em});
            }
        }
    }
    return texts;
}

// Where the first image of the next paint is.
inline RECT ImageIn(HWND hwnd)
{
    static const std::regex IMAGE(
        "(?:DrawIconEx|ImageList_Draw|DrawStateW).* \\((-?\\d+),(-?\\d+),(-?\\d+),(-?\\d+)\\)");
    std::smatch match;
    for (const std::string& line : NextPaint(hwnd, "")) {
        if (std::regex_search(line, match, IMAGE)) {
            return RectIn(match, 1);
        }
    }
    return {};
}

inline bool Overlap(const RECT& a, const RECT& b)
{
    RECT rc{};
    return IntersectRect(&rc, &a, &b);
}

// Presses and releases in the middle of a text.
inline void ClickOn(HWND hwnd, const std::string& text)
{
    for (const ShownText& shown : TextsOf(hwnd)) {
        if (shown.text == text) {
            PointAt(hwnd, (shown.box.left + shown.box.right) / 2, (shown.box.top + shown.box.bottom) / 2);
            PressThere();
            ReleaseThere();
            return;
        }
    }
    ADD_FAILURE() << "not shown: " << text;
}

// The same without waiting for what comes of it, as within a loop of the program's.
inline void TapOn(HWND hwnd, const std::string& text)
{
    for (const ShownText& shown : TextsOf(hwnd)) {
        if (shown.text == text) {
            POINT pt{(shown.box.left + shown.box.right) / 2, (shown.box.top + shown.box.bottom) / 2};
            ClientToScreen(hwnd, &pt);
            desk::Click(pt.x, pt.y);
            return;
        }
    }
    ADD_FAILURE() << "not shown: " << text;
}

} // namespace test
