// What a window shows after a paint, worked out from its drawing record: the pixels that were filled, and the
// texts with what they stand on.
#pragma once

#include "../FreshDesktop.h"

#include <map>
#include <string>
#include <vector>

namespace test {

// WCAG's ratio of two shades, from 1 to 21.
double Contrast(COLORREF a, COLORREF b);

constexpr COLORREF UNPAINTED = CLR_INVALID;

class Picture
{
public:
    struct Text
    {
        std::string line; // of the record
        COLORREF cr;
        std::map<COLORREF, int> ground; // how many pixels of which shade it stands on
    };

    // Paints the window with its frame. What shows its parent through shows what the parent answers.
    explicit Picture(HWND hwnd);
    // What lines of a record show at a size.
    Picture(SIZE size, const Lines& lines);

    COLORREF At(int x, int y) const; // of the whole window
    int Width() const { return m_size.cx; }
    int Height() const { return m_size.cy; }
    const std::vector<Text>& Texts() const { return m_texts; }
    std::map<COLORREF, int> Shades(const RECT& rc) const;
    bool operator==(const Picture& other) const { return m_pixels == other.m_pixels; }

private:
    void Replay(const Lines& lines, POINT ptOrigin);
    void Fill(const std::string& line, POINT ptOrigin);
    void FillPart(const RECT& rc, COLORREF cr);
    void DrawLine(const std::string& line, POINT ptOrigin);
    void Write(const std::string& line, POINT ptOrigin);

    SIZE m_size{};
    std::vector<COLORREF> m_pixels;
    std::vector<Text> m_texts;
};

} // namespace test
