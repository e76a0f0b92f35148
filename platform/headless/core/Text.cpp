#include "Text.h"

#include <algorithm>

namespace gesso::headless {
namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

void AppendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

void AppendUtf16(WideText& out, char32_t c)
{
    if (c < 0x10000) {
        out += static_cast<char16_t>(c);
    } else {
        out += static_cast<char16_t>(0xD7C0 + (c >> 10));
        out += static_cast<char16_t>(0xDC00 | (c & 0x3FF));
    }
}

// Takes one character off the front of a text.
char32_t TakeUtf16(WideView& text)
{
    const char16_t first = text[0];
    text.remove_prefix(1);
    const bool high = (first & 0xFC00) == 0xD800;
    if (high && !text.empty() && (text[0] & 0xFC00) == 0xDC00) {
        const char16_t second = text[0];
        text.remove_prefix(1);
        return 0x10000 + ((first & 0x3FFU) << 10) + (second & 0x3FFU);
    }
    return (first & 0xF800) == 0xD800 ? REPLACEMENT : first;
}

char32_t TakeUtf8(std::string_view& text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    text.remove_prefix(1);
    if (first < 0x80) {
        return first;
    }
    const size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    if (more == 0 || text.size() < more) {
        return REPLACEMENT;
    }
    char32_t c = first & (0x3FU >> more);
    for (size_t i = 0; i < more; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80) {
            return REPLACEMENT;
        }
        c = (c << 6) | (next & 0x3FU);
    }
    text.remove_prefix(more);
    return c;
}

char16_t Lower(char16_t c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char16_t>(c + ('a' - 'A')) : c;
}

} // namespace

WideView View(LPCWSTR text)
{
    return text ? WideView(reinterpret_cast<const char16_t*>(text)) : WideView();
}

LPCWSTR Characters(const WideText& text)
{
    return reinterpret_cast<LPCWSTR>(text.c_str());
}

std::string ToUtf8(WideView text)
{
    std::string out;
    while (!text.empty()) {
        AppendUtf8(out, TakeUtf16(text));
    }
    return out;
}

WideText FromUtf8(std::string_view text)
{
    WideText out;
    while (!text.empty()) {
        AppendUtf16(out, TakeUtf8(text));
    }
    return out;
}

int CopyText(WideView text, LPWSTR buffer, int capacity)
{
    if (!buffer || capacity <= 0) {
        return 0;
    }
    const size_t length = std::min(text.size(), static_cast<size_t>(capacity) - 1);
    std::memcpy(buffer, text.data(), length * sizeof(wchar_t));
    buffer[length] = 0;
    return static_cast<int>(length);
}

bool EqualIgnoringCase(WideView a, WideView b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return Lower(x) == Lower(y); });
}

} // namespace gesso::headless
