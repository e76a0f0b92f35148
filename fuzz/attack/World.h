// What one run plays in: the host's windows and graphics objects, the thing under attack, and what the host
// does in the midst of a message. A world of a control knows how its object and its window are made.
#pragma once

#include "Desktop.h"
#include "Source.h"

#include <functional>
#include <string>
#include <vector>

namespace attack {

class World;

struct Operation
{
    const char* pszName;
    std::function<void(World&, Source&)> act;
    UINT nWeight = 1;
    bool fOnCopy = false; // also on a copy, which owns nothing
};
using Table = std::vector<Operation>;

class World
{
public:
    World(const Table& table, Source& source);
    virtual ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    // One operation, chosen by the source; its name.
    const char* Step(Source& source);
    // What does not hold of the thing under attack; empty where all does.
    virtual std::string Check() { return {}; }
    // Lets go of everything, in an order that the source chooses.
    virtual void End(Source& source);

    // What operations act on: null where there is none just now.
    virtual void* Object() { return nullptr; }
    virtual HWND Window() { return nullptr; }
    // Makes the two anew.
    virtual void Make(Source&) {}
    virtual void DeleteObject(Source&) {}
    // An object that its window made is the host's from now on, since it is to get a window of the host's.
    virtual void TakeOver() {}
    // Copies the object and uses the copy; assigns another object to it.
    virtual void UseCopy(Source&) {}
    virtual void Assign(Source&) {}

    // --- What the host has

    HWND Host();
    // The host, the window under attack, a window of another class, none, or one that is gone.
    HWND AnyWindow(Source& source);
    HWND AnyParent(Source& source);
    // Fonts that the library is given may become its own; all are deleted at the end.
    HFONT AnyFont(Source& source);
    HBITMAP AnyBitmap(Source& source);
    HICON AnyIcon(Source& source);
    HIMAGELIST AnyImageList(Source& source);
    HDC AnyContext(Source& source);
    // To be deleted at the end, if nobody does before.
    void Keep(HFONT hFont) { m_fonts.push_back(hFont); }
    // Handles that the thing gave out: of items that are there, are gone, or belong to another.
    void* AnyHandle(Source& source);
    void NoteHandle(void* handle);

    // --- In the midst of a message

    // One of the next messages of a kind makes the host act.
    void Arm(Source& source);
    // An operation of the table within another.
    void DoAnother(Source& source);
    // An operation that also a copy may do, on the object given.
    void DoOnCopy(void* pObject, Source& source);
    // How often the host has acted in a message: what a call gave out may be gone since then.
    UINT Acted() const { return m_nActed; }
    // A user's next move, where a modal loop waits; ends the loop in the end.
    void OnIdle();
    void OnHostMessage(HWND hwnd, UINT uMsg);

protected:
    // The object that operations see instead of the own one.
    void* m_pCopy = nullptr;
    // The host does nothing in the midst of a message while this lives.
    class Quiet
    {
    public:
        explicit Quiet(World& world) : m_world(world) { ++m_world.m_nQuiet; }
        ~Quiet() { --m_world.m_nQuiet; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

    private:
        World& m_world;
    };

private:
    void Act(Source& source);
    const Operation& Choose(Source& source, bool fOnCopy) const;
    void WaitForIdle();
    void MakeObjects();
    void DeleteObjects();

    const Table& m_table;
    std::vector<uint64_t> m_names; // of its operations, as numbers
    HWND m_hwndHost = nullptr;
    HWND m_hwndOther = nullptr;
    HWND m_hwndGone = nullptr;
    std::vector<HFONT> m_fonts;
    std::vector<HBITMAP> m_bitmaps;
    std::vector<HICON> m_icons;
    HIMAGELIST m_images = nullptr;
    HDC m_hdc = nullptr;
    std::vector<void*> m_handles;
    size_t m_nNoted = 0;

    UINT m_nArmedKind = 0;
    UINT m_nCountdown = 0; // to the message that makes the host act; 0 where it is not armed
    uint64_t m_nArmedSeed = 0;
    UINT m_nActed = 0;
    UINT m_nDepth = 0;
    UINT m_nQuiet = 0;
    UINT m_nIdle = 0; // in this operation
    uint64_t m_nIdleSeed = 0;
    friend struct Behaviours;
};

// For the procedures of the host's windows and dialogs: tells the world that goes on.
void NoteHostMessage(HWND hwnd, UINT uMsg);

// What every window is attacked with: messages, input, its life, the style, settings, faults.
void AddMessages(Table& table);
void AddInput(Table& table);
void AddSurroundings(Table& table);
void AddSettings(Table& table);
void AddFaults(Table& table);
void AddFonts(Table& table);
// The object's and its window's coming and going.
void AddLife(Table& table);

} // namespace attack
