#include "Call.h"

#include <tests/support/User.h>

#include <gesso/list/GListNotify.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace attack {

namespace {

constexpr UINT DEEPEST = 3; // of operations within operations
constexpr size_t HANDLES = 48;

World* s_pWorld = nullptr;

// What a tree asks of a child that was only counted. By its number alone, so that operations that are left
// out change nothing of it.
void AnswerTree(const GLISTNOTIFY& record)
{
    static Text s_text; // which outlives the answer
    Source source(static_cast<uint64_t>(record.iItem), 0);
    s_text = source.AnyText();
    const UINT nImage = source.NumberOrBits();
    *record.pDispInfo = {record.pDispInfo->mask, s_text, nImage, source.Chance(2) ? source.Number() : 0};
}

LRESULT CALLBACK HostProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    NoteHostMessage(hwnd, uMsg);
    if (uMsg == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == TVN_GETDISPINFOW) {
        AnswerTree(*reinterpret_cast<const GLISTNOTIFY*>(lParam));
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

HWND MakeWindow(LPCWSTR pszClass, WNDPROC pfn, RECT place)
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    if (!GetClassInfoExW(GetModuleHandleW(nullptr), pszClass, &record)) {
        record.cbSize = sizeof(record);
        record.style = CS_DBLCLKS;
        record.lpfnWndProc = pfn;
        record.hInstance = GetModuleHandleW(nullptr);
        record.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        record.lpszClassName = pszClass;
        RegisterClassExW(&record);
    }
    return CreateWindowExW(0, pszClass, L"Host", WS_POPUP | WS_VISIBLE, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

uint64_t HashOf(std::string_view name)
{
    uint64_t n = 0xCBF29CE484222325u;
    for (const char c : name) {
        n = (n ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
    }
    return n;
}

// --- Which messages of the host make it act

bool IsNotification(UINT uMsg)
{
    return uMsg == WM_NOTIFY || uMsg == WM_COMMAND || uMsg == WM_HSCROLL || uMsg == WM_VSCROLL;
}

bool IsOfPainting(UINT uMsg)
{
    return uMsg == WM_ERASEBKGND || uMsg == WM_PRINTCLIENT || uMsg == WM_PAINT ||
           (uMsg >= WM_CTLCOLORMSGBOX && uMsg <= WM_CTLCOLORSTATIC);
}

bool IsOfKind(UINT nKind, UINT uMsg)
{
    switch (nKind) {
    case 0: return IsNotification(uMsg);
    case 1: return IsOfPainting(uMsg);
    case 2: return uMsg == WM_NOTIFY;
    case 3:
        return uMsg == WM_PARENTNOTIFY || uMsg == WM_NEXTDLGCTL || uMsg == WM_CAPTURECHANGED ||
               uMsg == WM_SETFOCUS || uMsg == WM_KILLFOCUS;
    default: return true;
    }
}
constexpr UINT KINDS = 5;

} // namespace

void NoteHostMessage(HWND hwnd, UINT uMsg)
{
    if (s_pWorld) {
        s_pWorld->OnHostMessage(hwnd, uMsg);
    }
}

// What a host does within a message. One line adds one more.
struct Behaviours
{
    struct Behaviour
    {
        const char* pszName;
        void (*act)(World&, Source&);
        bool fOnCopy; // does no harm to what a copy is made from
    };

    static void DestroyControl(World& world, Source&) { DestroyWindow(world.Window()); }
    static void DeleteControl(World& world, Source& source) { world.DeleteObject(source); }
    static void DestroyAndDelete(World& world, Source& source)
    {
        DestroyWindow(world.Window());
        world.DeleteObject(source);
    }
    static void DeleteAndDestroy(World& world, Source& source)
    {
        const HWND hwnd = world.Window();
        world.DeleteObject(source);
        DestroyWindow(hwnd);
    }
    static void DestroyHost(World& world, Source&) { DestroyWindow(world.m_hwndHost); }
    static void MoveFocus(World& world, Source& source) { SetFocus(world.AnyWindow(source)); }
    static void MoveCapture(World& world, Source& source)
    {
        source.Flag() ? static_cast<void>(ReleaseCapture())
                      : static_cast<void>(SetCapture(world.AnyWindow(source)));
    }
    static void RunLoop(World&, Source&) { desk::Pump(); }
    static void Resize(World& world, Source& source)
    {
        const int cx = source.Size();
        SetWindowPos(world.Window(), nullptr, 0, 0, cx, source.Size(), SWP_NOMOVE | SWP_NOZORDER);
    }
    static void Hide(World& world, Source& source) { ShowWindow(world.Window(), source.Flag()); }
    static void Disable(World& world, Source& source) { EnableWindow(world.Window(), source.Flag()); }
    static void ChangeTheme(World& world, Source& source)
    {
        desk::SetThemed(world.Window(), source.Flag());
        SendMessageW(world.Window(), WM_THEMECHANGED, 0, 0);
    }
    static void Another(World& world, Source& source) { world.DoAnother(source); }
    static void MakeAnew(World& world, Source& source) { world.Make(source); }
    static void Repaint(World& world, Source&)
    {
        RedrawWindow(world.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }

    static constexpr Behaviour ALL[] = {
        {"DestroyControl", DestroyControl, true},
        {"DeleteControl", DeleteControl, true},
        {"DestroyAndDelete", DestroyAndDelete, true},
        {"DeleteAndDestroy", DeleteAndDestroy, true},
        {"DestroyHost", DestroyHost, false},
        {"MoveFocus", MoveFocus, false},
        {"MoveCapture", MoveCapture, false},
        {"RunLoop", RunLoop, false},
        {"Resize", Resize, false},
        {"Hide", Hide, false},
        {"Disable", Disable, false},
        {"ChangeTheme", ChangeTheme, false},
        {"Another", Another, false},
        {"Another", Another, false},
        {"MakeAnew", MakeAnew, false},
        {"Repaint", Repaint, false},
    };
};

World::World(const Table& table, Source& source) : m_table(table)
{
    s_pWorld = this;
    for (const Operation& operation : table) {
        const uint64_t nName = HashOf(operation.pszName);
        m_names.push_back(nName + static_cast<uint64_t>(std::count(m_names.begin(), m_names.end(), nName)));
    }
    m_nIdleSeed = source.Next();
    m_hwndOther = MakeWindow(L"GessoAttackOther", DefWindowProcW, {500, 0, 700, 100});
    m_hwndGone = MakeWindow(L"GessoAttackOther", DefWindowProcW, {500, 0, 700, 100});
    DestroyWindow(m_hwndGone);
    MakeObjects();
    WaitForIdle();
}

World::~World()
{
    s_pWorld = nullptr;
    DestroyWindow(m_hwndHost);
    DestroyWindow(m_hwndOther);
    DeleteObjects();
}

void World::MakeObjects()
{
    m_hdc = CreateCompatibleDC(nullptr);
    m_bitmaps = {CreateBitmap(16, 16, 1, 32, nullptr), CreateBitmap(300, 200, 1, 1, nullptr)};
    ICONINFO info{TRUE, 0, 0, m_bitmaps[1], m_bitmaps[0]};
    m_icons = {CreateIconIndirect(&info)};
    m_images = ImageList_Create(16, 16, ILC_COLOR32, 3, 1);
    for (int n = 0; n < 3; ++n) {
        ImageList_Add(m_images, m_bitmaps[0], nullptr);
    }
}

void World::DeleteObjects()
{
    DeleteDC(m_hdc);
    ImageList_Destroy(m_images);
    for (const HICON hIcon : m_icons) {
        DestroyIcon(hIcon);
    }
    for (const HBITMAP hBitmap : m_bitmaps) {
        ::DeleteObject(hBitmap);
    }
    for (const HFONT hFont : m_fonts) {
        ::DeleteObject(hFont);
    }
}

void World::WaitForIdle()
{
    desk::WhenIdle([] {
        if (s_pWorld) {
            s_pWorld->OnIdle();
        }
    });
}

// --- Operations

// By names and not by places, so that a line more in a table leaves most choices of a seed as they were.
const Operation& World::Choose(Source& source, bool fOnCopy) const
{
    const uint64_t nDrawn = source.Next();
    double fNearest = HUGE_VAL;
    size_t nChosen = 0;
    for (size_t n = 0; n < m_table.size(); ++n) {
        if (!fOnCopy || m_table[n].fOnCopy) {
            const double fDrawn = static_cast<double>(Source(nDrawn, m_names[n]).Next() >> 11) + 1;
            const double fDistance = -std::log(fDrawn * 0x1p-53) / m_table[n].nWeight;
            nChosen = fDistance < fNearest ? n : nChosen;
            fNearest = std::min(fNearest, fDistance);
        }
    }
    return m_table[nChosen];
}

const char* World::Step(Source& source)
{
    m_nIdle = 0;
    m_nIdleSeed = source.Next();
    Host();
    if (!Object() && source.Chance(2)) {
        Make(source);
    }
    const Operation& operation = Choose(source, false);
    source.Note(std::string("| ") + operation.pszName);
    operation.act(*this, source);
    return operation.pszName;
}

void World::DoAnother(Source& source)
{
    if (m_nDepth >= DEEPEST) {
        return;
    }
    ++m_nDepth;
    const Operation& operation = Choose(source, m_pCopy != nullptr);
    source.Note(std::string("[") + operation.pszName);
    operation.act(*this, source);
    source.Note("]");
    --m_nDepth;
}

void World::DoOnCopy(void* pObject, Source& source)
{
    m_pCopy = pObject;
    for (UINT n = 1 + source.Below(3); n > 0 && m_pCopy; --n) {
        const Operation& operation = Choose(source, true);
        source.Note(std::string("on the copy: ") + operation.pszName);
        operation.act(*this, source);
    }
}

void World::End(Source& source)
{
    desk::ClearFaults();
    m_nCountdown = 0;
    if (source.Chance(2)) {
        DeleteObject(source);
    }
    DestroyWindow(m_hwndHost);
    DeleteObject(source);
    for (const HWND hwnd : desk::TopLevelWindows()) {
        DestroyWindow(hwnd);
    }
    desk::Pump();
}

// --- What the host has

HWND World::Host()
{
    if (!IsWindow(m_hwndHost)) {
        m_hwndHost = MakeWindow(L"GessoAttackHost", HostProc, {50, 50, 450, 350});
    }
    return m_hwndHost;
}

HWND World::AnyWindow(Source& source)
{
    const UINT nKind = source.Below(16);
    source.Note(nKind < 6    ? "host"
                : nKind < 10 ? "window"
                : nKind < 12 ? "other"
                : nKind < 14 ? "null"
                             : "gone");
    switch (nKind) {
    case 10:
    case 11: return m_hwndOther;
    case 12:
    case 13: return nullptr;
    case 14: return m_hwndGone;
    case 15: return reinterpret_cast<HWND>(static_cast<UINT_PTR>(0x1234567));
    default: return nKind < 6 ? Host() : Window();
    }
}

HWND World::AnyParent(Source& source)
{
    return source.Chance(8) ? AnyWindow(source) : Host();
}

HFONT World::AnyFont(Source& source)
{
    if (source.Chance(6)) {
        source.Note("no font");
        return nullptr;
    }
    if (m_fonts.size() < 3 || source.Chance(3)) {
        const int nHeight = source.Size();
        m_fonts.push_back(
            CreateFontW(-nHeight, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Font"));
        return m_fonts.back();
    }
    source.Note("a font");
    return source.Any(std::span<const HFONT>(m_fonts));
}

HBITMAP World::AnyBitmap(Source& source)
{
    return source.Flag() ? source.Any(std::span<const HBITMAP>(m_bitmaps)) : nullptr;
}

HICON World::AnyIcon(Source& source)
{
    return source.Flag() ? m_icons[0] : nullptr;
}

HIMAGELIST World::AnyImageList(Source& source)
{
    return source.Flag() ? m_images : nullptr;
}

HDC World::AnyContext(Source& source)
{
    return source.Chance(12) ? nullptr : m_hdc;
}

void World::NoteHandle(void* handle)
{
    if (m_handles.size() < HANDLES) {
        m_handles.push_back(handle);
    } else {
        m_handles[m_nNoted++ % HANDLES] = handle;
    }
}

void* World::AnyHandle(Source& source)
{
    const UINT nKind = source.Below(12);
    if (nKind < 9 && !m_handles.empty()) {
        const UINT n = source.Below(static_cast<UINT>(m_handles.size()));
        source.Note("handle " + std::to_string(n));
        return m_handles[n];
    }
    source.Note("odd handle " + std::to_string(nKind));
    switch (nKind) {
    case 0: return reinterpret_cast<void*>(static_cast<UINT_PTR>(-1));
    case 1: return reinterpret_cast<void*>(static_cast<UINT_PTR>(8 + 8 * source.Below(9)));
    case 2: return this; // of another kind, and there
    default: return nullptr;
    }
}

void Use(World&, LPCWSTR psz)
{
    static volatile UINT s_nRead = 0;
    s_nRead = s_nRead + (psz ? static_cast<UINT>(wcslen(psz)) : 0);
}

// --- In the midst of a message

void World::Arm(Source& source)
{
    m_nArmedKind = source.Below(KINDS);
    m_nCountdown = 1 + source.Below(source.Chance(3) ? 30 : 4);
    m_nArmedSeed = source.Next();
    source.Note("kind " + std::to_string(m_nArmedKind) + ", in " + std::to_string(m_nCountdown));
}

void World::OnHostMessage(HWND, UINT uMsg)
{
    // A child that is made within its parent's last message goes without one of its own, and the object that
    // it owns stays.
    if (m_nQuiet > 0 || m_nCountdown == 0 || uMsg == WM_NCDESTROY || !IsOfKind(m_nArmedKind, uMsg) ||
        !desk::IsHostFree() || --m_nCountdown > 0)
    {
        return;
    }
    ++m_nActed;
    Source source(m_nArmedSeed, 0);
    source.Note("in " + desk::MessageName(uMsg));
    Act(source);
}

void World::Act(Source& source)
{
    const Behaviours::Behaviour& behaviour =
        source.Any(std::span<const Behaviours::Behaviour>(Behaviours::ALL));
    if (m_nDepth >= DEEPEST || (m_pCopy && !behaviour.fOnCopy)) {
        return;
    }
    ++m_nDepth;
    source.Note(std::string("{") + behaviour.pszName);
    behaviour.act(*this, source);
    source.Note("}");
    --m_nDepth;
}

void World::OnIdle()
{
    WaitForIdle();
    ++m_nIdle;
    Source source(m_nIdleSeed, m_nIdle);
    if (m_nIdle > 2 * desk::PATIENCE) {
        PostQuitMessage(0);
    } else if (m_nIdle > desk::PATIENCE) {
        test::user::TypeKey(VK_ESCAPE);
    } else if (source.Chance(4)) {
        ++m_nActed;
        Act(source);
    } else if (source.Chance(2)) {
        test::user::MoveMouse(static_cast<int>(source.Below(500)), static_cast<int>(source.Below(400)));
        source.Chance(2) ? desk::PressButton() : desk::ReleaseButton();
    } else {
        static constexpr UINT KEYS[] = {VK_DOWN, VK_UP,   VK_RETURN, VK_ESCAPE, VK_TAB,
                                        VK_F4,   VK_NEXT, VK_SPACE,  'A'};
        test::user::TypeKey(source.Any(std::span<const UINT>(KEYS)));
    }
}

} // namespace attack
