// The edit fields of the entry page: one line, many lines, and the platform's own beside them, with a count
// of what they report.
#pragma once

#include <gallery/Canvas.h>

namespace gallery {

class EntryEdits
{
public:
    void Build(Canvas& canvas, POINT pt);
    // Counts what the edit fields report.
    void OnCommand(UINT uCode, HWND hwndFrom);

private:
    int BuildSingleLines(POINT pt);
    int BuildSeveralLines(POINT pt);
    GEdit& Add(const RECT& rc, LPCWSTR pszText, DWORD dwStyle);
    void ShowCount() const;

    Canvas* m_pCanvas = nullptr;
    std::vector<GEdit*> m_edits;
    GLabel* m_pCount = nullptr;
    int m_nChanges = 0;
};

} // namespace gallery
