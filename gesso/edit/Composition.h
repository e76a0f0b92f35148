// What an input method composes in a text field: shown at the caret, and no part of the text before it is
// accepted.
#pragma once

#include <gesso/framework/GWnd.h>
#include <gesso/text/SplitText.h>

#include <optional>
#include <vector>

namespace gesso {

// The field that is composed in.
class CompositionTarget
{
public:
    virtual const GWnd& ComposedWindow() const = 0;
    virtual HFONT ComposedFont() const = 0;
    // Whether anything may be composed: not where nothing may be typed.
    virtual bool MayCompose() const = 0;
    // Whether an input method is kept away, which would show what is typed.
    virtual bool IsSecret() const = 0;
    // The composed text, or its caret, has changed.
    virtual void ShowComposition() = 0;
    // From the composed text's start to its caret, as high as the row, in client coordinates.
    virtual RECT ComposedRect() = 0;
    // Accepted text comes into the selection's place, as one step. The control may be gone afterwards. False
    // where there was no memory: nothing has come in.
    virtual bool Accept(LPCWSTR psz, UINT n) = 0;
    // All that is accepted meanwhile is one step.
    virtual void HoldStep(bool fHold) = 0;
    virtual void AcceptCharacter(wchar_t ch) = 0;

    // What is to be composed again: the selection, or else the word at the caret, which is then selected.
    // None where the text is not to be seen.
    virtual std::optional<TextRange> Reconvertible() const = 0;
    virtual void Reconvert(const TextRange& range, wchar_t* pszTo) = 0;

protected:
    ~CompositionTarget() = default;
};

class Composition
{
public:
    explicit Composition(CompositionTarget& target) : m_target(target) {}
    Composition(const Composition&) = delete;
    Composition& operator=(const Composition&) = delete;

    // The input method's messages, and of the others those that end a composition: Esc, a press of a button,
    // the loss of the focus, and that nothing may be typed any more. True where the field has nothing more to
    // do with it, or is gone.
    bool OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);

    bool IsActive() const { return !m_text.empty(); }
    const std::vector<wchar_t>& Text() const { return m_text; }
    UINT Caret() const { return m_nComposedCaret; }
    // Takes back what is composed. False if the control is gone.
    bool Cancel();
    // What is composed may show elsewhere, or in another font: the input method's windows follow.
    void Follow();
    void FollowFont();
    // Whether the field is secret may have changed. False if the control is gone.
    bool FollowSecret();
    // Whether a character is of the part that is being converted.
    bool IsTarget(UINT n) const;

private:
    class Context;

    bool WantsKey(const MSG* pMsg, LRESULT* plAnswer) const;
    void Start();
    bool Compose(LPARAM lParam);
    LRESULT TakeAsCharacters(WPARAM wParam, LPARAM lParam);
    bool HasFocus() const;
    void ReadComposed(const Context& context);
    bool AcceptResult(const Context& context, bool* pfAlive);
    void Forget();
    bool Finish();
    void Place();
    void TellFont(const Context& context) const;
    bool Answer(WPARAM wRequest, LPARAM lParam, LRESULT* plAnswer) const;
    LRESULT AnswerReconversion(RECONVERTSTRING* pString) const;

    CompositionTarget& m_target;
    std::vector<wchar_t> m_text;
    std::vector<BYTE> m_attributes; // of each character, as far as they are known
    UINT m_nComposedCaret = 0;
    bool m_fTyping = false; // the platform sends what is accepted as characters
    RECT m_rcPlaced{};
    bool m_fSecret = false;
    HIMC m_himcFormer = nullptr; // the window's, while the field is secret
};

} // namespace gesso
