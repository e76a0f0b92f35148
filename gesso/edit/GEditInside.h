// What a GEdit keeps for itself, behind the one pointer in its public class.
#pragma once

#include <gesso/edit/GEdit.h>
#include <gesso/edit/TextField.h>

struct GEdit::Inside
{
    explicit Inside(GEdit& edit) : lines(edit.m_strText, edit.m_aLines) {}

    gesso::EditLines lines;
    bool fCaret = false;   // the platform's caret is this window's
    wchar_t chRefused = 0; // the first half of a character for which there was no room
};
