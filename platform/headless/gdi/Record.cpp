#include "Record.h"

#include "../core/TableLock.h"
#include "../core/Text.h"
#include "FontMetrics.h"

#include <cstdio>
#include <unordered_map>

namespace gesso::headless {
namespace {

using Drawings = std::unordered_map<HWND, std::vector<std::string>>;

Drawings& WindowDrawings()
{
    static Drawings s_drawings;
    return s_drawings;
}

std::string Rgb(COLORREF color)
{
    char text[8];
    snprintf(text, sizeof(text), "%02X%02X%02X", GetRValue(color), GetGValue(color), GetBValue(color));
    return text;
}

std::string Tuple(std::initializer_list<LONG> numbers)
{
    std::string out;
    for (const LONG number : numbers) {
        out += out.empty() ? '(' : ',';
        out += std::to_string(number);
    }
    out += ')';
    return out;
}

std::string Tuple(const RECT& r)
{
    return Tuple({r.left, r.top, r.right, r.bottom});
}

std::string Tuple(POINT p)
{
    return Tuple({p.x, p.y});
}

std::string Quoted(std::string_view text)
{
    std::string out = "\"";
    for (const char c : text) {
        switch (c) {
        case '\r': out += "\\r"; break;
        case '\n': out += "\\n"; break;
        case '\t': out += "\\t"; break;
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        default: out += c; break;
        }
    }
    out += '"';
    return out;
}

std::string Describe(const LOGFONTW& font)
{
    std::string out = Quoted(ToUtf8(View(font.lfFaceName)));
    out += ' ';
    out += std::to_string(MeasureFont(font).em);
    const bool light = font.lfWeight != FW_DONTCARE && font.lfWeight < FW_NORMAL;
    out += font.lfWeight >= FW_SEMIBOLD ? " bold" : light ? " light" : "";
    out += font.lfItalic ? " italic" : "";
    out += font.lfUnderline ? " underline" : "";
    return out + (font.lfStrikeOut ? " strikeout" : "");
}

const char* PenStyle(UINT style)
{
    static constexpr const char* STYLES[] = {"solid", "dash", "dot", "dashdot", "dashdotdot", "null"};
    return style < std::size(STYLES) ? STYLES[style] : "other";
}

} // namespace

std::vector<std::string>* DrawingOf(Context& context)
{
    if (!context.IsMemory()) {
        const TableLock lock;
        return &WindowDrawings()[context.window];
    }
    // All new memory contexts share the default bitmap, which shows nothing.
    auto* bitmap = Find<Bitmap>(context.state.bitmap);
    return bitmap && !bitmap->stock ? &bitmap->drawing : nullptr;
}

void JoinDrawing(HDC to, HDC from)
{
    const TableLock lock;
    auto* target = Find<Context>(to);
    auto* source = Find<Context>(from);
    auto* lines = target ? DrawingOf(*target) : nullptr;
    const auto* bitmap = source ? Find<Bitmap>(source->state.bitmap) : nullptr;
    if (lines && bitmap && lines != &bitmap->drawing) {
        lines->insert(lines->end(), bitmap->drawing.begin(), bitmap->drawing.end());
    }
}

Line::Line(HDC hdc, std::string_view operation) : m_context(Find<Context>(hdc)), m_text(operation) {}

Line::~Line()
{
    const TableLock lock;
    auto* lines = m_context ? DrawingOf(*m_context) : nullptr;
    if (lines) {
        PutContextState();
        lines->push_back(std::move(m_text));
    }
}

// What of the context decides where the operation shows: the moved origin, the clipping, the whole window,
// and whether it counts from the right.
void Line::PutContextState()
{
    const POINT origin = m_context->ToDevice(POINT{});
    if (origin.x != 0 || origin.y != 0) {
        Word("origin=" + Tuple(origin));
    }
    if (m_context->state.clip) {
        Word("clip=");
        for (const RECT& rect : m_context->state.clip->Rects()) {
            m_text += Tuple(rect);
        }
    }
    if (m_context->wholeWindow) {
        Word("nonclient");
    }
    if (m_context->IsMirrored()) {
        Word("mirrored");
    }
}

Line& Line::Word(std::string_view word)
{
    m_text += ' ';
    m_text += word;
    return *this;
}

Line& Line::Number(int number)
{
    return Word(std::to_string(number));
}

Line& Line::Hex(UINT number)
{
    char text[16];
    snprintf(text, sizeof(text), "0x%04X", number);
    return Word(text);
}

Line& Line::Put(POINT point)
{
    return Word(Tuple(point));
}

Line& Line::Put(const RECT& rect)
{
    return Word(Tuple(rect));
}

Line& Line::Text(LPCWSTR text, int length)
{
    const WideView view =
        length < 0 ? View(text)
                   : WideView(reinterpret_cast<const char16_t*>(text), static_cast<size_t>(length));
    return Word(Quoted(ToUtf8(view)));
}

Line& Line::Color(std::string_view name, COLORREF color)
{
    return Word(std::string(name) + "=" + Rgb(color));
}

Line& Line::Put(HBRUSH handle)
{
    const auto* brush = Find<Brush>(handle);
    if (!brush) {
        return Word("brush=?");
    }
    if (brush->systemColor >= 0) {
        Word("brush=sys" + std::to_string(brush->systemColor));
        return Word(Rgb(GetSysColor(brush->systemColor)));
    }
    if (m_context && handle == GetStockObject(DC_BRUSH)) {
        return Color("brush", m_context->state.brushColor);
    }
    switch (brush->log.lbStyle) {
    case BS_SOLID: return Color("brush", brush->log.lbColor);
    case BS_NULL: return Word("brush=null");
    default: return Word("brush=pattern");
    }
}

Line& Line::SelectedPen()
{
    const auto* pen = m_context ? Find<Pen>(m_context->state.pen) : nullptr;
    if (!pen) {
        return Word("pen=?");
    }
    Word(std::string("pen=") + PenStyle(pen->log.lopnStyle));
    Number(std::max<int>(pen->log.lopnWidth.x, 1));
    return Word(Rgb(pen->log.lopnColor));
}

Line& Line::SelectedBrush()
{
    return Put(m_context ? m_context->state.brush : nullptr);
}

Line& Line::TextState()
{
    return TextState(m_context ? m_context->state.textColor : 0);
}

Line& Line::TextState(COLORREF color)
{
    const auto* font = m_context ? Find<Font>(m_context->state.font) : nullptr;
    Word("font=" + (font ? Describe(font->log) : std::string("?")));
    Color("color", color);
    if (m_context && m_context->state.backMode == OPAQUE) {
        Color("back", m_context->state.backColor);
    }
    return *this;
}

std::vector<std::string> Drawing(HWND hwnd)
{
    const TableLock lock;
    const auto found = WindowDrawings().find(hwnd);
    return found != WindowDrawings().end() ? found->second : std::vector<std::string>();
}

void ClearDrawing(HWND hwnd)
{
    const TableLock lock;
    WindowDrawings().erase(hwnd);
}

} // namespace gesso::headless
