// The edit fields of the entry page: one line, a long file, and lines of both directions, with a count of
// what they report.
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
    int BuildFile(POINT pt);
    int BuildSeveralLines(POINT pt);
    GEdit& Add(const RECT& rc, LPCWSTR pszText, DWORD dwStyle);
    void Wrap(bool fWrap) const;
    void ShowCount() const;

    Canvas* m_pCanvas = nullptr;
    std::vector<GEdit*> m_edits;
    GEdit* m_pFile = nullptr;
    GCheckBox* m_pWrap = nullptr;
    GLabel* m_pCount = nullptr;
    int m_nChanges = 0;
};

} // namespace gallery
