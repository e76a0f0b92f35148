// The combo boxes of the entry page: the three kinds, with a count of what they report.
#pragma once

#include <gallery/Canvas.h>
#include <gallery/Exhibit.h>

#include <map>

namespace gallery {

class EntryCombos
{
public:
    // Returns where the next block below starts.
    int Build(Canvas& canvas, POINT pt);
    // Counts what the combo boxes report.
    void OnCommand(UINT uCode, HWND hwndFrom);
    // The first one with its list open.
    Exhibit OpenList() const;

private:
    GComboBox& Add(Grid& grid, LPCWSTR pszCaption, DWORD dwStyle, DWORD dwExStyle = 0);
    void AddPlatformField(Grid& grid) const;
    void ShowCounts();

    Canvas* m_pCanvas = nullptr;
    std::vector<GComboBox*> m_combos;
    GLabel* m_pCounts = nullptr;
    std::map<UINT, int> m_counts; // by the code
};

} // namespace gallery
