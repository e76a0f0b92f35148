#include <gesso/edit/ClipboardText.h>
#include <gesso/framework/Frame.h>

namespace gesso {
namespace {

class OpenedClipboard
{
public:
    explicit OpenedClipboard(HWND hwnd) : m_fOpen(OpenClipboard(hwnd)) {}
    ~OpenedClipboard()
    {
        if (m_fOpen) {
            CloseClipboard();
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    explicit operator bool() const { return m_fOpen; }

private:
    BOOL m_fOpen;
};

HGLOBAL GlobalCopy(LPCWSTR psz, size_t nLength)
{
    const HGLOBAL hText = GlobalAlloc(GMEM_MOVEABLE, (nLength + 1) * sizeof(wchar_t));
    if (auto* p = hText ? static_cast<wchar_t*>(GlobalLock(hText)) : nullptr) {
        std::memcpy(p, psz, nLength * sizeof(wchar_t));
        p[nLength] = 0;
        GlobalUnlock(hText);
        return hText;
    }
    GlobalFree(hText);
    return nullptr;
}

// On success the block is the clipboard's.
bool PutOnClipboard(HWND hwnd, HGLOBAL hText)
{
    const OpenedClipboard clipboard(hwnd);
    return clipboard && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, hText);
}

bool ReadClipboard(HWND hwnd, OStringEx<wchar_t>* pstr)
{
    const OpenedClipboard clipboard(hwnd);
    const HGLOBAL hText = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* psz = hText ? static_cast<LPCWSTR>(GlobalLock(hText)) : nullptr;
    if (!psz) {
        return false;
    }
    // Another program's text need not have its terminator.
    const auto nLength = static_cast<UINT>(wcsnlen(psz, GlobalSize(hText) / sizeof(wchar_t)));
    const bool fCopied = pstr->Insert(0, psz, nLength) >= 0;
    GlobalUnlock(hText);
    return fCopied;
}

} // namespace

bool PutClipboardText(const GWnd& wnd, LPCWSTR psz, UINT nLength)
{
    const HWND hwnd = Frame::Handle(wnd);
    // First of all: emptying the clipboard tells its owner, who may destroy whose text this is.
    const HGLOBAL hText = GlobalCopy(psz, nLength);
    const bool fTaken = hText && PutOnClipboard(hwnd, hText);
    if (hText && !fTaken) {
        GlobalFree(hText);
    }
    return fTaken && Frame::IsAlive(hwnd, &wnd);
}

bool GetClipboardText(const GWnd& wnd, OStringEx<wchar_t>* pstr)
{
    const HWND hwnd = Frame::Handle(wnd);
    return ReadClipboard(hwnd, pstr) && Frame::IsAlive(hwnd, &wnd);
}

} // namespace gesso
