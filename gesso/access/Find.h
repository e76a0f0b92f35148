// Finds what a window shows by role and name, and acts on it as a user would: for tests of programs, and for
// any program that wants to know what a screen reader sees.
//
//     const gesso::AccessibleNode save = gesso::FindAccessible(hwnd, gesso::Role::PushButton, L"Save");
//     save.Press();
//
// Nodes belong to the thread of the window that they are of.
#pragma once

#include <gesso/access/Role.h>

#include <memory>
#include <string>

namespace gesso {

class NodeBody;

// A thing that a window shows: a control, an item, a part of one. A counted reference; one without a thing,
// and one whose thing has gone, answers as little as can be: no text, no state, no child, false.
class GESSO_API AccessibleNode
{
public:
    AccessibleNode() noexcept = default;
    AccessibleNode(const AccessibleNode& other) noexcept;
    AccessibleNode& operator=(const AccessibleNode& other) noexcept;
    ~AccessibleNode();

    // Whether there is a thing, which may have gone since.
    explicit operator bool() const noexcept { return m_pBody != nullptr; }

    Role role() const;
    // Each copies what fits into the buffer of so many characters, with a terminator, and returns the length
    // of the whole text without it. The buffer may be null where the capacity is 0.
    UINT GetName(LPWSTR buffer, UINT capacity) const;
    UINT GetValue(LPWSTR buffer, UINT capacity) const;
    UINT GetDescription(LPWSTR buffer, UINT capacity) const;
    // The platform's STATE_SYSTEM_ bits.
    UINT GetState() const;
    // In pixels of the screen; empty where nothing of it is laid out.
    RECT GetRect() const;
    // Items and parts; the windows below are none of them. The index counts from 0; an empty node past the
    // end.
    UINT GetChildCount() const;
    AccessibleNode GetChild(UINT index) const;

    // What a user would do, by the same road as the mouse and keys, notifications included; done when it
    // returns. False where the thing cannot do it, is disabled, or has gone. Press is the default action,
    // whatever that is: press, check, uncheck, expand, collapse, open, close or select.
    bool Press() const;
    bool Select() const;
    bool Expand() const;
    bool Collapse() const;
    bool ScrollIntoView() const;
    // Of text fields: as if the text were typed in the place of what is there. Null counts as empty.
    bool SetValue(LPCWSTR value) const;

    // Takes over one reference. The library's own.
    explicit AccessibleNode(NodeBody* pBody) noexcept : m_pBody(pBody) {}
    const NodeBody* Body() const noexcept { return m_pBody; }

private:
    NodeBody* m_pBody = nullptr;
};

// The only thing of a role and a name in a window, the windows below it included; what is not visible counts
// only where nothing visible has that name. Null for the name means any. An empty node where there is none,
// or several: the reason and what is there goes to the debug output.
GESSO_API AccessibleNode FindAccessible(HWND root, Role role, LPCWSTR name);

// All that a window and those below it show, as a screen reader sees it, one line a thing, two blanks a
// level:
//     push button "Save" [default, focusable]
//     text "Name" = "Ada" [focusable]
//     list item "Readme.txt" description "Size: 1 KB" [selected, selectable]
// Lines end with a line feed. Copies what fits, terminated, and returns the whole length in characters
// without the terminator; the buffer may be null where the capacity is 0. Empty for a window that is none.
GESSO_API UINT AccessibleTree(HWND root, LPWSTR text, UINT capacity);

// A text in UTF-8. Half a pair of surrogates becomes U+FFFD.
inline std::string ToUtf8(LPCWSTR text)
{
    std::string bytes;
    const auto put = [&bytes](unsigned lead, UINT code, int nMore) {
        bytes += static_cast<char>(lead | (code >> (6 * nMore)));
        while (nMore-- > 0) {
            bytes += static_cast<char>(0x80U | ((code >> (6 * nMore)) & 0x3FU));
        }
    };
    for (; *text; ++text) {
        UINT code = static_cast<UINT>(*text);
        if (code >= 0xD800 && code < 0xDC00 && text[1] >= 0xDC00 && text[1] < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<UINT>(*++text) - 0xDC00);
        } else if (code >= 0xD800 && code < 0xE000) {
            code = 0xFFFD;
        }
        if (code < 0x80) {
            put(0, code, 0);
        } else if (code < 0x800) {
            put(0xC0, code, 1);
        } else {
            code < 0x10000 ? put(0xE0, code, 2) : put(0xF0, code, 3);
        }
    }
    return bytes;
}

// The same as a string, for tests; made by the program itself, so that none crosses the library's border.
inline std::string AccessibleTree(HWND root)
{
    UINT nLength = AccessibleTree(root, nullptr, 0);
    for (;;) {
        const auto text = std::make_unique<wchar_t[]>(size_t{nLength} + 1);
        const UINT nNow = AccessibleTree(root, text.get(), nLength + 1);
        if (nNow <= nLength) {
            return ToUtf8(text.get());
        }
        nLength = nNow;
    }
}

} // namespace gesso
