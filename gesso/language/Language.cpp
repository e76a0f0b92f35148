#include <gesso/containers/Memory.h>
#include <gesso/containers/Misuse.h>
#include <gesso/language/LanguageTable.h>

#include <algorithm>
#include <atomic>
#include <new>
#include <span>

namespace gesso {
namespace {

constexpr const Language* LANGUAGES[] = {&GERMAN,
                                         &ENGLISH,
                                         &FRENCH,
                                         &SPANISH,
                                         &ITALIAN,
                                         &PORTUGUESE,
                                         &EUROPEAN_PORTUGUESE,
                                         &DUTCH,
                                         &POLISH,
                                         &RUSSIAN,
                                         &JAPANESE,
                                         &SIMPLIFIED_CHINESE,
                                         &TRADITIONAL_CHINESE,
                                         &ARABIC};

// Null until a language is set.
constinit std::atomic<const Language*> s_language = nullptr;

// A program's wording. Those that there were stay, since another thread may be reading them; an equal one is
// used again.
struct Wording
{
    Wording* next;
    LPCWSTR Text() const { return reinterpret_cast<LPCWSTR>(this + 1); }
};
constinit std::atomic<Wording*> s_kept = nullptr;
constinit std::array<std::atomic<LPCWSTR>, TEXT_COUNT> s_wordings{}; // null for none

// Null without memory.
LPCWSTR KeepWording(LPCWSTR text)
{
    for (const Wording* kept = s_kept; kept; kept = kept->next) {
        if (wcscmp(kept->Text(), text) == 0) {
            return kept->Text();
        }
    }
    const size_t bytes = (wcslen(text) + 1) * sizeof(wchar_t);
    void* block = TryAllocate(sizeof(Wording) + bytes);
    if (!block) {
        return nullptr;
    }
    auto* wording = new (block) Wording{s_kept};
    std::memcpy(wording + 1, text, bytes);
    while (!s_kept.compare_exchange_weak(wording->next, wording)) {
    }
    return wording->Text();
}

using Tag = std::span<const wchar_t>;

Tag TagOf(LPCWSTR text)
{
    return {text, wcslen(text)};
}

constexpr wchar_t LowerOf(wchar_t ch)
{
    return ch >= L'A' && ch <= L'Z' ? static_cast<wchar_t>(ch - L'A' + L'a') : ch;
}

bool IsSameTag(Tag a, Tag b)
{
    return std::ranges::equal(a, b, {}, LowerOf, LowerOf);
}

const Language* LanguageOf(Tag tag)
{
    const auto* named =
        std::ranges::find_if(LANGUAGES, [tag](const Language* p) { return IsSameTag(TagOf(p->tag), tag); });
    return named != std::end(LANGUAGES) ? *named : nullptr;
}

// The first parts of a tag, so many of them.
Tag PartsOf(Tag tag, int count)
{
    auto end = tag.begin();
    for (; count > 0 && end != tag.end(); --count) {
        end = std::find(end + (end != tag.begin() ? 1 : 0), tag.end(), L'-');
    }
    return {tag.begin(), end};
}

int PartCountOf(Tag tag)
{
    return static_cast<int>(std::ranges::count(tag, L'-')) + 1;
}

// A longer tag is that of its first parts, of as many as are known.
const Language* LanguageNearest(Tag tag)
{
    // The written Chinese of Hong Kong and Macau is the traditional one.
    constexpr LPCWSTR TRADITIONAL[] = {L"zh-Hant", L"zh-HK", L"zh-MO"};
    const Tag twoParts = PartsOf(tag, 2);
    if (std::ranges::any_of(TRADITIONAL,
                            [twoParts](LPCWSTR text) { return IsSameTag(twoParts, TagOf(text)); })) {
        return &TRADITIONAL_CHINESE;
    }
    for (int parts = PartCountOf(tag); parts > 0; --parts) {
        if (const Language* language = LanguageOf(PartsOf(tag, parts))) {
            return language;
        }
    }
    return nullptr;
}

// The first of the user's languages that is there.
const Language* LanguageOfUser()
{
    constexpr ULONG ROOM = 1024;
    wchar_t tags[ROOM] = {}; // one behind the other, and an empty one
    ULONG count = 0;
    ULONG room = ROOM;
    if (!GetUserPreferredUILanguages(MUI_LANGUAGE_NAME, &count, tags, &room)) {
        return &ENGLISH;
    }
    for (const wchar_t* tag = tags; *tag; tag += wcslen(tag) + 1) {
        if (const Language* language = LanguageNearest(TagOf(tag))) {
            return language;
        }
    }
    return &ENGLISH;
}

bool IsOfWizard(TextId id)
{
    return id >= TextId::WizardBack && id <= TextId::WizardCancel;
}

LPCWSTR TextUnset(TextId id)
{
    if (id == TextId::WizardFinish) {
        return L"";
    }
    return (IsOfWizard(id) ? ENGLISH : GERMAN).texts[static_cast<size_t>(id)];
}

bool IsText(TextId id)
{
    return static_cast<size_t>(id) < TEXT_COUNT;
}

} // namespace

bool SetLanguage(LPCWSTR tag)
{
    if (!tag) {
        return false;
    }
    const Language* language = *tag ? LanguageNearest(TagOf(tag)) : LanguageOfUser();
    if (language) {
        s_language = language;
    }
    return language;
}

void SetTextOf(TextId id, LPCWSTR text)
{
    if (!IsText(id)) {
        Misuse("SetTextOf: no such text");
        return;
    }
    const LPCWSTR kept = text ? KeepWording(text) : nullptr;
    if (kept || !text) {
        s_wordings[static_cast<size_t>(id)] = kept;
    }
}

LPCWSTR TextOf(TextId id)
{
    if (!IsText(id)) {
        return nullptr;
    }
    if (LPCWSTR wording = s_wordings[static_cast<size_t>(id)]) {
        return wording;
    }
    const Language* language = s_language;
    return language ? language->texts[static_cast<size_t>(id)] : TextUnset(id);
}

bool HasOtherTexts()
{
    return s_language || std::ranges::any_of(s_wordings, [](const auto& wording) { return wording.load(); });
}

bool ReadsFromRight()
{
    return s_language == &ARABIC;
}

void ForgetLanguage()
{
    s_language = nullptr;
}

} // namespace gesso
