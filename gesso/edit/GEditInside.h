// What a GEdit keeps for itself, behind the one pointer in its public class.
#pragma once

#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextField.h>

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
};

// The one place where the text changes. edit(field) does it, and answers whether it has done anything; caret
// and anchor then are the field's.
template <class EDIT> bool GEdit::ChangeText(EDIT edit)
{
    gesso::TextField field = Field();
    const bool fChanged = edit(field);
    if (fChanged) {
        ChangeSelection(field);
    }
    return fChanged;
}
