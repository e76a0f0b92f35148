// Any edits, keys, clicks, sizes and styles, done to two edit fields at once: one as it is, and one that
// forgets before each step which of its lines are known to fit. Both must agree after each, the table must
// add up to the text, and the text must be what a plain string has become by the same edits.
#pragma once

#include "../../edit/ProbeEdit.h"

#include <functional>
#include <string>

namespace test {

class EditMonkey
{
public:
    // choose(n) gives a number below n.
    EditMonkey(HWND hwndParent, std::function<unsigned(unsigned)> choose);
    ~EditMonkey();
    EditMonkey(const EditMonkey&) = delete;
    EditMonkey& operator=(const EditMonkey&) = delete;

    // Does one thing. What went wrong, with what was done; empty if nothing did.
    std::string Step();

private:
    using Text = std::u16string;

    void Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0);
    void SendKey(UINT uKey, bool fShift, bool fControl);
    Text AnyText(unsigned nLongest);
    Text TextNow() const;
    void Expect(Text text);
    // The expected text with what is selected replaced; or with the stretch at an offset, if nothing is.
    Text Replaced(const Text& with, UINT nOffset = 0, UINT nCount = 0) const;
    std::string Check();

    void TypeCharacter();
    void PressEnter();
    void PressBackspace();
    void PressDelete();
    void MoveCaret();
    void UseClipboard();
    void SetWholeText();
    void SetSelection();
    void ClickOrDrag();
    void Resize();
    void ChangeStyle();
    void ChangeFont();
    void Paint();

    std::function<unsigned(unsigned)> m_choose;
    ProbeEdit m_edit;
    ProbeEdit m_twin;
    HFONT m_fonts[2];
    std::string m_before;    // the lines and the caret before the last step
    std::string m_done;      // the last step
    std::vector<Text> m_may; // what the text may be after it; anything if empty
    bool m_fAtOdds = false;  // a deleted line end has left the table at odds with the text
};

} // namespace test
