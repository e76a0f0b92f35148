// Compiled resource files (.res), and the one that the library was built with.
#include "Resources.h"

// The linker's part: the file stands in the program as it is.
__asm__(".pushsection .rodata\n"
        ".balign 4\n"
        "gesso_resource_file:\n"
        ".incbin \"" GESSO_RESOURCE_FILE "\"\n"
        "gesso_resource_file_end:\n"
        ".popsection\n");

extern const std::byte EMBEDDED_BEGIN[] __asm__("gesso_resource_file");
extern const std::byte EMBEDDED_END[] __asm__("gesso_resource_file_end");

namespace gesso::headless {
namespace {

// Reads the entries of a file one after the other; every part of it starts on a multiple of four.
class Reader
{
public:
    explicit Reader(std::span<const std::byte> file) : m_file(file) {}

    bool AtEnd() const { return m_at >= m_file.size(); }
    // Adds the entry at which the reader stands; false if the file ends within it.
    bool AddEntry(HMODULE module);

private:
    template <typename VALUE> VALUE Read();
    // A number behind the mark 0xFFFF, or a text with its terminator.
    std::vector<wchar_t> ReadName();
    static LPCWSTR NameOf(const std::vector<wchar_t>& name);

    std::span<const std::byte> m_file;
    size_t m_at = 0;
};

constexpr wchar_t NUMBER_MARK = 0xFFFF;

bool Reader::AddEntry(HMODULE module)
{
    const size_t start = m_at;
    const auto dataSize = Read<DWORD>();
    const auto headerSize = Read<DWORD>();
    const std::vector<wchar_t> type = ReadName();
    const std::vector<wchar_t> name = ReadName();
    const size_t data = start + headerSize;
    if (headerSize == 0 || data + dataSize > m_file.size()) {
        return false;
    }
    if (dataSize > 0) { // the first entry only says what kind of file this is
        AddResource(module, NameOf(type), NameOf(name), m_file.subspan(data, dataSize));
    }
    m_at = (data + dataSize + 3) & ~size_t{3};
    return true;
}

template <typename VALUE> VALUE Reader::Read()
{
    VALUE value{};
    if (m_at + sizeof(VALUE) <= m_file.size()) {
        memcpy(&value, &m_file[m_at], sizeof(VALUE));
    }
    m_at += sizeof(VALUE);
    return value;
}

std::vector<wchar_t> Reader::ReadName()
{
    std::vector<wchar_t> name{Read<wchar_t>()};
    if (name[0] == NUMBER_MARK) {
        name.push_back(Read<wchar_t>());
        return name;
    }
    while (name.back() != 0) {
        name.push_back(Read<wchar_t>());
    }
    return name;
}

LPCWSTR Reader::NameOf(const std::vector<wchar_t>& name)
{
    return name[0] == NUMBER_MARK ? MAKEINTRESOURCEW(name[1]) : name.data();
}

} // namespace

bool AddResourceFile(HMODULE module, std::span<const std::byte> file)
{
    Reader reader(file);
    while (!reader.AtEnd()) {
        if (!reader.AddEntry(module)) {
            return false;
        }
    }
    return true;
}

void AddLibraryResources()
{
    AddResourceFile(LibraryModule(), {EMBEDDED_BEGIN, EMBEDDED_END});
}

} // namespace gesso::headless
