// Texts in several scripts, wrapped at an edge that the user drags.
#pragma once

#include <gallery/Page.h>
#include <gallery/PaintBox.h>
#include <gallery/PreparedText.h>
#include <gallery/TextSamples.h>

#include <vector>

namespace gallery {

class WrapView : public PaintBox
{
public:
    WrapView(HWND hwndParent, const RECT& rc);
    ~WrapView() override;

    // The edge, with the number of all lines as its id.
    Part Edge() const;

protected:
    void Draw(HDC hdc, const RECT& rc) override;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam) override;

private:
    struct Paragraph
    {
        LPCWSTR pszScript;
        LPCWSTR pszText;
        HFONT hFont;
        PreparedText text;
    };

    void SetWidth(int cx);
    int EdgeX() const;
    bool IsOnEdge(int x) const;
    int DrawParagraph(HDC hdc, int y, Paragraph& paragraph) const;
    void DrawEdge(HDC hdc, int cy) const;

    std::vector<Paragraph> m_paragraphs;
    int m_cx = 0;    // of the texts
    int m_nGrip = 0; // from the edge to where the pointer took hold of it
    bool m_fDragging = false;
};

} // namespace gallery
