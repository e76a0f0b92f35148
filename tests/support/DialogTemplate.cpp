#include "DialogTemplate.h"

namespace test {

template <class T> void DialogTemplate::Put(T value)
{
    m_bytes.resize(m_bytes.size() + sizeof(T));
    std::memcpy(&m_bytes[m_bytes.size() - sizeof(T)], &value, sizeof(T));
}

void DialogTemplate::PutText(LPCWSTR psz)
{
    do {
        Put(*psz);
    } while (*psz++);
}

void DialogTemplate::PutStyles(DWORD dwStyle, DWORD dwExStyle)
{
    Put(m_fExtended ? dwExStyle : dwStyle);
    Put(m_fExtended ? dwStyle : dwExStyle);
}

DialogTemplate::DialogTemplate(DWORD dwStyle, SHORT cx, SHORT cy, bool fExtended) : m_fExtended(fExtended)
{
    if (m_fExtended) {
        Put<WORD>(1);
        Put<WORD>(0xFFFF);
        Put<DWORD>(0); // the help id
    }
    PutStyles(dwStyle, 0);
    m_nCountAt = m_bytes.size();
    Put<WORD>(0);
    for (const SHORT n : {SHORT{10}, SHORT{10}, cx, cy}) {
        Put(n);
    }
    Put<WORD>(0); // no menu
    Put<WORD>(0); // the dialog's own class
    PutText(L"Test");
    if (dwStyle & DS_SETFONT) {
        Put<WORD>(9);
        if (m_fExtended) {
            Put<WORD>(FW_BOLD);
            Put<WORD>(0);
        }
        PutText(L"Segoe UI");
    }
}

DialogTemplate& DialogTemplate::Add(const DialogItem& item)
{
    ++m_bytes[m_nCountAt];
    m_bytes.resize((m_bytes.size() + 3) / 4 * 4);
    if (m_fExtended) {
        Put<DWORD>(0);
    }
    PutStyles(WS_CHILD | WS_VISIBLE | item.dwStyle, item.dwExStyle);
    for (const SHORT n : {item.x, item.y, item.cx, item.cy}) {
        Put(n);
    }
    m_fExtended ? Put<DWORD>(item.wId) : Put(item.wId);
    PutText(item.pszClass);
    PutText(item.pszTitle);
    // The plain form counts the size itself, the extended one what follows it.
    const size_t nCounted = item.data.empty() ? 0 : item.data.size() + (m_fExtended ? 0 : sizeof(WORD));
    Put(static_cast<WORD>(nCounted));
    m_bytes.insert(m_bytes.end(), item.data.begin(), item.data.end());
    return *this;
}

DialogTemplate& DialogTemplate::Add(LPCWSTR pszClass, WORD wId, DWORD dwStyle, SHORT x, SHORT y, SHORT cx,
                                    SHORT cy, LPCWSTR pszText)
{
    const auto* pBytes = reinterpret_cast<const BYTE*>(pszText);
    const std::vector<BYTE> data(pBytes, pBytes + (wcslen(pszText) + 1) * sizeof(wchar_t));
    return Add({dwStyle, wId, pszClass, L"", data, 0, x, y, cx, cy});
}

} // namespace test
