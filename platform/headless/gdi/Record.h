// The drawing record: one line for each operation, kept by window or by bitmap.
#pragma once

#include "Context.h"

namespace gesso::headless {

// One line, which goes to where `hdc` draws when it ends.
//     Line(hdc, "FillRect").Put(rect).Put(brush);
class Line
{
public:
    Line(HDC hdc, std::string_view operation);
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    ~Line();

    Line& Word(std::string_view word);
    Line& Number(int number);
    Line& Hex(UINT number);
    Line& Put(POINT point);
    Line& Put(const RECT& rect);
    Line& Size(int x, int y, int cx, int cy) { return Put(Spanned(x, y, cx, cy)); }
    // Quoted, with \r, \n, \t and quotes escaped. A length of -1 runs to the terminator.
    Line& Text(LPCWSTR text, int length);
    Line& Color(std::string_view name, COLORREF color);
    Line& Put(HBRUSH brush);
    Line& SelectedPen();
    Line& SelectedBrush();
    // The selected font, and the text colour of the context or the one given.
    Line& TextState();
    Line& TextState(COLORREF color);

private:
    void PutContextState();

    Context* m_context;
    std::string m_text;
};

// Where `context` draws; null where nothing is kept.
std::vector<std::string>* DrawingOf(Context& context);

// Puts what was drawn into the source of a blit into the record of its target.
void JoinDrawing(HDC to, HDC from);

} // namespace gesso::headless
