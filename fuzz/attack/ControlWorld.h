// The world of a control of any class: the object is made by the host and makes its window, or the window
// makes it, by its class's name or from a dialog template.
#pragma once

#include "Call.h"
#include "ControlTables.h"
#include "NameOf.h"

#include <tests/controls/MakeControl.h>
#include <tests/support/AllControls.h>
#include <tests/support/DialogTemplate.h>

#include <gesso/framework/Frame.h>

#include <memory>

namespace attack {

// What a window's creation data is in a template: its size, and the texts.
std::vector<wchar_t> AnyCreationData(Source& source);
// What a template says for an item: nothing, what a control expects, or as many bytes as a tag has for its
// mark.
std::vector<BYTE> AnyItemData(Source& source);

// Makes a dialog over the host with one control in it; the control's window.
HWND MakeInDialog(World& world, LPCWSTR pszClass, Source& source);

// What all controls have. A copy shares what is the host's.
template <class CONTROL> void AddCommon(Table& table)
{
    Add(table, {OP(CONTROL, Invalidate), OP(CONTROL, MoveWindow), OP(CONTROL, SetVisible),
                OP(CONTROL, GetPos), OP(CONTROL, GetHwnd), OP(CONTROL, GetParent)});
    if constexpr (requires(CONTROL control) { control.Draw(HDC{}); }) {
        table.push_back(Own<CONTROL>(
            "Draw",
            [](CONTROL& control, World& world, Source& source) { control.Draw(world.AnyContext(source)); },
            true));
    }
    if constexpr (requires(CONTROL control) { control.Init(nullptr); }) {
        table.push_back(Own<CONTROL>("Init", [](CONTROL& control, World&, Source& source) {
            std::vector<wchar_t> data = AnyCreationData(source);
            control.Init(source.Chance(4) ? nullptr : data.data());
        }));
    }
    if constexpr (requires(CONTROL control) { control.GetText(nullptr, nullptr); }) {
        table.push_back(GetTextOf<CONTROL>("GetText", &CONTROL::GetText));
    }
    if constexpr (std::is_base_of_v<GWndScroll, CONTROL>) {
        AddScrolling<CONTROL>(table);
    }
}

template <class CONTROL> const Table& TableOf()
{
    static const Table TABLE = [] {
        Table table;
        AddLife(table);
        AddMessages(table);
        AddInput(table);
        AddSurroundings(table);
        AddSettings(table);
        AddFaults(table);
        AddCommon<CONTROL>(table);
        AddOperations<CONTROL>(table);
        return table;
    }();
    return TABLE;
}

template <class CONTROL> bool OutlivesItsWindow()
{
    return std::is_same_v<CONTROL, GScrollbar> && gesso::GetBehavior() == gesso::Behavior::Classic;
}

template <class CONTROL> class ControlWorld : public World
{
public:
    explicit ControlWorld(Source& source) : World(TableOf<CONTROL>(), source)
    {
        CONTROL::IsolationAwareRegisterClassW();
    }
    ~ControlWorld() override { delete m_pOwn; }

    void* Object() override
    {
        if (m_pCopy) {
            return m_pCopy;
        }
        return m_pOwn ? m_pOwn : ObjectOf(m_hwnd);
    }

    HWND Window() override
    {
        const auto* pObject = m_pCopy ? static_cast<const CONTROL*>(m_pCopy) : m_pOwn;
        return pObject ? pObject->GetHwnd() : m_hwnd;
    }

    void Make(Source& source) override
    {
        if (m_pCopy) {
            return;
        }
        if (source.Chance(2)) {
            DestroyWindow(Window());
        }
        Delete(source);
        switch (source.Below(8)) {
        case 0:
        case 1: MakeByName(source); break;
        case 2: NoteWindow([&] { return MakeInDialog(*this, WideNameOf<CONTROL>().data(), source); }); break;
        case 3: MakeTagged(source); break;
        default: MakeOwn(source); break;
        }
    }

    void DeleteObject(Source& source) override
    {
        if (m_pCopy) {
            delete static_cast<CONTROL*>(std::exchange(m_pCopy, nullptr));
        } else {
            Delete(source);
        }
    }

    void TakeOver() override
    {
        if (!m_pOwn && !m_pCopy) {
            m_pOwn = ObjectOf(std::exchange(m_hwnd, nullptr));
        }
    }

    // The original stays, and whoever owns it owns what both share.
    void UseCopy(Source& source) override
    {
        if (!m_pOwn || m_pCopy) {
            return;
        }
        DoOnCopy(new CONTROL(*m_pOwn), source);
        DeleteObject(source);
    }

    // The object that was assigned to is a copy from now on, and goes before what it was assigned.
    void Assign(Source& source) override
    {
        if (!m_pOwn || m_pCopy) {
            return;
        }
        CONTROL other;
        if (source.Chance(2)) {
            const Quiet quiet(*this);
            test::MakeAnyControl(other, Host());
        }
        CONTROL* const pObject = std::exchange(m_pOwn, nullptr);
        const CONTROL& self = *pObject;
        *pObject = source.Chance(5) ? self : other;
        DoOnCopy(pObject, source);
        DeleteObject(source);
        DestroyWindow(other);
    }

    std::string Check() override
    {
        auto* pObject = static_cast<CONTROL*>(Object());
        return pObject ? CheckObject(*pObject) : std::string();
    }

private:
    // What gesso::Frame says, which the DLL keeps to itself.
    static CONTROL* ObjectOf(HWND hwnd)
    {
        constexpr LONG DETACHED = 2;
        const bool fDetached = GetWindowLongW(hwnd, gesso::Frame::OWNER_WORD) & DETACHED;
        return fDetached ? nullptr : static_cast<CONTROL*>(GWnd::FromHwnd(hwnd));
    }

    void Delete(Source& source)
    {
        CONTROL* const pObject = std::exchange(m_pOwn, nullptr);
        if (pObject && source.Chance(2)) {
            pObject->Delete(pObject);
        } else {
            delete pObject;
        }
    }

    void MakeOwn(Source& source)
    {
        const Quiet quiet(*this);
        CONTROL* const pObject = new CONTROL;
        m_pOwn = pObject;
        const HWND hwnd = test::MakeAnyControl(*pObject, Host());
        if (source.Chance(2)) {
            SetWindowLongW(hwnd, GWL_STYLE,
                           static_cast<LONG>(WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL |
                                             (source.Bits() & ~desk::STYLES_LEFT_OUT)));
        }
    }

    HWND CreateByName(void* pData, Source& source)
    {
        const auto name = WideNameOf<CONTROL>();
        const DWORD dwStyle =
            WS_CHILD | WS_VISIBLE |
            (source.Chance(2) ? source.Bits() & ~desk::STYLES_LEFT_OUT : WS_HSCROLL | WS_VSCROLL);
        const int cx = source.Size();
        return CreateWindowExW(source.Chance(4) ? source.Bits() : 0, name.data(), L"Window", dwStyle, 10, 10,
                               cx, source.Size(), AnyParent(source), reinterpret_cast<HMENU>(UINT_PTR{7}),
                               nullptr, pData);
    }

    void MakeByName(Source& source)
    {
        std::vector<wchar_t> data = AnyCreationData(source);
        const bool fData = source.Chance(2);
        NoteWindow([&] { return CreateByName(fData ? data.data() : nullptr, source); });
    }

    // Some objects outlive the window that made them, and are the host's to free.
    template <class MAKE> void NoteWindow(MAKE make)
    {
        if (OutlivesItsWindow<CONTROL>()) {
            const Quiet quiet(*this);
            desk::ClearFaults();
            const HWND hwnd = make();
            m_pOwn = hwnd ? static_cast<CONTROL*>(GWnd::FromHwnd(hwnd)) : nullptr;
        } else {
            m_hwnd = make();
        }
    }

    // As a host does that makes the window itself.
    void MakeTagged(Source& source)
    {
        m_pOwn = new CONTROL;
        stcCreateTag tag{0xFFFF, m_pOwn};
        CreateByName(&tag, source);
    }

    CONTROL* m_pOwn = nullptr; // the host's
    HWND m_hwnd = nullptr;     // of an object that the window made
};

} // namespace attack
