// What a GEdit keeps for itself, behind the one pointer in its public class.
#pragma once

#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextField.h>
#include <gesso/framework/Lifeline.h>

#include <array>
#include <utility>

struct GEdit::Inside
{
    explicit Inside(GEdit& edit) : lines(edit.m_strText, edit.m_aLines) {}
    ~Inside();
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;

    gesso::EditLines lines;
    bool fCaret = false;   // the platform's caret is this window's
    bool fOneLine = false; // its lines are not wrapped
    wchar_t chRefused = 0; // the first half of a character for which there was no room

    // A field made in Modern, while it has a window: the text is in there.
    Modern* pModern = nullptr;
    bool fModified = false;

    // --- What those are told who do not see it: a change of the text, and of the selection, once the call or
    // message that made it is done.
    using Marks = std::array<UINT, 4>; // caret and anchor
    class Telling;
    static Marks MarksOf(const GEdit& edit);
    static void Tell(GEdit& edit);
    // From the window's making on; all is told so far.
    void StartTelling(const GEdit& edit);
    static bool Shows(const GEdit& edit, LPCWSTR pszText);
    // Whether the text is not given away.
    static bool IsSecret(const GEdit& edit);
    // What typing over the whole text does. False unless all of it came in. The control may be gone
    // afterwards.
    static bool TypeOver(GEdit& edit, LPCWSTR pszText);

    bool fTells = false;
    bool fHeld = false; // a call or message goes on
    UINT nTextChanges = 0;
    UINT nTextTold = 0;
    Marks marksTold{};
};

// Lives through a call or message; the outermost one tells at its end, and the control may be gone behind it.
class GEdit::Inside::Telling
{
public:
    explicit Telling(GEdit& edit) : m_life(edit), m_edit(edit), m_fHeld(std::exchange(edit.Own().fHeld, true))
    {}
    ~Telling()
    {
        if (m_life) {
            m_edit.Own().fHeld = m_fHeld;
            if (!m_fHeld) {
                Tell(m_edit);
            }
        }
    }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;

private:
    const gesso::Lifeline m_life;
    GEdit& m_edit;
    const bool m_fHeld;
};

// The one place where the text changes. edit(field) does it, and answers whether it has done anything; caret
// and anchor then are the field's.
template <class EDIT> bool GEdit::ChangeText(EDIT edit)
{
    gesso::TextField field = Field();
    const bool fChanged = edit(field);
    if (fChanged) {
        ChangeSelection(field);
        ++Own().nTextChanges;
    }
    return fChanged;
}
