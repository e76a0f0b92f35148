#include "DialogTemplate.h"

namespace test {
namespace {

constexpr size_t COUNT_AT = 8; // in words: version, signature, help id, extended style and style stand before

} // namespace

void DialogTemplate::Double(DWORD dw)
{
    Word(LOWORD(dw));
    Word(HIWORD(dw));
}

void DialogTemplate::Text(LPCWSTR psz)
{
    do {
        Word(static_cast<WORD>(*psz));
    } while (*psz++);
}

DialogTemplate::DialogTemplate(DWORD dwStyle, SHORT cx, SHORT cy)
{
    Word(1);
    Word(0xFFFF);
    Double(0);
    Double(0);
    Double(dwStyle);
    Word(0); // the count of items
    for (const SHORT n : {SHORT{10}, SHORT{10}, cx, cy}) {
        Word(static_cast<WORD>(n));
    }
    Word(0); // no menu
    Word(0); // the dialog's own class
    Text(L"Test");
}

void DialogTemplate::Item(LPCWSTR pszClass, DWORD dwId, DWORD dwStyle, SHORT x, SHORT y, SHORT cx, SHORT cy)
{
    ++m_words[COUNT_AT];
    if (m_words.size() % 2) {
        Word(0);
    }
    Double(0);
    Double(0);
    Double(WS_CHILD | WS_VISIBLE | dwStyle);
    for (const SHORT n : {x, y, cx, cy}) {
        Word(static_cast<WORD>(n));
    }
    Double(dwId);
    Text(pszClass);
    Word(0); // no title
}

DialogTemplate& DialogTemplate::Add(LPCWSTR pszClass, DWORD dwId, DWORD dwStyle, SHORT x, SHORT y, SHORT cx,
                                    SHORT cy, LPCWSTR pszText)
{
    Item(pszClass, dwId, dwStyle, x, y, cx, cy);
    const size_t nAt = m_words.size();
    Word(0);
    Text(pszText);
    m_words[nAt] = static_cast<WORD>((m_words.size() - nAt - 1) * sizeof(WORD));
    return *this;
}

DialogTemplate& DialogTemplate::AddBare(LPCWSTR pszClass, DWORD dwId, DWORD dwStyle, SHORT x, SHORT y,
                                        SHORT cx, SHORT cy)
{
    Item(pszClass, dwId, dwStyle, x, y, cx, cy);
    Word(0);
    return *this;
}

} // namespace test
