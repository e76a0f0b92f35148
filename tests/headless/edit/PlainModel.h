// What a text model should be, plainly: the whole text of every step.
#pragma once

#include <gesso/edit/UndoStack.h>

#include <cwctype>
#include <utility>
#include <vector>

namespace test {

using Characters = std::vector<wchar_t>;

struct Snapshot
{
    Characters text;
    UINT nAnchor = 0;
    UINT nCaret = 0;
    bool operator==(const Snapshot&) const = default;
};

class PlainModel
{
public:
    void Select(UINT nAnchor, UINT nCaret)
    {
        const Snapshot former = now;
        now.nAnchor = Snapped(nAnchor);
        now.nCaret = Snapped(nCaret);
        m_fOpen &= m_fHeld || now == former;
    }
    // No place is within a line end or a surrogate pair.
    UINT Snapped(UINT n) const
    {
        const Characters& text = now.text;
        if (n == 0 || n >= text.size()) {
            return std::min(n, static_cast<UINT>(text.size()));
        }
        const bool fWithin = (text[n - 1] == L'\r' && text[n] == L'\n') ||
                             (IS_HIGH_SURROGATE(text[n - 1]) && IS_LOW_SURROGATE(text[n]));
        return fWithin ? n - 1 : n;
    }
    void Replace(const gesso::TextRange& range, const Characters& text, gesso::EditKind kind, DWORD dwNow)
    {
        if (range.Length() == 0 && text.empty()) {
            Select(range.nFrom, range.nFrom);
            return;
        }
        const Snapshot before = now;
        const auto from = now.text.begin() + range.nFrom;
        const Characters removed(from, from + range.Length());
        now.text.insert(now.text.erase(from, from + range.Length()), text.begin(), text.end());
        const UINT nNext = range.nFrom + static_cast<UINT>(text.size());
        now.nCaret = Snapped(nNext);
        now.nAnchor = kind == gesso::EditKind::Dropping ? range.nFrom : now.nCaret;
        const Characters& touched = text.empty() ? removed : text;
        if (!Joins(range, touched, text.empty(), kind, dwNow)) {
            m_steps.resize(m_nDone);
            m_steps.push_back({before, now});
            m_nDone = m_steps.size();
        }
        m_steps.back().second = now;
        m_kind = kind;
        m_dwLast = dwNow;
        m_nNext = nNext;
        m_chLast = touched.back();
        m_fOpen = m_fHeld || m_chLast != L'\n';
        if (m_steps.size() > gesso::UndoStack::MOST_STEPS) {
            m_steps.erase(m_steps.begin());
            --m_nDone;
            ++nDropped;
        }
    }
    void Hold(bool fHeld)
    {
        if (!fHeld && m_fOpen) {
            m_steps.back().second = now;
        }
        m_fHeld = fHeld;
        m_fOpen = false;
    }
    bool Undo()
    {
        Hold(false);
        if (m_nDone > 0) {
            now = m_steps[--m_nDone].first;
            return true;
        }
        return false;
    }
    bool Redo()
    {
        Hold(false);
        if (m_nDone < m_steps.size()) {
            now = m_steps[m_nDone++].second;
            return true;
        }
        return false;
    }
    bool CanUndo() const { return m_nDone > 0; }
    bool CanRedo() const { return m_nDone < m_steps.size(); }
    void EmptyUndo()
    {
        m_steps.clear();
        m_nDone = 0;
        m_fOpen = false;
    }

    Snapshot now;
    int nDropped = 0;

private:
    bool Joins(const gesso::TextRange& range, const Characters& touched, bool fErases, gesso::EditKind kind,
               DWORD dwNow) const
    {
        if (!m_fOpen || m_fHeld) {
            return m_fOpen;
        }
        const bool fWord = !iswspace(m_chLast) || iswspace(touched[0]);
        const bool fAdjoins = kind == gesso::EditKind::Typing
                                  ? range == gesso::TextRange{m_nNext, m_nNext}
                                  : fErases && (range.nFrom == m_nNext || range.nTo == m_nNext);
        const bool fOwnStep = kind == gesso::EditKind::Step || kind == gesso::EditKind::Dropping;
        return kind == m_kind && !fOwnStep && fWord && fAdjoins && dwNow - m_dwLast < 2000;
    }

    std::vector<std::pair<Snapshot, Snapshot>> m_steps;
    size_t m_nDone = 0;
    bool m_fOpen = false;
    bool m_fHeld = false;
    gesso::EditKind m_kind = gesso::EditKind::Step;
    DWORD m_dwLast = 0;
    UINT m_nNext = 0;
    wchar_t m_chLast = 0;
};

} // namespace test
