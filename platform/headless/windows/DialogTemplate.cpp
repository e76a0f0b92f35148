#include "DialogTemplate.h"

namespace gesso::headless {
namespace {

constexpr WORD MARKED = 0xFFFF; // a number follows in the place of a name

// Walks through a template. The numbers in it are aligned to words only.
class Reader
{
public:
    explicit Reader(const void* start) : m_at(static_cast<const BYTE*>(start)) {}

    template <typename T> T Read()
    {
        T value;
        std::memcpy(&value, m_at, sizeof(T));
        m_at += sizeof(T);
        return value;
    }

    int ReadShort() { return Read<SHORT>(); }

    // A name, a number in its place, or null for the empty name.
    LPCWSTR ReadName()
    {
        const auto first = PeekWord();
        if (first == MARKED) {
            m_at += sizeof(WORD);
            return MAKEINTRESOURCEW(Read<WORD>());
        }
        const LPCWSTR text = ReadText();
        return first == 0 ? nullptr : text;
    }

    // A text where no number can stand: 0xFFFF is a character of it.
    LPCWSTR ReadText()
    {
        const auto* text = reinterpret_cast<LPCWSTR>(m_at);
        m_at += (wcslen(text) + 1) * sizeof(wchar_t);
        return text;
    }

    // The creation data of an item. The extended form counts the bytes behind the size, the plain one all.
    void* ReadCreationData(bool extended)
    {
        const WORD size = PeekWord();
        void* data = size == 0 ? nullptr : const_cast<BYTE*>(m_at);
        m_at += size == 0  ? sizeof(WORD)
                : extended ? sizeof(WORD) + size
                           : std::max<size_t>(size, sizeof(WORD));
        return data;
    }

    void Align() { m_at += (4 - reinterpret_cast<uintptr_t>(m_at) % 4) % 4; }

private:
    WORD PeekWord() const
    {
        WORD value;
        std::memcpy(&value, m_at, sizeof(WORD));
        return value;
    }

    const BYTE* m_at;
};

LPCWSTR ClassOfAtom(LPCWSTR name)
{
    if (!IS_INTRESOURCE(name)) {
        return name;
    }
    switch (LOWORD(name)) {
    case 0x80: return L"BUTTON";
    case 0x81: return L"EDIT";
    case 0x82: return L"STATIC";
    case 0x83: return L"LISTBOX";
    case 0x84: return L"SCROLLBAR";
    case 0x85: return L"COMBOBOX";
    default: return name;
    }
}

DialogItem ReadItem(Reader& reader, bool extended)
{
    DialogItem item;
    reader.Align();
    if (extended) {
        reader.Read<DWORD>(); // help
        item.exStyle = reader.Read<DWORD>();
        item.style = reader.Read<DWORD>();
    } else {
        item.style = reader.Read<DWORD>();
        item.exStyle = reader.Read<DWORD>();
    }
    item.place.left = reader.ReadShort();
    item.place.top = reader.ReadShort();
    item.place.right = reader.ReadShort();
    item.place.bottom = reader.ReadShort();
    item.id = extended ? reader.Read<DWORD>() : reader.Read<WORD>();
    item.className = ClassOfAtom(reader.ReadName());
    item.text = reader.ReadName();
    item.creationData = reader.ReadCreationData(extended);
    return item;
}

void ReadFont(Reader& reader, bool extended, LOGFONTW& font)
{
    font.lfHeight = reader.ReadShort();
    font.lfWeight = FW_DONTCARE;
    if (extended) {
        font.lfWeight = reader.ReadShort();
        font.lfItalic = reader.Read<BYTE>();
        font.lfCharSet = reader.Read<BYTE>();
    }
    CopyText(View(reader.ReadText()), font.lfFaceName, LF_FACESIZE);
}

// Reads the head up to the number of items.
WORD ReadHead(Reader& reader, bool extended, DialogTemplate& out)
{
    if (extended) {
        reader.Read<DWORD>(); // version and signature
        reader.Read<DWORD>(); // help
        out.exStyle = reader.Read<DWORD>();
        out.style = reader.Read<DWORD>();
    } else {
        out.style = reader.Read<DWORD>();
        out.exStyle = reader.Read<DWORD>();
    }
    return reader.Read<WORD>();
}

} // namespace

DialogTemplate ReadTemplate(const DLGTEMPLATE* source)
{
    Reader reader(source);
    const auto* words = reinterpret_cast<const WORD*>(source);
    const bool extended = words[0] == 1 && words[1] == MARKED;
    DialogTemplate out;
    const WORD count = ReadHead(reader, extended, out);
    out.corner.x = reader.ReadShort();
    out.corner.y = reader.ReadShort();
    out.size.cx = reader.ReadShort();
    out.size.cy = reader.ReadShort();
    reader.ReadName(); // there are no menus
    out.className = reader.ReadName();
    out.text = reader.ReadText();
    out.hasFont = (out.style & DS_SETFONT) != 0;
    if (out.hasFont) {
        ReadFont(reader, extended, out.font);
    }
    for (WORD i = 0; i < count; ++i) {
        out.items.push_back(ReadItem(reader, extended));
    }
    return out;
}

} // namespace gesso::headless
