// A text field of Modern beside a plain model: after each operation text, selection and the steps that can be
// taken back are what the model says.

#include "../Plain.h"

#include <tests/headless/edit/PlainModel.h>
#include <tests/headless/memory/MemoryLimit.h>
#include <tests/support/User.h>

#include <gesso/edit/TextInput.h>
#include <gesso/framework/Behavior.h>
#include <gesso/gesso.h>
#include <gesso/text/TextBoundary.h>
#include <platform/headless/headless.h>

#include <utility>

namespace attack {

namespace {

namespace simulated = gesso::headless;
namespace user = test::user;
using gesso::EditKind;
using gesso::SplitText;
using gesso::TextRange;
using test::Characters;

constexpr UINT MOST = 0x3FFFFFFF;
constexpr UINT LONG_ENOUGH = 3000; // characters that a text may grow to
constexpr DWORD MANY_LINES = ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;

class FieldWorld : public World
{
public:
    explicit FieldWorld(Source& source);
    ~FieldWorld() override;
    void* Object() override { return this; }
    HWND Window() override { return m_edit; }
    std::string Check() override;

private:
    static const Table& Operations();
    static LRESULT CALLBACK OwnerProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(m_edit, uMsg, wParam, lParam);
    }
    LRESULT SendText(UINT uMsg, WPARAM wParam, const Characters& text)
    {
        return Send(uMsg, wParam, reinterpret_cast<LPARAM>(text.data()));
    }
    bool Has(DWORD dwBit) const
    {
        return (GetWindowLongW(m_edit, GWL_STYLE) & static_cast<LONG>(dwBit)) != 0;
    }
    bool MayChange() const { return !Has(ES_READONLY); }
    bool MayCompose() const { return MayChange() && !IsMasked(); }
    bool IsMasked() const { return Has(ES_PASSWORD) && !Has(ES_MULTILINE); }
    // What a program puts in need not be a number.
    gesso::InputRules Rules(bool fProgram) const
    {
        return {!Has(ES_MULTILINE), Has(ES_NUMBER) && !fProgram, Has(ES_UPPERCASE), Has(ES_LOWERCASE)};
    }

    // --- The model's side
    TextRange Selected() const
    {
        const test::Snapshot& now = m_plain.now;
        return {std::min(now.nAnchor, now.nCaret), std::max(now.nAnchor, now.nCaret)};
    }
    SplitText PlainText() const
    {
        return {m_plain.now.text.data(), static_cast<UINT>(m_plain.now.text.size())};
    }
    UINT Room(const TextRange& range) const
    {
        const UINT nKept = PlainText().Length() - range.Length();
        return m_nLimit > nKept ? m_nLimit - nKept : 0;
    }
    void Change(const TextRange& range, const Characters& text, EditKind kind, bool fCanUndo = true);
    void Insert(const Characters& text, EditKind kind, bool fCanUndo = true, bool fProgram = false)
    {
        InsertAt(Selected(), text, kind, fCanUndo, fProgram);
    }
    void InsertAt(const TextRange& range, const Characters& text, EditKind kind, bool fCanUndo = true,
                  bool fProgram = false);
    void Remove(const TextRange& range, EditKind kind);
    void StartAnew(const Characters& text);
    void TypeOne(wchar_t ch);
    void BackspaceOne(bool fWord);
    void DeleteOne(bool fWord);
    // What a move has made of the selection, which stays whole in itself.
    void FollowMove(bool fExtends);
    std::string Around(UINT n) const;
    void Find(const std::string& fault) { m_fault = m_fault.empty() ? fault : m_fault; }

    // --- Operations on both
    void SendChar(Source& source);
    void TypeWords(Source& source);
    void UseKey(Source& source);
    void RemoveByKey(Source& source);
    void SetSelection(Source& source);
    void ReplaceSelection(Source& source);
    void SetText(Source& source);
    void UseClipboard(Source& source);
    void UndoOrRedo(Source& source);
    void TakeAllBack(Source& source);
    void UseMouse(Source& source);
    void DragAndDrop(Source& source);
    void AskForLines(Source& source);
    void SendAnyNumbers(Source& source);
    void Limit(Source& source);
    void SetCue(Source& source);
    void ChangeField(Source& source);
    void FindSome(Source& source);
    void Compose(Source& source);
    void AskAsInputMethod(Source& source);
    void RunOutOfMemory(Source& source);

    Characters AnyCharacters(Source& source) const;
    Characters FieldText() const;
    Characters ClipboardNow() const;
    Characters SelectedText() const
    {
        const TextRange range = Selected();
        const auto from = m_plain.now.text.begin() + range.nFrom;
        return {from, from + range.Length()};
    }
    void TakeSelection();
    void FollowDrop(const TextRange& dragged, bool fCopies);
    POINT PointAt(UINT n);

    GEdit m_edit;
    HWND m_hwndOwner;
    test::PlainModel m_plain;
    UINT m_nLimit = MOST;
    wchar_t m_chRefused = 0;
    bool m_fModified = false;
    uint64_t m_nMeanwhile = 0; // what the clipboard's former owner does with the field; 0 for nothing
    std::string m_fault;
};

FieldWorld* s_pField = nullptr;

// --- The world

FieldWorld::FieldWorld(Source& source) : World(Operations(), source), m_hwndOwner(nullptr)
{
    s_pField = this;
    DWORD dwStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | (source.Chance(3) ? ES_NOHIDESEL : 0);
    if (source.Chance(3)) {
        dwStyle |= ES_AUTOHSCROLL | (source.Chance(4) ? ES_PASSWORD : 0);
    } else {
        dwStyle |= MANY_LINES | (source.Chance(2) ? ES_AUTOHSCROLL : 0) |
                   (source.Chance(2) ? WS_VSCROLL : 0) | (source.Chance(3) ? WS_HSCROLL : 0);
    }
    dwStyle |= source.Chance(8)   ? ES_NUMBER
               : source.Chance(8) ? ES_UPPERCASE
               : source.Chance(8) ? ES_LOWERCASE
                                  : 0;
    dwStyle |= source.Chance(6) ? ES_RIGHT : source.Chance(6) ? ES_CENTER : 0;
    const gesso::Behavior former = gesso::GetBehavior();
    gesso::SetBehavior(gesso::Behavior::Modern);
    m_edit.Create(5, 5, 60 + static_cast<int>(source.Below(250)), 20 + static_cast<int>(source.Below(200)),
                  Host(), 7, L"", dwStyle, 0);
    gesso::SetBehavior(former);
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    record.lpfnWndProc = OwnerProc;
    record.hInstance = GetModuleHandleW(nullptr);
    record.lpszClassName = L"GessoAttackOwner";
    RegisterClassExW(&record);
    m_hwndOwner = CreateWindowExW(0, record.lpszClassName, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                  record.hInstance, nullptr);
    SetFocus(m_edit);
}

FieldWorld::~FieldWorld()
{
    s_pField = nullptr;
    DestroyWindow(m_hwndOwner);
}

// The clipboard's former owner changes the field while it is told that its content goes.
LRESULT CALLBACK FieldWorld::OwnerProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (uMsg == WM_DESTROYCLIPBOARD && s_pField && s_pField->m_nMeanwhile) {
        Source source(std::exchange(s_pField->m_nMeanwhile, 0), 0);
        switch (source.Below(3)) {
        case 0: s_pField->SetSelection(source); break;
        case 1: s_pField->ReplaceSelection(source); break;
        default: s_pField->SetText(source); break;
        }
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

Characters FieldWorld::FieldText() const
{
    int nCapacity = m_edit.GetTextLength() + 1;
    Characters text(static_cast<size_t>(nCapacity));
    m_edit.GetText(text.data(), &nCapacity);
    text.pop_back();
    return text;
}

std::string FieldWorld::Check()
{
    if (!m_fault.empty()) {
        return std::exchange(m_fault, {});
    }
    if (FieldText() != m_plain.now.text) {
        return "another text";
    }
    int nFrom = 0;
    int nTo = 0;
    m_edit.GetSel(&nFrom, &nTo);
    if (TextRange{static_cast<UINT>(nFrom), static_cast<UINT>(nTo)} != Selected()) {
        return "another selection";
    }
    if (m_edit.CanRedo() != (MayChange() && m_plain.CanRedo()) ||
        (SendMessageW(m_edit, EM_CANUNDO, 0, 0) != 0) != m_plain.CanUndo())
    {
        return "other steps to take back";
    }
    return m_edit.IsModified() == m_fModified ? "" : "modified or not";
}

// --- The model's side

void FieldWorld::Change(const TextRange& range, const Characters& text, EditKind kind, bool fCanUndo)
{
    m_plain.Replace(range, text, kind, GetTickCount());
    m_fModified = true;
    if (!fCanUndo) {
        m_plain.EmptyUndo();
    }
}

void FieldWorld::InsertAt(const TextRange& range, const Characters& text, EditKind kind, bool fCanUndo,
                          bool fProgram)
{
    bool fCut = false;
    const Characters prepared =
        gesso::PrepareInput(text.data(), static_cast<UINT>(text.size()), Rules(fProgram), Room(range), &fCut);
    const bool fRefused = !text.empty() && prepared.empty();
    if (!fRefused && (!prepared.empty() || range.Length() > 0)) {
        Change(range, prepared, kind, fCanUndo);
    } else if (!fCanUndo) {
        m_plain.EmptyUndo();
    }
}

void FieldWorld::Remove(const TextRange& range, EditKind kind)
{
    if (MayChange() && range.Length() > 0) {
        Change(range, {}, kind);
    }
}

void FieldWorld::StartAnew(const Characters& text)
{
    const gesso::InputRules rules{!Has(ES_MULTILINE), false, Has(ES_UPPERCASE), Has(ES_LOWERCASE)};
    bool fCut = false;
    m_plain = test::PlainModel();
    m_plain.now.text = gesso::PrepareInput(text.data(), static_cast<UINT>(text.size()), rules, MOST, &fCut);
    m_fModified = false;
}

// The halves of a character come one after the other.
void FieldWorld::TypeOne(wchar_t ch)
{
    if (!MayChange()) {
        return;
    }
    const wchar_t chFormer = std::exchange(m_chRefused, L'\0');
    if (IS_LOW_SURROGATE(ch) && chFormer) {
        return;
    }
    if (IS_HIGH_SURROGATE(ch) && Room(Selected()) < 2) {
        m_chRefused = ch;
        return;
    }
    Insert(ch == L'\r' ? Characters{L'\r', L'\n'} : Characters{ch}, EditKind::Typing);
}

void FieldWorld::BackspaceOne(bool fWord)
{
    const UINT n = m_plain.now.nCaret;
    if (Selected().Length() > 0) {
        Remove(Selected(), EditKind::Step);
    } else {
        const UINT nFrom = !fWord       ? gesso::CodePointStart(PlainText(), n)
                           : IsMasked() ? 0
                                        : gesso::PreviousWordStart(PlainText(), n);
        Remove({nFrom, n}, EditKind::Erasing);
    }
}

void FieldWorld::DeleteOne(bool fWord)
{
    const UINT n = m_plain.now.nCaret;
    if (Selected().Length() > 0) {
        Remove(Selected(), EditKind::Step);
    } else {
        const UINT nTo = !fWord       ? gesso::ClusterEnd(PlainText(), n)
                         : IsMasked() ? PlainText().Length()
                                      : gesso::NextWordStart(PlainText(), n);
        Remove({n, nTo}, EditKind::Erasing);
    }
}

// The characters on both sides, as numbers.
std::string FieldWorld::Around(UINT n) const
{
    const Characters& text = m_plain.now.text;
    std::string told;
    for (UINT i = n - std::min(n, 8u); i < std::min<size_t>(n + 8, text.size()); ++i) {
        told += (i == n ? "| " : "") + std::to_string(text[i]) + " ";
    }
    return told;
}

void FieldWorld::FollowMove(bool fExtends)
{
    int nFirst = 0;
    int nLast = 0;
    m_edit.GetSel(&nFirst, &nLast);
    const auto nFrom = static_cast<UINT>(nFirst);
    const auto nTo = static_cast<UINT>(nLast);
    const UINT nAnchor = fExtends ? m_plain.now.nAnchor : nFrom;
    if ((nAnchor != nFrom && nAnchor != nTo) || (!fExtends && nFrom != nTo)) {
        Find("a move that leaves the selection's start");
    }
    const UINT nCaret = nAnchor == nFrom ? nTo : nFrom;
    const bool fWhereItWas = nCaret == m_plain.now.nAnchor || nCaret == m_plain.now.nCaret;
    if (!fWhereItWas && !gesso::IsClusterBoundary(PlainText(), nCaret)) {
        Find("the caret within a character: " + Around(nCaret));
    }
    m_plain.Select(nAnchor, nCaret);
}

// --- Operations

constexpr LPCWSTR PIECES[] = {L"a",
                              L"b c",
                              L" ",
                              L"\t",
                              L"\r\n",
                              L"\n",
                              L"\r",
                              L"word and more ",
                              L"\x05D0\x05D1",
                              L"\x0301",
                              L"\xD83D\xDE00",
                              L"\xD83D",
                              L"\xDE00",
                              L"\x200D",
                              L"\x202E",
                              L"\x2066\x2069",
                              L"\xFEFF",
                              L"\xFFFF",
                              L"\xD83C\xDDE9\xD83C\xDDEA",
                              L"12",
                              L"\x0E01\x0E33",
                              L"\x0915\x094D\x0937",
                              L"\x1",
                              L"\x7F",
                              L"\x3042\x4E2D",
                              L"\xAC00\x11A8",
                              L"\xDF",
                              L"\x130"};

// Null-terminated, which is not counted.
Characters FieldWorld::AnyCharacters(Source& source) const
{
    Characters text;
    for (UINT n = source.Below(source.Chance(6) ? 200 : 6); n > 0; --n) {
        const LPCWSTR psz = source.Any(std::span<const LPCWSTR>(PIECES));
        text.insert(text.end(), psz, psz + wcslen(psz));
    }
    if (source.Chance(40)) {
        text.insert(text.end(), 2000, L'\x0301');
    }
    if (m_plain.now.text.size() > LONG_ENOUGH) {
        text.clear();
    }
    text.push_back(0);
    return text;
}

void FieldWorld::SendChar(Source& source)
{
    const wchar_t ch =
        source.Chance(4) ? static_cast<wchar_t>(source.Next()) : static_cast<wchar_t>(source.Below(140));
    source.Note(std::to_string(ch));
    Send(WM_CHAR, static_cast<WPARAM>(ch), 1);
    if (ch == VK_BACK) {
        BackspaceOne(false);
    } else if (ch == VK_TAB || ch == VK_RETURN || ch == L'\n') {
        if (Has(ES_MULTILINE)) {
            TypeOne(ch == VK_TAB ? ch : L'\r');
        }
    } else if (ch >= L' ' && ch != 127) {
        TypeOne(ch);
    }
}

void FieldWorld::TypeWords(Source& source)
{
    static constexpr const char* TEXTS[] = {"a",        "one two",         "x y ", "\xF0\x9F\x98\x80",
                                            "\xCC\x81", "\xD7\x90\xD7\x91"};
    const char* const psz = source.Any(std::span<const char* const>(TEXTS));
    source.Note(psz);
    SetFocus(m_edit);
    user::TypeText(psz);
    desk::Pump();
    Characters text(16);
    const int n = MultiByteToWideChar(CP_UTF8, 0, psz, -1, text.data(), 16);
    for (int i = 0; i + 1 < n; ++i) {
        TypeOne(text[static_cast<size_t>(i)]);
    }
}

// Keys that move, or scroll.
void FieldWorld::UseKey(Source& source)
{
    static constexpr UINT KEYS[] = {VK_LEFT, VK_RIGHT, VK_UP,   VK_DOWN, VK_HOME,
                                    VK_END,  VK_PRIOR, VK_NEXT, 'A',     'C'};
    const UINT vk = source.Any(std::span<const UINT>(KEYS));
    const bool fControl = vk == 'A' || vk == 'C' || source.Chance(3);
    const bool fShift = vk != 'A' && vk != 'C' && source.Chance(2);
    source.Note(std::to_string(vk) + (fControl ? " Ctrl" : "") + (fShift ? " Shift" : ""));
    SetFocus(m_edit);
    if (fControl) {
        user::PressKey(VK_CONTROL);
    }
    user::TypeKey(vk, {fShift ? UINT{VK_SHIFT} : UINT{VK_F15}});
    if (fControl) {
        user::ReleaseKey(VK_CONTROL);
    }
    desk::Pump();
    const bool fScrolls = fControl && Has(ES_MULTILINE) && (vk == VK_UP || vk == VK_DOWN);
    const bool fNothing = !Has(ES_MULTILINE) && (vk == VK_PRIOR || vk == VK_NEXT);
    if (vk == 'A') {
        m_plain.Select(0, PlainText().Length());
    } else if (vk != 'C' && !fScrolls && !fNothing) {
        FollowMove(fShift);
    }
}

void FieldWorld::RemoveByKey(Source& source)
{
    const bool fBack = source.Flag();
    const bool fWord = source.Chance(4);
    SetFocus(m_edit);
    for (UINT n = 1 + source.Below(6); n > 0; --n) {
        const UINT vk = fBack ? VK_BACK : VK_DELETE;
        fWord ? user::TypeKey(vk, {VK_CONTROL}) : user::TypeKey(vk);
        desk::Pump();
        fBack ? BackspaceOne(fWord) : DeleteOne(fWord);
    }
}

void FieldWorld::SetSelection(Source& source)
{
    const UINT nLength = PlainText().Length();
    const bool fOdd = source.Chance(6);
    const int nStart = fOdd ? source.Integer() : static_cast<int>(source.Below(nLength + 1));
    const int nEnd = fOdd               ? source.Integer()
                     : source.Chance(2) ? nStart
                                        : static_cast<int>(source.Below(nLength + 1));
    source.Note(std::to_string(nStart) + "," + std::to_string(nEnd));
    Send(EM_SETSEL, static_cast<WPARAM>(nStart), nEnd);
    if (nStart < 0) {
        m_plain.Select(m_plain.now.nCaret, m_plain.now.nCaret);
    } else {
        m_plain.Select(static_cast<UINT>(nStart), nEnd < 0 ? nLength : static_cast<UINT>(nEnd));
    }
    if (source.Chance(2)) {
        Send(EM_SCROLLCARET);
    }
}

void FieldWorld::ReplaceSelection(Source& source)
{
    Characters text = AnyCharacters(source);
    const bool fCanUndo = !source.Chance(30);
    if (source.Flag()) {
        SendText(EM_REPLACESEL, fCanUndo, text);
    } else {
        m_edit.ReplaceSel(text.data(), fCanUndo);
    }
    text.pop_back();
    Insert(text, EditKind::Step, fCanUndo, true);
}

void FieldWorld::SetText(Source& source)
{
    Characters text = AnyCharacters(source);
    source.Flag() ? static_cast<void>(m_edit.SetText(text.data()))
                  : static_cast<void>(SendText(WM_SETTEXT, 0, text));
    text.pop_back();
    StartAnew(text);
}

// The clipboard may fail, and its former owner may change the field.
void FieldWorld::UseClipboard(Source& source)
{
    static constexpr const char* FAILING[] = {"OpenClipboard", "SetClipboardData", "GetClipboardData",
                                              "GlobalAlloc", "GlobalLock"};
    static constexpr const char* TEXTS[] = {"", "clip", "two\r\nlines\n", "\xF0\x9F\x98\x80 and \xD7\x90"};
    if (source.Chance(3)) {
        simulated::SetClipboardText(source.Any(std::span<const char* const>(TEXTS)));
    }
    if (source.Chance(4) && OpenClipboard(m_hwndOwner)) {
        EmptyClipboard();
        CloseClipboard();
        m_nMeanwhile = source.Next();
    }
    static constexpr UINT MESSAGES[] = {WM_COPY, WM_CUT, WM_PASTE, WM_CLEAR};
    const UINT uMsg = source.Any(std::span<const UINT>(MESSAGES));
    const bool fCuts = uMsg == WM_CUT && MayChange() && !IsMasked() && Selected().Length() > 0;
    const TextRange selected = Selected();
    const Characters taken = SelectedText();
    const Characters clip = ClipboardNow();
    const bool fFails = source.Chance(5);
    if (fFails) {
        simulated::Fail(source.Any(std::span<const char* const>(FAILING)), 1, ERROR_NOT_ENOUGH_MEMORY, 0);
    }
    Send(uMsg);
    m_nMeanwhile = 0;
    desk::ClearFaults();
    if (fFails && Check().empty()) {
        return; // nothing came of it
    }
    if (fCuts && fFails && ClipboardNow() != taken) {
        m_fault = "what was cut is lost";
    }
    if (fCuts) {
        // What the clipboard's former owner has changed meanwhile stays.
        if (Selected() == selected && SelectedText() == taken) {
            Remove(selected, EditKind::Step);
        }
    } else if (uMsg == WM_PASTE && MayChange() && !clip.empty()) {
        Insert(clip, EditKind::Step);
    } else if (uMsg == WM_CLEAR) {
        Remove(Selected(), EditKind::Step);
    }
}

Characters FieldWorld::ClipboardNow() const
{
    Characters text;
    if (OpenClipboard(m_hwndOwner)) {
        const HGLOBAL hText = GetClipboardData(CF_UNICODETEXT);
        if (const auto* psz = hText ? static_cast<LPCWSTR>(GlobalLock(hText)) : nullptr) {
            text.assign(psz, psz + wcslen(psz));
            GlobalUnlock(hText);
        }
        CloseClipboard();
    }
    return text;
}

void FieldWorld::UndoOrRedo(Source& source)
{
    for (UINT n = 1 + source.Below(4); n > 0; --n) {
        const bool fUndo = !source.Chance(3);
        bool fDone = false;
        bool fAsked = true;
        switch (source.Below(3)) {
        case 0: fDone = fUndo ? Send(EM_UNDO) != 0 : m_edit.Redo(); break;
        case 1: fDone = fUndo ? Send(WM_UNDO) != 0 : m_edit.Redo(); break;
        default:
            SetFocus(m_edit);
            fAsked = false;
            fDone = MayChange() && (fUndo ? m_plain.CanUndo() : m_plain.CanRedo());
            user::TypeKey(fUndo ? 'Z' : 'Y', {VK_CONTROL});
            desk::Pump();
        }
        const bool fPlain = MayChange() && (fUndo ? m_plain.Undo() : m_plain.Redo());
        m_fModified |= fPlain;
        const bool fSaysSo = fAsked && fUndo && !Has(ES_MULTILINE); // whether there was one or not
        if (!fSaysSo && fDone != fPlain) {
            Find("a step back or forth that was none");
        }
    }
}

void FieldWorld::TakeAllBack(Source& source)
{
    if (!MayChange()) {
        return;
    }
    while (m_fault.empty() && Send(EM_CANUNDO)) {
        if (!Send(EM_UNDO) || !m_plain.Undo()) {
            Find("a step more than there are");
        }
        m_fModified = true;
        Find(Check());
    }
    if (source.Flag()) {
        Send(EM_EMPTYUNDOBUFFER);
        m_plain.EmptyUndo();
    }
}

POINT FieldWorld::PointAt(UINT n)
{
    const LRESULT lPoint = Send(EM_POSFROMCHAR, n);
    POINT pt{static_cast<SHORT>(LOWORD(lPoint)), static_cast<SHORT>(HIWORD(lPoint))};
    ClientToScreen(m_edit, &pt);
    return pt;
}

// With nothing selected, so that a press drags no text away.
void FieldWorld::UseMouse(Source& source)
{
    Send(EM_SETSEL, static_cast<WPARAM>(-1), 0);
    m_plain.Select(m_plain.now.nCaret, m_plain.now.nCaret);
    RECT rc{};
    GetWindowRect(m_edit, &rc);
    const auto any = [&source](LONG nFrom, LONG nTo) {
        return static_cast<int>(nFrom) - 30 +
               static_cast<int>(source.Below(static_cast<UINT>(nTo - nFrom) + 60));
    };
    const UINT nClicks = 1 + source.Below(3);
    const int x = any(rc.left, rc.right);
    const int y = any(rc.top, rc.bottom);
    user::MoveMouse(x, y);
    for (UINT n = 1; n < nClicks; ++n) {
        desk::PressButton();
        desk::ReleaseButton();
    }
    desk::PressButton();
    desk::Pump();
    for (UINT n = source.Below(4); n > 0; --n) {
        const int xTo = any(rc.left, rc.right);
        user::MoveMouse(xTo, any(rc.top, rc.bottom));
        desk::Pump();
        desk::LetPass(source.Below(200));
    }
    desk::ReleaseButton();
    desk::Pump();
    TakeSelection();
}

// Either end may be the caret: what is set anew is certain. Between the two all is selected, so that what is
// typed next begins a step.
void FieldWorld::TakeSelection()
{
    int nFrom = 0;
    int nTo = 0;
    m_edit.GetSel(&nFrom, &nTo);
    for (const auto& [nStart, nEnd] : {std::pair{0, 0}, {0, m_edit.GetTextLength()}, {nFrom, nTo}}) {
        Send(EM_SETSEL, static_cast<WPARAM>(nStart), nEnd);
        m_plain.Select(static_cast<UINT>(nStart), static_cast<UINT>(nEnd));
    }
}

// The text that is dragged comes to where the selection then begins, or stays.
void FieldWorld::DragAndDrop(Source& source)
{
    const UINT nLength = PlainText().Length();
    const UINT nFirst = m_plain.Snapped(source.Below(nLength + 1));
    const UINT nLast = m_plain.Snapped(std::min(nFirst + 1 + source.Below(30), nLength));
    Send(EM_SETSEL, nFirst, static_cast<LPARAM>(nLast));
    m_plain.Select(nFirst, nLast);
    Send(EM_SCROLLCARET);
    const bool fCopies = source.Chance(3);
    Send(EM_SETMODIFY, FALSE);
    POINT pt = PointAt(nFirst);
    user::MoveMouse(pt.x + 1, pt.y + 1);
    desk::PressButton();
    desk::Pump();
    pt = PointAt(source.Below(nLength + 1));
    user::MoveMouse(pt.x, pt.y + 2);
    desk::Pump();
    if (fCopies) {
        user::PressKey(VK_CONTROL);
    }
    desk::ReleaseButton();
    desk::Pump();
    if (fCopies) {
        user::ReleaseKey(VK_CONTROL);
        desk::Pump();
    }
    // Among its like it may have come to where the text stays the same.
    if (m_edit.IsModified()) {
        FollowDrop({nFirst, nLast}, fCopies);
    } else {
        Send(EM_SETMODIFY, m_fModified);
    }
    TakeSelection();
}

void FieldWorld::FollowDrop(const TextRange& dragged, bool fCopies)
{
    int nStart = 0;
    m_edit.GetSel(&nStart, nullptr);
    const auto nTo = static_cast<UINT>(nStart);
    const Characters text(m_plain.now.text.begin() + dragged.nFrom, m_plain.now.text.begin() + dragged.nTo);
    if (!MayChange() || IsMasked()) {
        Find("dropped where nothing may be changed, or from where nothing may be seen");
        return;
    }
    if (fCopies) {
        InsertAt({nTo, nTo}, text, EditKind::Dropping);
        return;
    }
    const UINT nLength = dragged.Length();
    const UINT nAt = nTo < dragged.nFrom ? nTo : nTo + nLength;
    const UINT nGone = nAt < dragged.nFrom ? dragged.nFrom + nLength : dragged.nFrom;
    m_plain.Hold(true);
    Change({nAt, nAt}, text, EditKind::Step);
    Change({nGone, nGone + nLength}, {}, EditKind::Step);
    m_plain.Select(nTo, nTo + nLength);
    m_plain.Hold(false);
}

// What is said of a line is the text's.
void FieldWorld::AskForLines(Source& source)
{
    const UINT n = source.Below(PlainText().Length() + 1);
    const LRESULT nLine = Send(EM_LINEFROMCHAR, n);
    const LRESULT nStart = Send(EM_LINEINDEX, static_cast<WPARAM>(nLine));
    const LRESULT nLength = Send(EM_LINELENGTH, static_cast<WPARAM>(nStart));
    Characters line(PlainText().Length() + 2);
    line[0] = static_cast<wchar_t>(line.size());
    const LRESULT nCopied =
        Send(EM_GETLINE, static_cast<WPARAM>(nLine), reinterpret_cast<LPARAM>(line.data()));
    if (nLine < 0 || nLine >= Send(EM_GETLINECOUNT) || nStart < 0 || nStart > static_cast<LRESULT>(n) ||
        nCopied != nLength || nStart + nLength > static_cast<LRESULT>(PlainText().Length()) ||
        !std::equal(line.begin(), line.begin() + nCopied, m_plain.now.text.begin() + nStart))
    {
        Find("a line that is not the text's");
    }
}

// Messages that change neither text nor selection, with any arguments.
void FieldWorld::SendAnyNumbers(Source& source)
{
    static constexpr UINT MESSAGES[] = {
        EM_LINEFROMCHAR,        EM_LINEINDEX,       EM_LINELENGTH, EM_CHARFROMPOS,
        EM_POSFROMCHAR,         EM_SCROLLCARET,     EM_LINESCROLL, EM_SCROLL,
        EM_GETFIRSTVISIBLELINE, EM_SETMARGINS,      EM_GETMARGINS, EM_FMTLINES,
        EM_GETLIMITTEXT,        EM_GETPASSWORDCHAR, WM_VSCROLL,    WM_HSCROLL,
        WM_MOUSEWHEEL,          WM_MOUSEHWHEEL,     WM_TIMER,      WM_GETDLGCODE,
        EM_GETLINECOUNT,        EM_GETMODIFY,       WM_SETREDRAW};
    const UINT uMsg = source.Any(std::span<const UINT>(MESSAGES));
    const WPARAM wParam = source.Number();
    source.Note(desk::MessageName(uMsg));
    Send(uMsg, wParam,
         uMsg == WM_GETDLGCODE || uMsg == WM_VSCROLL || uMsg == WM_HSCROLL ? 0 : source.Integer());
    if (uMsg == WM_SETREDRAW) {
        Send(WM_SETREDRAW, TRUE);
    }
    RECT rc{};
    Send(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&rc));
    UINT aStops[3] = {source.Number(), source.Number(), source.Number()};
    if (source.Chance(6)) {
        Send(EM_SETTABSTOPS, source.Below(4), reinterpret_cast<LPARAM>(aStops));
    }
}

void FieldWorld::Limit(Source& source)
{
    const UINT n = source.Chance(3) ? source.Number() : source.Chance(2) ? 0 : source.Below(400);
    Send(EM_LIMITTEXT, n);
    m_nLimit = n == 0 || n > MOST ? MOST : n;
    if (source.Chance(3)) {
        Send(EM_SETMODIFY, FALSE);
        m_fModified = false;
    }
}

void FieldWorld::SetCue(Source& source)
{
    const Text text = source.AnyText();
    Send(EM_SETCUEBANNER, source.Flag(), reinterpret_cast<LPARAM>(static_cast<LPCWSTR>(text)));
    std::vector<wchar_t> cue(source.Count(40));
    Send(EM_GETCUEBANNER, reinterpret_cast<WPARAM>(cue.data()), static_cast<LPARAM>(cue.size()));
}

// What the field is like, and when it shows.
void FieldWorld::ChangeField(Source& source)
{
    switch (source.Below(9)) {
    case 7: Send(EM_SETPASSWORDCHAR, source.Chance(2) ? 0 : source.Next() & 0xFFFF); break;
    case 8: SetCue(source); break;
    case 0: Send(EM_SETREADONLY, source.Chance(3)); break;
    case 1:
        SetWindowPos(m_edit, nullptr, 0, 0, static_cast<int>(source.Below(300)),
                     static_cast<int>(source.Below(200)), SWP_NOMOVE | SWP_NOZORDER);
        break;
    case 2:
        SetWindowPos(m_edit, nullptr, 0, 0, source.Size(), source.Size(), SWP_NOMOVE | SWP_NOZORDER);
        break;
    case 3: Send(WM_SETFONT, reinterpret_cast<WPARAM>(AnyFont(source)), source.Flag()); break;
    case 4: RedrawWindow(m_edit, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); break;
    case 5: desk::LetPass(source.Below(3000)); break;
    default:
        if (Has(ES_MULTILINE)) {
            SetWindowLongW(m_edit, GWL_STYLE, GetWindowLongW(m_edit, GWL_STYLE) ^ ES_AUTOHSCROLL);
        }
    }
}

void FieldWorld::FindSome(Source& source)
{
    Characters text = AnyCharacters(source);
    const UINT uFlags = source.Below(8);
    const int nFound = m_edit.Find(text.data(), source.Integer(), uFlags);
    const auto n = static_cast<std::ptrdiff_t>(text.size()) - 1;
    if (nFound >= 0 && (uFlags & GEF_CASE) &&
        (nFound + n > static_cast<std::ptrdiff_t>(m_plain.now.text.size()) ||
         !std::equal(text.begin(), text.end() - 1, m_plain.now.text.begin() + nFound)))
    {
        Find("found where it is not");
    }
}

// What is composed is no part of the text before it is accepted, whatever happens to the field meanwhile.
void FieldWorld::Compose(Source& source)
{
    static constexpr void (FieldWorld::*MEANWHILE[])(Source&) = {
        &FieldWorld::SetSelection, &FieldWorld::ReplaceSelection, &FieldWorld::UndoOrRedo,
        &FieldWorld::ChangeField,  &FieldWorld::SendAnyNumbers,   &FieldWorld::SetText};
    SetFocus(m_edit);
    const HIMC himc = ImmGetContext(m_edit);
    if (IsMasked()) {
        Find(himc ? "a secret that an input method reaches" : "");
        return;
    }
    Characters text;
    for (UINT n = 1 + source.Below(3); n > 0; --n) {
        text = AnyCharacters(source);
        text.pop_back();
        const auto cb = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        ImmSetCompositionStringW(himc, SCS_SETSTR, text.data(), cb, nullptr, 0);
        desk::Pump();
        Find(Check());
        if (!MayCompose()) {
            text.clear(); // refused
        }
        if (source.Chance(2)) {
            const auto pfn = MEANWHILE[source.Below(static_cast<UINT>(std::size(MEANWHILE)))];
            (this->*pfn)(source);
            if (pfn == &FieldWorld::SetText || IsMasked()) {
                text.clear(); // taken back
            }
            Find(Check());
        }
        if (IsMasked()) {
            ImmNotifyIME(himc, NI_COMPOSITIONSTR, CPS_CANCEL, 0);
            break;
        }
    }
    const UINT nEnd = source.Below(4);
    source.Note("end " + std::to_string(nEnd));
    switch (nEnd) {
    case 0: ImmNotifyIME(himc, NI_COMPOSITIONSTR, CPS_CANCEL, 0); break;
    case 1: user::TypeKey(VK_ESCAPE); break;
    case 2: SetFocus(Host()); break;
    default: ImmNotifyIME(himc, NI_COMPOSITIONSTR, CPS_COMPLETE, 0); break;
    }
    ImmReleaseContext(m_edit, himc);
    desk::Pump();
    if (nEnd >= 2 && MayChange() && !text.empty()) {
        Insert(text, EditKind::Step);
    }
    SetFocus(m_edit);
}

// Characters that it sends itself, and what it asks: where its windows go, and what to convert again.
void FieldWorld::AskAsInputMethod(Source& source)
{
    COMPOSITIONFORM composition{};
    CANDIDATEFORM candidates{};
    const auto ask = [&](UINT uWhat, const void* p) {
        return Send(WM_IME_REQUEST, uWhat, reinterpret_cast<LPARAM>(p));
    };
    switch (source.Below(5)) {
    case 0: ask(IMR_COMPOSITIONWINDOW, source.Chance(4) ? nullptr : &composition); break;
    case 1: ask(IMR_CANDIDATEWINDOW, source.Chance(4) ? nullptr : &candidates); break;
    case 2: ask(source.Below(9), nullptr); break;
    case 3: {
        const auto ch = static_cast<wchar_t>(' ' + source.Below(90));
        Send(WM_IME_CHAR, static_cast<WPARAM>(ch), 1);
        desk::Pump();
        TypeOne(ch);
        return;
    }
    default: {
        const auto cbAll = static_cast<size_t>(ask(IMR_RECONVERTSTRING, nullptr));
        const size_t cb = source.Chance(3) ? source.Below(static_cast<UINT>(cbAll) + 1) : cbAll;
        std::vector<DWORD> block(std::max(cb, sizeof(RECONVERTSTRING)) / sizeof(DWORD) + 1);
        block[0] = static_cast<DWORD>(cb);
        ask(IMR_RECONVERTSTRING, block.data());
    }
    }
    TakeSelection(); // a word is selected to be converted
}

// All or nothing, of a text that is long beside what painting takes.
void FieldWorld::RunOutOfMemory(Source& source)
{
    constexpr UINT LONG_TEXT = 20000;
    Characters text(LONG_TEXT, static_cast<wchar_t>(L'a' + source.Below(26)));
    text.push_back(0);
    const Characters former = FieldText();
    const bool fWhole = source.Chance(3);
    simulated::ClearDrawing(m_edit);
    {
        const test::MemoryLimit limit(30000 + source.Below(60000));
        fWhole ? static_cast<void>(m_edit.SetText(text.data())) : m_edit.ReplaceSel(text.data(), true);
    }
    const bool fDone = FieldText() != former;
    text.pop_back();
    if (fDone && fWhole) {
        StartAnew(text);
    } else if (fDone) {
        Insert(text, EditKind::Step, true, true);
    }
    Find(Check());
    if (fDone && fWhole) {
        SetText(source);
    } else if (fDone) {
        UndoOrRedo(source);
    }
}

const Table& FieldWorld::Operations()
{
    using Self = FieldWorld;
    static const auto of = [](const char* pszName, void (Self::*pfn)(Source&), UINT nWeight) {
        return Often(nWeight,
                     Plain<Self>(pszName, [pfn](Self& self, Source& source) { (self.*pfn)(source); }));
    };
    static const Table TABLE{of("SendChar", &Self::SendChar, 10),
                             of("TypeWords", &Self::TypeWords, 10),
                             of("UseKey", &Self::UseKey, 12),
                             of("RemoveByKey", &Self::RemoveByKey, 8),
                             of("SetSelection", &Self::SetSelection, 8),
                             of("ReplaceSelection", &Self::ReplaceSelection, 8),
                             of("SetText", &Self::SetText, 1),
                             of("UseClipboard", &Self::UseClipboard, 6),
                             of("UndoOrRedo", &Self::UndoOrRedo, 6),
                             of("TakeAllBack", &Self::TakeAllBack, 1),
                             of("UseMouse", &Self::UseMouse, 4),
                             of("DragAndDrop", &Self::DragAndDrop, 3),
                             of("AskForLines", &Self::AskForLines, 3),
                             of("SendAnyNumbers", &Self::SendAnyNumbers, 6),
                             of("Limit", &Self::Limit, 1),
                             of("ChangeField", &Self::ChangeField, 5),
                             of("Compose", &Self::Compose, 4),
                             of("AskAsInputMethod", &Self::AskAsInputMethod, 3),
                             of("RunOutOfMemory", &Self::RunOutOfMemory, 1),
                             of("FindSome", &Self::FindSome, 1)};
    return TABLE;
}

} // namespace

void AddFields(std::vector<AttackedClass>& classes)
{
    classes.push_back(OfWorld<FieldWorld>("field"));
}

} // namespace attack
