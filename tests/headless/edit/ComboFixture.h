// Acts on a combo box, and on its open list, as a user would.
#pragma once

#include "../controls/DrawFixture.h"

#include <gesso/edit/GComboBoxInside.h>

#include <memory>

namespace test {

constexpr int COMBO_X = 20, COMBO_Y = 30, COMBO_CX = 120, COMBO_CY = 24; // in the host's client area
constexpr int COMBO_ROW = 22;
constexpr int COMBO_BUTTON = 17; // the button's width

class ComboProbe : public GComboBox
{
public:
    UINT CaretIndex() const { return m_nCaret; }
    UINT AnchorIndex() const { return m_nAnchor; }
    bool HasCaret() const { return m_bCaret != 0; }
    DWORD State() const { return m_dwState; }
    void SetState(DWORD dwState) { m_dwState = dwState; }
    using GComboBox::Update;
    bool IsSound() const
    {
        return m_nCaret <= m_strText.GetLength() && m_nAnchor <= m_strText.GetLength() &&
               gesso::CheckItems(m_aItems);
    }
    OArray<ComboItem*, ComboItem*>& Items() { return m_aItems; }
};

class ComboFixture : public DrawFixture
{
protected:
    static constexpr UINT NONE = static_cast<UINT>(-1);

    void SetUp() override
    {
        desk::SetSystemMetric(SM_CXVSCROLL, COMBO_BUTTON);
        pCombo = std::make_unique<ComboProbe>();
    }
    void TearDown() override
    {
        EXPECT_FALSE(desk::Deadlocked());
        if (pCombo) {
            pCombo->Destroy();
        }
        pCombo.reset();
        DrawFixture::TearDown();
    }

    ComboProbe& Combo() { return *pCombo; }
    HWND Make(DWORD dwStyle, UINT nItems = 0, DWORD dwExStyle = 0)
    {
        pCombo->Create(COMBO_X, COMBO_Y, COMBO_CX, COMBO_CY, Parent(), 5,
                       WS_CHILD | WS_VISIBLE | WS_TABSTOP | dwStyle, dwExStyle);
        for (UINT n = 0; n < nItems; ++n) {
            Add("item " + std::to_string(n));
        }
        desk::Pump();
        TheHost().TakeReports();
        return *pCombo;
    }
    void Add(const std::string& text)
    {
        wchar_t buffer[64]{};
        for (size_t i = 0; i < text.size(); ++i) {
            buffer[i] = static_cast<wchar_t>(text[i]);
        }
        pCombo->InsertItem(NONE, 0, buffer, 0, nullptr);
    }

    // The open list's window, or null.
    static HWND List()
    {
        for (const HWND hwnd : desk::TopLevelWindows()) {
            wchar_t name[32]{};
            GetClassNameW(hwnd, name, 32);
            if (Narrow(name) == "GComboBoxList") {
                return hwnd;
            }
        }
        return nullptr;
    }

    // A point of the control, or of the open list's client area, on the screen.
    static POINT OnScreen(HWND hwnd, int x, int y)
    {
        POINT pt{x, y};
        ClientToScreen(hwnd, &pt);
        return pt;
    }
    static void MoveTo(HWND hwnd, int x, int y)
    {
        const POINT pt = OnScreen(hwnd, x, y);
        desk::MoveMouse(pt.x, pt.y);
    }
    static void ClickAt(HWND hwnd, int x, int y)
    {
        const POINT pt = OnScreen(hwnd, x, y);
        desk::Click(pt.x, pt.y);
    }
    static void ClickRow(int nRowInView) { ClickAt(List(), 5, nRowInView * COMBO_ROW + 5); }

    // Opens the list with the button, or F4; the actions run one by one whenever all is quiet, and have to
    // close it again. In Modern no loop runs that could be quiet.
    void WithList(std::initializer_list<std::function<void()>> actions)
    {
        if (gesso::BehaviorOf(*pCombo) == gesso::Behavior::Modern) {
            ClickAt(*pCombo, COMBO_CX - 5, 10);
            desk::Pump();
            for (const auto& action : actions) {
                action();
                desk::Pump();
            }
            return;
        }
        for (const auto& action : actions) {
            desk::WhenIdle(action);
        }
        ClickAt(*pCombo, COMBO_CX - 5, 10);
        desk::Pump();
    }

    static void Type(UINT uKey, std::initializer_list<UINT> modifiers = {})
    {
        desk::TypeKey(uKey, modifiers);
        desk::Pump();
    }

    std::unique_ptr<ComboProbe> pCombo;
};

} // namespace test
