// Dialog templates built in memory, as a resource compiler would lay them out.
#pragma once

#include <platform/platform.h>

#include <span>
#include <vector>

namespace test {

// A visible control; its place is in dialog units.
struct DialogItem
{
    DWORD dwStyle;
    WORD wId;
    LPCWSTR pszClass;
    LPCWSTR pszTitle;
    std::vector<BYTE> data{}; // for its creation
    DWORD dwExStyle = 0;
    SHORT x = 4, y = 8, cx = 40, cy = 16;
};

class DialogTemplate
{
public:
    // A popup dialog at (10, 10) in the extended form (DLGTEMPLATEEX), or in the plain one; sizes in dialog
    // units. With DS_SETFONT its font is a "Segoe UI" of 9 points, bold in the extended form.
    DialogTemplate(DWORD dwStyle, SHORT cx, SHORT cy, bool fExtended = true);

    DialogTemplate& Add(const DialogItem& item);
    // Adds a control of a named class, with creation data that holds the text, as a library control wants it.
    DialogTemplate& Add(LPCWSTR pszClass, WORD wId, DWORD dwStyle, SHORT x, SHORT y, SHORT cx, SHORT cy,
                        LPCWSTR pszText);
    // The same without creation data.
    DialogTemplate& AddBare(LPCWSTR pszClass, WORD wId, DWORD dwStyle, SHORT x, SHORT y, SHORT cx, SHORT cy)
    {
        return Add({dwStyle, wId, pszClass, L"", {}, 0, x, y, cx, cy});
    }

    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_bytes.data()); }
    std::span<const std::byte> Bytes() const { return std::as_bytes(std::span(m_bytes)); }

private:
    template <class T> void Put(T value);
    void PutText(LPCWSTR psz);
    void PutStyles(DWORD dwStyle, DWORD dwExStyle);

    bool m_fExtended;
    size_t m_nCountAt; // of the count of items
    std::vector<BYTE> m_bytes;
};

} // namespace test
