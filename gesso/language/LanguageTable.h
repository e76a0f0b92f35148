// The languages that there are. Each is a source of its own, in which every text stands once, or it does not
// compile.
#pragma once

#include <gesso/language/Language.h>

#include <array>
#include <cstddef>

namespace gesso {

constexpr size_t TEXT_COUNT = static_cast<size_t>(TextId::FailureDistrusted) + 1;

struct Language
{
    LPCWSTR tag;
    std::array<LPCWSTR, TEXT_COUNT> texts; // by TextId
};

struct LanguageText
{
    TextId id;
    LPCWSTR text;
};

template <size_t COUNT> consteval Language MakeLanguage(LPCWSTR tag, const LanguageText (&texts)[COUNT])
{
    static_assert(COUNT == TEXT_COUNT, "a text is missing or too many");
    Language language{tag, {}};
    for (const LanguageText& entry : texts) {
        LPCWSTR& text = language.texts[static_cast<size_t>(entry.id)];
        if (text || !entry.text || !*entry.text) {
            throw "a text stands twice, or is empty";
        }
        text = entry.text;
    }
    return language;
}

extern const Language ARABIC, DUTCH, ENGLISH, EUROPEAN_PORTUGUESE, FRENCH, GERMAN, ITALIAN, JAPANESE, POLISH,
    PORTUGUESE, RUSSIAN, SIMPLIFIED_CHINESE, SPANISH, TRADITIONAL_CHINESE;

// Whether texts may be others than those that the dialogs' measures were made for: a language has been set,
// or a wording.
bool HasOtherTexts();

// Whether the language that is set is written from right to left. Dialogs made meanwhile are laid out so.
bool ReadsFromRight();

// As before the first SetLanguage: for tests, since a program has no way back.
void ForgetLanguage();

} // namespace gesso
