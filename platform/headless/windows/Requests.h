// What threads ask of one another, and how they wait.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// Runs `call` on the thread of a desktop and waits for the answer, serving meanwhile what other threads ask
// of this one. 0 if that thread ends, or if it does not look for so long that the desktop gives it up: then
// with the last error set.
LRESULT Ask(Desktop& whom, std::function<LRESULT()> call);
// The same without waiting.
void Tell(Desktop& whom, std::function<LRESULT()> call);
// Waits no longer than that. False if there was no answer by then.
bool AskWithin(std::chrono::milliseconds limit, Desktop& whom, std::function<LRESULT()> call,
               LRESULT& answer);

// Answers what other threads have asked of the calling one.
void Serve();
// Answers all that is asked of a thread that ends: with 0.
void AnswerAll(Desktop& going);

// Says to the thread of a desktop that there is something for it.
void Wake(Desktop& desktop);
void WakeAll();
// Waits until another thread has done something for the calling one. False where that can never be, or was
// not in the time that the desktop gives it. `readsMessages` tells that any message would do.
bool WaitForOthers(bool readsMessages);

// True if a thread waits for messages and there is none.
bool IsAtRest(const Desktop& desktop);

} // namespace gesso::headless
