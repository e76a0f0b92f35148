// What a GComboBox keeps for itself, behind the one pointer in its public class, and its text as a TextField.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/edit/GComboBoxList.h>
#include <gesso/edit/TextField.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>

#include <memory>
#include <utility>

namespace gesso {

// The parts of a combo box, as GComboBox::HitTestInfo counts them.
inline constexpr int COMBO_OUTSIDE = -1;
inline constexpr int COMBO_TEXT = 1;
inline constexpr int COMBO_BUTTON = 2;

inline constexpr int FIRST_TEXT_LIMIT = 30000;

// Whether each item is a record of its own with a text of its own.
bool CheckItems(const OArray<ComboItem*, ComboItem*>& aItems);

// What a text format says of ampersands in the items' texts.
inline UINT ItemPrefixFormat(const GWnd& combo)
{
    return Has(combo, Quirk::ComboHidesAmpersands) ? DT_HIDEPREFIX : DT_NOPREFIX;
}

} // namespace gesso

struct GComboBox::Inside
{
    void TakeFirstHeight(GComboBox& combo);
    // Of Classic's list, as long as the host has set none.
    void ScaleFirstHeight(GComboBox& combo) const;

    UINT nSelected = gesso::NO_INDEX; // it may be beyond the items
    bool fCompletes = false;          // SetAutoComplete
    bool fLimited = false;            // CB_LIMITTEXT
    bool fFirstHeight = false;        // the open list's is the one of Classic's first window
    UINT nFirstHeight = 0;            // that, for so many dots an inch
    UINT nFirstDpi = 0;
    UINT nRowHeight = 0;             // of Classic's list, as the library last gave it; 0 for none
    std::unique_ptr<Modern> pModern; // of the window; null in Classic

    // --- What those are told who do not see it, once the call or message that changed something is done.
    struct Seen
    {
        UINT nTextChanges = 0;
        UINT nItemChanges = 0;
        UINT nSelected = gesso::NO_INDEX;
        UINT nCaret = 0;
        UINT nAnchor = 0;
        UINT nHot = gesso::NO_INDEX; // row of the open list
        bool fOpen = false;
    };
    class Telling;
    class Release;
    static Seen SeenOf(const GComboBox& combo);
    static void Tell(GComboBox& combo);
    // From the window's making on; all is told so far.
    void StartTelling(const GComboBox& combo);
    // The common row of WM_SETFOCUS, with the field as what has the focus where there is one.
    static LRESULT TakeFocus(GComboBox& combo);
    // What a user does who chooses an item; and who types over the whole text of the field, which is false
    // unless all of it came in. The control may be gone afterwards.
    static void PickItem(GComboBox& combo, UINT nIndex);
    static bool TypeOver(GComboBox& combo, LPCWSTR pszText);

    bool fTells = false;
    bool fHeld = false; // a call or message goes on
    UINT nTextChanges = 0;
    UINT nItemChanges = 0;
    Seen told;
    OString<wchar_t> strTold;
};

// Lives through a call or message; the outermost one tells at its end, and the control may be gone behind it.
class GComboBox::Inside::Telling
{
public:
    explicit Telling(GComboBox& combo)
        : m_life(combo), m_combo(combo), m_fHeld(std::exchange(combo.m_inside->fHeld, true))
    {}
    ~Telling()
    {
        if (m_life) {
            m_combo.m_inside->fHeld = m_fHeld;
            if (!m_fHeld) {
                Tell(m_combo);
            }
        }
    }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;

private:
    const gesso::Lifeline m_life;
    GComboBox& m_combo;
    const bool m_fHeld;
};

// Lives through a loop within a message: what changes in it is told in it.
class GComboBox::Inside::Release
{
public:
    explicit Release(GComboBox& combo)
        : m_life(combo), m_combo(combo), m_fHeld(std::exchange(combo.m_inside->fHeld, false))
    {
        Tell(combo);
    }
    ~Release()
    {
        if (m_life) {
            m_combo.m_inside->fHeld = m_fHeld;
        }
    }
    Release(const Release&) = delete;
    Release& operator=(const Release&) = delete;

private:
    const gesso::Lifeline m_life;
    GComboBox& m_combo;
    const bool m_fHeld;
};

// The field for one operation. Whatever is in it is one line.
struct GComboBox::Field
{
    explicit Field(GComboBox& combo)
        : lines(combo.m_strText, aLines), text(lines, {0, combo.m_nCaret}, {0, combo.m_nAnchor})
    {
        lines.BeOneLine();
    }
    // The text becomes the selected item's, or empty without one, and all of it is selected where the user
    // can edit it. False, with nothing done, without memory.
    static bool ShowItem(GComboBox& combo);
    // The item becomes the selected one, and its text shows. False, with nothing done, without memory.
    static bool Select(GComboBox& combo, UINT nIndex);
    static void Mark(GComboBox& combo, UINT nIndex);

    gesso::LineTable aLines;
    gesso::EditLines lines;
    gesso::TextField text;
};

// The one place where the text changes. edit(field) does it, and answers whether it has done anything; the
// selection in it then is the field's.
template <class EDIT> bool GComboBox::ChangeText(EDIT edit)
{
    Field field(*this);
    if (!edit(field.text)) {
        return false;
    }
    ChangeField(field.text);
    ++m_inside->nTextChanges;
    return ShowText();
}
